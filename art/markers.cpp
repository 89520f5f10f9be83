#include <algorithm>
#include <cmath>

#include "materials.h"
#include "script.h"
#include "tableArt.h"

namespace tableArt {

namespace {

using namespace materials;

constexpr char32_t windCharacters[] = U"東南西北";
constexpr char windLetters[] = "ESWN";

/// How far inside the large diamond a pixel lies, in pixels along a row or column; negative outside.
double largeInside(double x, double y) {
    const double dx = std::abs(x + 0.5 - houseSize.width() / 2.0), dy = std::abs(y + 0.5 - houseSize.height() / 2.0);
    return (1 - dx / (houseSize.width() / 2.0) - dy / (houseSize.height() / 2.0)) * houseSize.width() / 2.0;
}

/// The light that the slope of a diamond's rim takes: the upper left one faces the lamp.
double rimLight(double dx, double dy) {
    if (dy < 0) return dx < 0 ? 1.75 : 1.15;
    return dx < 0 ? 0.85 : 0.5;
}

QRgb largePixel(double x, double y) {
    const double inside = largeInside(x, y);
    const double dx = x + 0.5 - houseSize.width() / 2.0, dy = y + 0.5 - houseSize.height() / 2.0;
    if (inside < 1.2) return lit(lacquerDeep, 1.1);
    if (inside < 4) return lit(lacquerRed, rimLight(dx, dy));
    if (inside < 5.2) return dy + dx < 0 ? giltBright : gilt;
    if (inside < 6.4) return dy < 0 ? lacquerDeep : lit(lacquerRed, 0.7);
    const double glow = std::exp(-(std::pow((dx + 9) / 17, 2) + std::pow((dy + 10) / 15, 2)));
    return mix(lit(lacquerRed, 0.92), lacquerGloss, 0.42 * glow);
}

void paintLargeDiamond(QPainter& painter) {
    everyPixel({QPoint(0, 0), houseSize}, [&](double x, double y) {
        if (largeInside(x, y) >= 0) dot(painter, x, y, smooth(x, y, largePixel));
    });
}

QPainterPath signOf(int wind, bool chinese) {
    constexpr double size = 40;
    return chinese ? script::brushed(QString::fromUcs4(&windCharacters[wind], 1), size)
                   : script::flowing(QString(QChar(windLetters[wind])), size);
}

/// A wind's sign in the middle of a rectangle, as large as the diamond has room for.
QPainterPath largeSign(int wind, bool chinese, const QRectF& cell) {
    constexpr double chineseRoom = 59, letterRoom = 53, brushGrowth = 0.35;
    const QPainterPath path = signOf(wind, chinese);
    const QRectF bounds = path.boundingRect();
    const double scale = (chinese ? chineseRoom : letterRoom) / (bounds.width() + bounds.height());
    QTransform fit = QTransform::fromTranslate(cell.center().x(), cell.center().y());
    fit.scale(scale, scale);
    fit.translate(-bounds.center().x(), -bounds.center().y());
    return chinese ? script::grown(fit.map(path), brushGrowth) : fit.map(path);
}

constexpr int signSize = 9;
constexpr QRect signPlace{3, 3, signSize, signSize};

/// The signs of the small markers, drawn pixel by pixel: Chinese, then English.
constexpr const char* smallSigns[scripts][winds][signSize] = {
    {{"....#....", "#########", "....#....", ".#######.", ".#..#..#.", ".#######.", "...###...", ".##.#.##.",
      "#...#...#"},
     {"....#....", "#########", "....#....", "#########", "#.#...#.#", "#.#####.#", "#...#...#", "#.#####.#",
      "#...#...#"},
     {".#######.", "...#.#...", "...#.#...", "#########", "#..#.#..#", "#..#.#..#", "#.##.##.#", "#.......#",
      "#########"},
     {"...#.#...", "...#.#...", "...#.#..#", "####.###.", "...#.#...", "...#.#...", ".###.#...", "##.#.#..#",
      "...#.####"}},
    {{".#######.", ".##...##.", ".##......", ".##..#...", ".#####...", ".##..#...", ".##......", ".##...##.",
      ".#######."},
     {"..#####..", ".##...##.", ".##......", ".####....", "..#####..", "....####.", "......##.", ".##...##.",
      "..#####.."},
     {"##.....##", "##.....##", "##..#..##", "##..#..##", "##.###.##", "##.#.#.##", ".###.###.", ".##...##.",
      ".#.....#."},
     {"###...###", ".##....#.", ".###...#.", ".####..#.", ".#.###.#.", ".#..####.", ".#...###.", ".#....##.",
      "###...##."}},
};

/// A diamond with its points cut off, so that a sign of nine pixels finds room in sixteen.
double smallInside(double x, double y) {
    const double middle = (smallHouseSize.width() - 1) / 2.0;
    return 9 - std::abs(x - middle) - std::abs(y - middle);
}

/// Where smallInside is still on the diamond: half a pixel beyond the middles of its outermost ones.
constexpr double smallEdge = -0.5;

QRgb smallPixel(double x, double y) {
    constexpr int last = smallHouseSize.width() - 1;
    const bool facesLamp = x + y < last;
    const double nearest = std::min({smallInside(x, y), x, y, last - x, last - y});
    const bool rim = nearest < smallEdge + 1;
    if (rim) return facesLamp ? gilt : giltDeep;
    return lit(lacquerRed, facesLamp ? 1.0 : 0.86);
}

void paintSmallSign(QPainter& painter, int wind, bool chinese) {
    const auto& sign = smallSigns[chinese ? 0 : 1][wind];
    for (int y = 0; y < signSize; ++y)
        for (int x = 0; x < signSize; ++x)
            if (sign[y][x] == '#') dot(painter, signPlace.left() + x, signPlace.top() + y, ivory);
}

void paintFineSmallSign(QPainter& painter, int wind, bool chinese) {
    constexpr double growth = 0.12, room = 15.8;
    const QPainterPath path = signOf(wind, chinese);
    const QRectF bounds = path.boundingRect();
    const double scale = room / (bounds.width() + bounds.height());
    const QPointF middle = QRectF(signPlace).center();
    QTransform fit = QTransform::fromTranslate(middle.x(), middle.y());
    fit.scale(scale, scale);
    fit.translate(-bounds.center().x(), -bounds.center().y());
    script::paint(painter, script::grown(fit.map(path), growth), {ivory, ivory, lacquerDeep}, 0.4);
}

}  // namespace

void paintHouse(QPainter& painter) {
    for (int cell = 0; cell < scripts * winds; ++cell) {
        painter.save();
        painter.translate(cell % winds * houseSize.width(), cell / winds * houseSize.height());
        paintLargeDiamond(painter);
        const QPainterPath sign = largeSign(cell % winds, cell < winds, QRect(QPoint(0, 0), houseSize));
        script::paint(painter, sign, {ivory, giltBright, lacquerDeep}, 1.2);
        painter.restore();
    }
}

void paintHouseMask(QPainter& painter) {
    paintMask(painter, houseSize, [](double x, double y) { return largeInside(x, y) >= 0; });
}

void paintSmallHouse(QPainter& painter) {
    for (int cell = 0; cell < scripts * winds; ++cell) {
        painter.save();
        painter.translate(cell % winds * smallHouseSize.width(), cell / winds * smallHouseSize.height());
        everyPixel({QPoint(0, 0), smallHouseSize}, [&](double x, double y) {
            if (smallInside(x, y) >= smallEdge) dot(painter, x, y, smooth(x, y, smallPixel));
        });
        (density > 1 ? paintFineSmallSign : paintSmallSign)(painter, cell % winds, cell < winds);
        painter.restore();
    }
}

void paintSmallHouseMask(QPainter& painter) {
    paintMask(painter, smallHouseSize, [](double x, double y) { return smallInside(x, y) >= smallEdge; });
}

}  // namespace tableArt
