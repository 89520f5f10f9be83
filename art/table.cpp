#include <cmath>

#include "materials.h"
#include "pictures.h"
#include "script.h"
#include "tableArt.h"

namespace tableArt {

namespace {

using namespace materials;

constexpr QSize seen{795, 581};
constexpr QRect frameOuter{QPoint{21, 44}, QPoint{330, 550}};
constexpr QRect ground{QPoint{40, 63}, QPoint{309, 530}};
constexpr int columnWidth = 30;

constexpr QRect trays[] = {
    {474, 44, 30, 39},     // the next tile
    {352, 129, 240, 39},   // earned bonus tiles
    {352, 177, 420, 39},   // earned tiles
    {353, 436, 400, 140},  // the tiles to choose from
};

/// The red score stands out from a deeper tray.
constexpr QRect scorePlace{448, 237, 104, 30};
constexpr double trayDepth = 0.10;
constexpr double scoreDepth = 0.40;

constexpr QRect tableTop{592, 304, 64, 64};
constexpr QSizeF matRadii{120, 78};

struct Label {
    const char* words;
    int top;
    int bottom;
};

constexpr int labelLeft = 353;
constexpr Label labels[] = {
    {"Next Tile", 45, 68},             //
    {"Tiles In Possession", 99, 121},  //
    {"Score", 242, 264},               //
    {"Round", 323, 344},               //
    {"Select Tiles", 403, 426},        //
};

/// Every second column is a hair lighter, so that the eye finds the column that a tile falls in.
void paintGround(QPainter& painter) {
    painter.drawImage(ground.topLeft(), cloth(ground.size(), groundGreen));
    for (int x = ground.left() + columnWidth; x < ground.right(); x += 2 * columnWidth)
        painter.fillRect(x, ground.top(), columnWidth, ground.height(), QColor(130, 240, 180, 13));
    for (int x = ground.left() + columnWidth; x < ground.right(); x += columnWidth)
        painter.fillRect(x, ground.top(), 1, ground.height(), QColor(0, 0, 0, 30));
    paintHollowShadow(painter, ground, 14, 0.5);
}

/// Plaited straw in rings: light enough for the seats' names in blue, dark enough for the player's in white.
QRgb matPixel(const QPointF& fromCentre) {
    constexpr double ringsAcross = 11, strandsAround = 120;
    const double x = fromCentre.x() / matRadii.width(), y = fromCentre.y() / matRadii.height();
    const double ring = std::hypot(x, y) * ringsAcross;
    const double twist = std::atan2(y, x) * strandsAround / 2 + (int(ring) % 2) * M_PI / 2;
    const double plait = 1 + 0.035 * std::sin(twist) * std::sin(ring * M_PI) - 0.03 * std::cos(ring * 2 * M_PI);
    const double light = 1 - 0.07 * (x + y) - 0.10 * soft(0.75, 1, ring / ringsAcross);
    return lit(straw, plait * light);
}

QImage plaitedMat(const QRect& area) {
    QImage image(area.size(), QImage::Format_RGB32);
    const QPointF middle(matRadii.width() - 0.5, matRadii.height() - 0.5);
    everyPixel(image.rect(), [&](int x, int y) { image.setPixel(x, y, matPixel(QPointF(x, y) - middle)); });
    return image;
}

void paintRing(QPainter& painter, double inside, const QBrush& brush, double width) {
    painter.setPen(QPen(brush, width));
    painter.drawEllipse(QRectF(tableTop).center(), matRadii.width() - inside, matRadii.height() - inside);
}

void paintMat(QPainter& painter) {
    const QPoint corner(tableTop.center().x() + 1 - int(matRadii.width()),
                        tableTop.center().y() + 1 - int(matRadii.height()));
    const QRect area(corner, (matRadii * 2).toSize());
    QBrush straws(plaitedMat(area));
    straws.setTransform(QTransform::fromTranslate(area.left(), area.top()));
    QLinearGradient rim(area.topLeft(), area.bottomRight());
    rim.setColorAt(0.2, QColor::fromRgb(mix(lacquerRed, lacquerGloss, 0.35)));
    rim.setColorAt(0.8, QColor::fromRgb(lit(lacquerRed, 0.6)));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(3, 4);
    painter.setBrush(QColor(0, 0, 0, 24));
    for (int reach = 7; reach > 0; --reach) paintRing(painter, 4 - reach, Qt::transparent, 0);
    painter.translate(-3, -4);
    painter.setBrush(straws);
    paintRing(painter, 2, rim, 4);
    painter.setBrush(Qt::NoBrush);
    paintRing(painter, 0.5, QColor::fromRgb(lacquerDeep), 1);
    paintRing(painter, 4.5, QColor::fromRgb(gilt), 1);
    painter.restore();
}

void paintSeats(QPainter& painter) {
    paintMat(painter);
    paintShadow(painter, tableTop, 9, 0.5);
    painter.save();
    painter.translate(tableTop.topLeft());
    paintTableTop(painter);
    painter.restore();
}

void paintLabels(QPainter& painter) {
    const script::Ink ink{magentaBright, magenta, magentaDeep};
    for (const Label& label : labels) {
        const QRect band(labelLeft, label.top, seen.width() - labelLeft, label.bottom - label.top + 1);
        script::paintInBand(painter, script::flowing(label.words, 40), band, ink);
    }
}

}  // namespace

void paintTable(QPainter& painter) {
    painter.drawImage(0, 0, cloth({800, 600}, clothGreen));
    paintShadow(painter, frameOuter, 16, 0.55);
    paintGround(painter);
    paintFrame(painter, frameOuter, ground);
    for (const QRect& tray : trays) paintTray(painter, tray, trayDepth);
    paintTray(painter, scorePlace, scoreDepth);
    paintSeats(painter);
    paintLabels(painter);
}

}  // namespace tableArt

std::span<const Picture> tablePictures() {
    using namespace tableArt;
    static constexpr Picture pictures[] = {
        {"101", 800, 600, paintTable},
        {"102", 667, 329, paintBreakDown},
        {"103", 256, 256, paintChooseSeat},
        {"104", 500, 350, paintHiScore},
        {"picTableTop", 64, 64, paintTableTop},
        {"picHouse", 256, 132, paintHouse},
        {"picHouseMask", 64, 66, paintHouseMask},
        {"picSmallHouse", 64, 32, paintSmallHouse},
        {"picSmallHouseMask", 16, 16, paintSmallHouseMask},
        {"picLightning", 200, 233, paintLightning},
        {"picLightningMask", 200, 233, paintLightningMask},
        {"ImageList1", 224, 16, paintToolbarIcons},
    };
    return pictures;
}
