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

constexpr QRect tableTop{592, 304, 64, 64};
constexpr QSizeF matRadii{114, 88};

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
        painter.fillRect(x, ground.top(), columnWidth, ground.height(), QColor(190, 255, 210, 12));
    for (int x = ground.left() + columnWidth; x < ground.right(); x += columnWidth)
        painter.fillRect(x, ground.top(), 1, ground.height(), QColor(0, 0, 0, 30));
    paintHollowShadow(painter, ground, 14, 0.5);
}

/// Plaited straw in rings: light enough for the seats' names in blue, dark enough for the player's in white.
QRgb matPixel(double x, double y, double ring) {
    const double plait = ((int(x) + int(y)) / 3 & 1) != 0 ? 1.025 : 0.975;
    const double rings = 1 + 0.02 * std::sin(ring * 66);
    const double light = 1.05 - 0.12 * (x / matRadii.width() + y / matRadii.height()) / 2;
    return lit(straw, plait * rings * light * (1 - 0.16 * soft(0.8, 1, ring)));
}

void paintMat(QPainter& painter) {
    const QPointF centre = QRectF(tableTop).center();
    const QRect area(int(centre.x() - matRadii.width()), int(centre.y() - matRadii.height()), int(2 * matRadii.width()),
                     int(2 * matRadii.height()));
    QImage image(area.size(), QImage::Format_RGB32);
    everyPixel(image.rect(), [&](int x, int y) {
        const double fromX = x - matRadii.width(), fromY = y - matRadii.height();
        image.setPixel(x, y, matPixel(fromX + 500, fromY + 500, std::hypot(fromX / 114, fromY / 88)));
    });
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    QBrush brush(image);
    brush.setTransform(QTransform::fromTranslate(area.left(), area.top()));
    painter.setPen(Qt::NoPen);
    for (int reach = 6; reach > 0; --reach) {
        painter.setBrush(QColor(0, 0, 0, 22));
        painter.drawEllipse(QPointF(centre.x() + 2, centre.y() + 3), matRadii.width() + reach - 1,
                            matRadii.height() + reach - 1);
    }
    painter.setBrush(brush);
    painter.setPen(QPen(QColor::fromRgb(lacquerRed), 3));
    painter.drawEllipse(centre, matRadii.width() - 1.5, matRadii.height() - 1.5);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor::fromRgb(gilt), 1));
    painter.drawEllipse(centre, matRadii.width() - 4, matRadii.height() - 4);
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
    for (const QRect& tray : trays) paintTray(painter, tray);
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
