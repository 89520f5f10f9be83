#include "tileBody.h"

#include <algorithm>
#include <cmath>

#include "materials.h"
#include "outline.h"
#include "tileRosette.h"
#include "tileSprites.h"

namespace {

/// The colours of a tile's body: the front from its lit to its shaded corner, and its thin edges.
struct Material {
    QRgb lit, shaded;
    QRgb edgeLit, edgeShaded;
};

constexpr Material ivory = {0xFFFFFDF4, 0xFFF3E8CC, 0xFFFFFFFF, 0xFFB9A273};
constexpr Material lacquer = {0xFF2A4C8E, 0xFF14264E, 0xFF6C8CCB, 0xFF0A142C};

/// What lies on a back: a trellis of pale threads in a gilt rim, a corner piece in each corner, a lotus in the middle.
constexpr QRect rim(0, 0, faceWidth, faceHeight);
constexpr QRgb trellis = 0xFF36609E;
constexpr int mesh = 6;
constexpr int cornerSize = 5;
constexpr Sprite backCorner =
    "yyyyy\n"
    "yYYY.\n"
    "yYy..\n"
    "yY...\n"
    "y....";
constexpr std::array lotus = {
    Ring{9.6, 'B', 'B', 0, 0},   Ring{8.8, 'Y', 'Y', 0, 0}, Ring{8.1, 'B', 'y', 8, 0.8}, Ring{5.2, 'B', 'B', 0, 0},
    Ring{4.5, 'Y', 'r', 8, 0.7}, Ring{2.4, 'y', 'y', 0, 0}, Ring{1.0, 'w', 'w', 0, 0},
};

/// The same as outlines.
constexpr std::array fineLotus = {
    Ring{9.6, 'Y', 'Y', 0, 0}, Ring{9, 'B', 'y', 16, 0.74}, Ring{6.7, 'Y', 'Y', 0, 0}, Ring{6.1, 'B', 'e', 8, 0.84},
    Ring{3.2, 'Y', 'Y', 0, 0}, Ring{2.7, 'r', 'r', 0, 0},   Ring{1.2, 'y', 'y', 0, 0},
};
constexpr outline::Shape fineCorner[] = {
    {"M 0 0 L 5.6 0 Q 5 1.3 3.4 1.5 Q 1.5 1.5 1.5 3.4 Q 1.3 5 0 5.6 Z", "yYB"},
    {"E 2.9 2.9 0.7 0.7", "yYB"},
};

/// The bamboo of a side, from the front outward; its far line doubles as the tile's edge.
using Side = std::array<QRgb, 3>;
constexpr Side sideInShade = {0xFFB9975A, 0xFF97733A, 0xFF5C4220};
constexpr Side sideInLight = {0xFFD2AE6A, 0xFFC09850, 0xFF866430};
constexpr Side sideBelow = {0xFFA68048, 0xFF523A1C, 0xFF523A1C};

/// The lines where a side shows the joints of its cane, and how much darker they are.
constexpr double jointShade = 0.35;
constexpr std::array bambooJoints = {12, 26};

QRgb frontColour(const Material& material, const QRect& front, double x, double y) {
    const auto nearness = [](double one, double other) { return std::clamp(1 - std::min(one, other), 0.0, 1.0); };
    const double fall = (x - front.left()) / front.width() + y / front.height();
    const QRgb flat = materials::mix(material.lit, material.shaded, fall / 2);
    const QRgb withLight = materials::mix(flat, material.edgeLit, nearness(x - front.left(), y - front.top()));
    return materials::mix(withLight, material.edgeShaded, nearness(front.right() - x, front.bottom() - y));
}

/// The colour of a side so far from the front: that of its lines, and between them a mixture.
QRgb colourAt(const Side& side, double depth) {
    const double line = std::clamp(depth - 1, 0.0, side.size() - 1.0);
    const size_t upper = static_cast<size_t>(line);
    return materials::mix(side[upper], side[std::min(upper + 1, side.size() - 1)], line - upper);
}

QRgb sideColour(const QRect& front, double x, double y) {
    const double beside = std::max(front.left() - x, x - front.right());
    const double below = y - front.bottom();
    if (below >= beside) return colourAt(sideBelow, below);
    double shade = 0;
    for (const int joint : bambooJoints) shade = std::max(shade, jointShade * (1 - std::abs(y - beside - joint)));
    return materials::mix(colourAt(x < front.left() ? sideInLight : sideInShade, beside), qRgb(0, 0, 0), shade);
}

/// Fine diagonal threads of paler lacquer with a speck of gilt wherever two of them cross.
void paintTrellis(QPainter& painter) {
    materials::everyPixel(rim, [&](double placeX, double placeY) {
        const int x = materials::cellAt(placeX, 1), y = materials::cellAt(placeY, 1);
        const bool falling = (x - rim.center().x() - y + rim.center().y()) % mesh == 0;
        const bool rising = (x - rim.center().x() + y - rim.center().y()) % mesh == 0;
        if (falling || rising) materials::dot(painter, x, y, falling && rising ? materials::gilt : trellis);
    });
}

void paintFineTrellis(QPainter& painter) {
    constexpr double speck = 0.55;
    constexpr int reach = 6 * mesh;
    const QPointF middle = QRectF(rim).center();
    QPainterPath threads, specks;
    for (int across = -reach; across <= reach; across += mesh)
        for (const int way : {-1, 1}) {
            threads.moveTo(middle + QPointF(across - way * reach, -reach));
            threads.lineTo(middle + QPointF(across + way * reach, reach));
        }
    for (int x = -reach; x <= reach; x += mesh / 2)
        for (int y = -reach; y <= reach; y += mesh / 2)
            if ((x + y) % mesh == 0) specks.addPath(outline::disc(middle + QPointF(x, y), speck));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(rim, Qt::IntersectClip);
    painter.strokePath(threads, QPen(QColor::fromRgb(trellis), 0.5));
    painter.fillPath(specks, QColor::fromRgb(materials::gilt));
    painter.restore();
}

void paintRim(QPainter& painter) {
    materials::paintBorder(painter, rim, QColor::fromRgb(materials::gilt));
    materials::paintBorder(painter, rim.adjusted(1, 1, -1, -1), QColor::fromRgb(lacquer.edgeShaded));
}

/// One corner piece, painted in all four corners.
void paintFineCorners(QPainter& painter) {
    const QRectF inside = QRectF(rim).adjusted(2, 2, -2, -2);
    for (const int right : {1, -1})
        for (const int low : {1, -1}) {
            painter.save();
            painter.translate(right > 0 ? inside.left() : inside.right(), low > 0 ? inside.top() : inside.bottom());
            painter.scale(right, low);
            outline::paint(painter, fineCorner);
            painter.restore();
        }
}

/// All that lies on a back, as outlines.
void paintFineBack(QPainter& painter) {
    constexpr double rimLight = 0.2;
    paintFineTrellis(painter);
    paintRim(painter);
    paintFineCorners(painter);
    paintFineRosette(painter, QRectF(rim).center(), fineLotus, {}, {}, rimLight);
}

void paintCorners(QPainter& painter) {
    const QRect inside = rim.adjusted(1, 1, -cornerSize - 1, -cornerSize - 1);
    for (const bool right : {false, true})
        for (const bool low : {false, true})
            paintSprite(painter, right ? inside.x() + inside.width() : inside.x(),
                        low ? inside.y() + inside.height() : inside.y(), backCorner, {}, {},
                        {.leftRight = right, .upsideDown = low});
}

void paintBody(QPainter& painter, const TileView& view, const Material& material) {
    const auto colour = [&](double x, double y) {
        const bool front = materials::holds(view.front, x, y);
        return front ? frontColour(material, view.front, x, y) : sideColour(view.front, x, y);
    };
    materials::everyPixel(QRect(0, 0, tileWidth, tileHeight), [&](double x, double y) {
        if (view.covers(x, y)) materials::dot(painter, x, y, materials::smooth(x, y, colour));
    });
}

}  // namespace

bool TileView::covers(double x, double y) const {
    const auto keeps = [](const Corner& corner, double across, double down) {
        const double fromRound = corner.round - 0.5;
        const bool inRound = std::max(across, down) < fromRound;
        return across + down >= corner.slant - 0.5 &&
               !(inRound && std::hypot(fromRound - across, fromRound - down) > corner.round);
    };
    const double right = tileWidth - 1 - x, bottom = tileHeight - 1 - y;
    return keeps(topLeft, x, y) && keeps(topRight, right, y) && keeps(bottomLeft, x, bottom) &&
           keeps(bottomRight, right, bottom);
}

void paintIvory(QPainter& painter, const TileView& view) { paintBody(painter, view, ivory); }

void paintBack(QPainter& painter, const TileView& view) {
    paintBody(painter, view, lacquer);
    painter.translate(view.face);
    if (materials::density > 1) return paintFineBack(painter);
    paintTrellis(painter);
    paintRim(painter);
    paintCorners(painter);
    paintRosette(painter, rim.center(), lotus);
}

void paintTileMask(QPainter& painter, const TileView& view) {
    materials::paintMask(painter, {tileWidth, tileHeight}, [&](double x, double y) { return view.covers(x, y); });
}
