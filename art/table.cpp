#include <cmath>
#include <utility>

#include "materials.h"
#include "pictures.h"
#include "script.h"
#include "tableArt.h"

namespace tableArt {

namespace {

using namespace materials;

constexpr QRect frameOuter{QPoint{21, 44}, QPoint{330, 550}};
constexpr QRect ground = rectOf(boardPlace);

constexpr platform::Place trays[] = {nextTilePlace, bonusSlotsPlace, handSlotsPlace, chooserPlace};

/// The red score, of ten digits at most, stands out from a deeper tray.
constexpr QRect scoreTray{scorePlace.X - 6, scorePlace.Y - 1, 145, 30};
constexpr double trayDepth = 0.10;
constexpr double scoreDepth = 0.40;

constexpr QRect tableTop = rectOf(smallTablePlace);

/// The mat's middle lies a little below the small table's, to keep clear of the score.
constexpr int matLower = 3;
constexpr QPointF matCentre{smallTablePlace.left + smallTablePlace.width / 2.0,
                            smallTablePlace.top + smallTablePlace.height / 2.0 + matLower};
constexpr QSizeF matRadii{120, 71};

/// Straw shows round the small table, so that the names stand clear of its frame.
constexpr int strawRound = 4;
constexpr QRect smallTable = tableTop.adjusted(strawRound, strawRound, -strawRound, -strawRound);

struct Label {
    const char* words;
    int top;
    int bottom;
};

constexpr int labelLeft = 353;
constexpr int labelRight = 794;
constexpr Label labels[] = {
    {"Next Tile", 45, 68},             //
    {"Tiles In Possession", 99, 121},  //
    {"Score", 242, 264},               //
    {"Round", 323, 344},               //
    {"Select Tiles", 403, 426},        //
};

/// Every second column is a hair lighter, so that the eye finds the column that a tile falls in.
void paintGround(QPainter& painter) {
    lay(painter, ground.topLeft(), cloth(ground.size(), groundGreen));
    for (int x = ground.left() + tileWidth; x < ground.right(); x += 2 * tileWidth)
        painter.fillRect(x, ground.top(), tileWidth, ground.height(), QColor(130, 240, 180, 13));
    for (int x = ground.left() + tileWidth; x < ground.right(); x += tileWidth)
        painter.fillRect(x, ground.top(), 1, ground.height(), QColor(0, 0, 0, 30));
    paintHollowShadow(painter, ground, 14, 0.5);
}

/// Plaited straw in rings: light enough for the seats' names in blue, dark enough for the player's in white.
QRgb matPixel(const QPointF& fromCentre) {
    constexpr double ringsAcross = 11, strandsAround = 120;
    const double x = fromCentre.x() / matRadii.width(), y = fromCentre.y() / matRadii.height();
    const double ring = std::hypot(x, y) * ringsAcross;
    // Every second ring is turned by half a strand.
    const double twist = std::atan2(y, x) * strandsAround / 2 + (int(ring) % 2) * M_PI / 2;
    const double plait = 1 + 0.035 * std::sin(twist) * std::sin(ring * M_PI) - 0.03 * std::cos(ring * 2 * M_PI);
    const double strands = density > 1 ? 0.022 * std::sin(ring * 10 * M_PI) : 0;
    const double light = 1 + strands - 0.07 * (x + y) - 0.10 * soft(0.75, 1, ring / ringsAcross);
    return lit(straw, plait * light);
}

QBrush plaitedMat(const QRect& area) {
    const QPointF middle(matRadii.width() - 0.5, matRadii.height() - 0.5);
    const QImage mat =
        shaded({QPoint(0, 0), area.size()}, [&](double x, double y) { return matPixel(QPointF(x, y) - middle); });
    QBrush brush(mat.convertToFormat(QImage::Format_RGB32));
    brush.setTransform(QTransform::fromTranslate(area.left(), area.top()).scale(1.0 / density, 1.0 / density));
    return brush;
}

void paintOval(QPainter& painter, const QPointF& moved, double inside) {
    painter.drawEllipse(matCentre + moved, matRadii.width() - inside, matRadii.height() - inside);
}

void paintMatShadow(QPainter& painter) {
    constexpr QPointF thrown{3, 4};
    constexpr int reach = 3;
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 24));
    for (int inside = -reach; inside <= reach; ++inside) paintOval(painter, thrown, inside);
}

