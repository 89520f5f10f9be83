#pragma once

#include <QImage>
#include <QPainter>

/// What everything on the table is made of. One lamp at the top left lights it all.
namespace materials {

/// The colours of the materials in plain light.
inline constexpr QRgb clothGreen = qRgb(27, 92, 63);
inline constexpr QRgb groundGreen = qRgb(15, 58, 43);
inline constexpr QRgb lacquerRed = qRgb(126, 20, 24);
inline constexpr QRgb lacquerGloss = qRgb(226, 92, 74);
inline constexpr QRgb lacquerDeep = qRgb(44, 6, 12);
inline constexpr QRgb giltBright = qRgb(246, 214, 132);
inline constexpr QRgb gilt = qRgb(206, 158, 70);
inline constexpr QRgb giltDeep = qRgb(122, 80, 26);
inline constexpr QRgb ivory = qRgb(247, 240, 219);
inline constexpr QRgb straw = qRgb(168, 162, 124);
inline constexpr QRgb magentaBright = qRgb(252, 82, 238);
inline constexpr QRgb magenta = qRgb(214, 40, 198);
inline constexpr QRgb magentaDeep = qRgb(44, 6, 40);

/// A hash of a place, 0 to 1, the same at every making.
double grain(int x, int y);

/// The colour at share t (0 to 1) of the way from one colour to another.
QRgb mix(QRgb from, QRgb to, double t);

/// The colour under light of the given strength: 1 leaves it, 0 is black; channels stop at 255.
QRgb lit(QRgb color, double strength);

/// 0 below the first edge, 1 above the second, and a soft curve between them.
double soft(double edge0, double edge1, double x);

/// A piece of woven cloth, lit in the middle and falling off softly towards its corners.
QImage cloth(QSize size, QRgb color);

/// Paints a frame of lacquer with a gilt line between two rectangles; its inner edge slopes down to the ground.
void paintFrame(QPainter& painter, const QRect& outer, const QRect& inner);

/// Paints the soft shadow that a raised rectangle throws to the lower right; the rectangle itself is left alone.
void paintShadow(QPainter& painter, const QRect& raised, int reach, double strength);

/// Paints the soft shadow that the edge of a hollow throws on its own ground from the top and the left.
void paintHollowShadow(QPainter& painter, const QRect& hollow, int reach, double strength);

/// Paints a shallow tray in the cloth round a rectangle, darker than the cloth by the given share of black.
void paintTray(QPainter& painter, const QRect& rect, double darker);

/// Calls paint(x, y) at every pixel of a rectangle, row by row.
template <typename Paint>
void everyPixel(const QRect& rect, Paint paint) {
    for (int y = rect.top(); y <= rect.bottom(); ++y)
        for (int x = rect.left(); x <= rect.right(); ++x) paint(x, y);
}

/// Paints one pixel.
void dot(QPainter& painter, int x, int y, QRgb color);

/// Paints the mask of what covers a picture of the given size: black where covers(x, y) holds, white elsewhere.
template <typename Covers>
void paintMask(QPainter& painter, QSize size, Covers covers) {
    everyPixel({QPoint(0, 0), size},
               [&](int x, int y) { dot(painter, x, y, covers(x, y) ? qRgb(0, 0, 0) : qRgb(255, 255, 255)); });
}

}  // namespace materials
