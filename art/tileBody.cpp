#include "tileBody.h"

#include <algorithm>
#include <cmath>

namespace {

/// The colours of a tile's body: the front from its lit to its shaded corner, and its thin edges.
struct Material {
    QRgb lit, shaded;
    QRgb edgeLit, edgeShaded;
};

constexpr Material ivory = {0xFFFFFDF4, 0xFFF3E8CC, 0xFFFFFFFF, 0xFFB9A273};
constexpr Material lacquer = {0xFF2A4C8E, 0xFF14264E, 0xFF6C8CCB, 0xFF0A142C};

/// The bamboo of a side, from the front outward; its far line doubles as the tile's edge.
using Side = std::array<QRgb, 3>;
constexpr Side sideInShade = {0xFFB9975A, 0xFF97733A, 0xFF5C4220};
constexpr Side sideInLight = {0xFFD2AE6A, 0xFFC09850, 0xFF866430};
constexpr Side sideBelow = {0xFFA68048, 0xFF523A1C, 0xFF523A1C};

constexpr std::array bambooJoints = {12, 26};

QRgb mix(QRgb from, QRgb to, double share) {
    const auto blend = [share](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * share)); };
    return qRgb(blend(qRed(from), qRed(to)), blend(qGreen(from), qGreen(to)), blend(qBlue(from), qBlue(to)));
}

QRgb frontColour(const Material& material, const QRect& front, int x, int y) {
    if (x == front.right() || y == front.bottom()) return material.edgeShaded;
    if (x == front.left() || y == front.top()) return material.edgeLit;
    const double fall = static_cast<double>(x - front.left()) / front.width() + static_cast<double>(y) / front.height();
    return mix(material.lit, material.shaded, fall / 2);
}

QRgb sideColour(const QRect& front, int x, int y) {
    const int beside = std::max(front.left() - x, x - front.right());
    const int below = y - front.bottom();
    if (below >= beside) return sideBelow[below - 1];
    const Side& side = x < front.left() ? sideInLight : sideInShade;
    const bool joint = std::ranges::find(bambooJoints, y - beside) != bambooJoints.end();
    return joint ? mix(side[beside - 1], qRgb(0, 0, 0), 0.35) : side[beside - 1];
}

void paintBody(QPainter& painter, const TileView& view, const Material& material) {
    for (int y = 0; y < tileHeight; ++y)
        for (int x = 0; x < tileWidth; ++x)
            if (view.covers(x, y)) {
                const QRgb colour =
                    view.front.contains(x, y) ? frontColour(material, view.front, x, y) : sideColour(view.front, x, y);
                painter.fillRect(x, y, 1, 1, QColor::fromRgb(colour));
            }
}

}  // namespace

bool TileView::covers(int x, int y) const {
    const auto cut = [](const CornerCut& top, const CornerCut& bottom, int line) {
        if (line < 3) return top[line];
        const int fromBottom = tileHeight - 1 - line;
        return fromBottom < 3 ? bottom[fromBottom] : 0;
    };
    return x >= cut(topLeft, bottomLeft, y) && x < tileWidth - cut(topRight, bottomRight, y);
}

void paintIvory(QPainter& painter, const TileView& view) { paintBody(painter, view, ivory); }

void paintBack(QPainter& painter, const TileView& view) {
    paintBody(painter, view, lacquer);
    const QRect frame(view.face, QSize(faceWidth, faceHeight));
    painter.setPen(QColor(0xD9, 0xB0, 0x55));
    painter.drawRect(frame.adjusted(1, 1, -2, -2));
}

void paintTileMask(QPainter& painter, const TileView& view) {
    for (int y = 0; y < tileHeight; ++y)
        for (int x = 0; x < tileWidth; ++x)
            if (!view.covers(x, y)) painter.fillRect(x, y, 1, 1, Qt::white);
}