/// Lacquer that gleams towards the lamp, over an area.
QLinearGradient gleam(const QRect& area) {
    QLinearGradient lacquer(area.topLeft(), area.bottomRight());
    lacquer.setColorAt(0.2, QColor::fromRgb(mix(lacquerRed, lacquerGloss, 0.35)));
    lacquer.setColorAt(0.8, QColor::fromRgb(lit(lacquerRed, 0.6)));
    return lacquer;
}

/// A rim of lacquer with a gilt line inside it.
void paintMatRim(QPainter& painter, const QRect& area) {
    const std::pair<double, QPen> lines[] = {
        {2, QPen(gleam(area), 4)}, {0.5, QColor::fromRgb(lacquerDeep)}, {4.5, QColor::fromRgb(gilt)}};
    painter.setBrush(Qt::NoBrush);
    for (const auto& [inside, pen] : lines) {
        painter.setPen(pen);
        paintOval(painter, {0, 0}, inside);
    }
}

void paintMat(QPainter& painter) {
    const QRect area((matCentre - QPointF(matRadii.width(), matRadii.height())).toPoint(), (matRadii * 2).toSize());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    paintMatShadow(painter);
    painter.setBrush(plaitedMat(area));
    paintOval(painter, {0, 0}, 1);
    paintMatRim(painter, area);
    painter.restore();
}

/// A narrow frame: a dark edge, lacquer and a gilt line round the felt.
void paintSmallTable(QPainter& painter) {
    constexpr int breadth = 3;
    constexpr QRect felt = smallTable.adjusted(breadth, breadth, -breadth, -breadth);
    lay(painter, felt.topLeft(), cloth(felt.size(), clothGreen));
    paintHollowShadow(painter, felt, 4, 0.4);
    const QBrush rings[breadth] = {QColor::fromRgb(lacquerDeep), gleam(smallTable), QColor::fromRgb(gilt)};
    for (int inside = 0; inside < breadth; ++inside)
        paintBorder(painter, smallTable.adjusted(inside, inside, -inside, -inside), rings[inside]);
}

void paintSeats(QPainter& painter) {
    paintMat(painter);
    paintShadow(painter, smallTable, 4, 0.4);
    paintSmallTable(painter);
}

void paintLabels(QPainter& painter) {
    const script::Ink ink{magentaBright, magenta, magentaDeep};
    for (const Label& label : labels) {
        const QRect band(QPoint(labelLeft, label.top), QPoint(labelRight, label.bottom));
        script::paintInBand(painter, script::flowing(label.words, 40), band, ink);
    }
}

}  // namespace

void paintTable(QPainter& painter) {
    lay(painter, {0, 0}, cloth(tableSize, clothGreen));
    paintShadow(painter, frameOuter, 16, 0.55);
    paintGround(painter);
    paintFrame(painter, frameOuter, ground);
    for (const platform::Place& tray : trays) paintTray(painter, rectOf(tray), trayDepth);
    paintTray(painter, scoreTray, scoreDepth);
    paintSeats(painter);
    paintLabels(painter);
}

void paintTableTop(QPainter& painter) {
    painter.translate(-tableTop.topLeft());
    paintSeats(painter);
}

}  // namespace tableArt

std::span<const Picture> tablePictures() {
    using namespace tableArt;
    static constexpr Picture pictures[] = {
        {"101", tableSize, paintTable},
        {"102", breakDownSize, paintBreakDown},
        {"103", chooseSeatSize, paintChooseSeat},
        {"104", hiScoreSize, paintHiScore},
        {"picTableTop", tableTopSize, paintTableTop},
        {"picHouse", {winds * houseSize.width(), scripts * houseSize.height()}, paintHouse},
        {"picHouseMask", houseSize, paintHouseMask},
        {"picSmallHouse", {winds * smallHouseSize.width(), scripts * smallHouseSize.height()}, paintSmallHouse},
        {"picSmallHouseMask", smallHouseSize, paintSmallHouseMask},
        {"picLightning", lightningSize, paintLightning},
        {"picLightningMask", lightningSize, paintLightningMask},
        {"ImageList1", {icons * iconSize, iconSize}, paintToolbarIcons},
    };
    return pictures;
}
