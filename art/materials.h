#pragma once

#include <QImage>
#include <QPainter>
#include <array>
#include <cmath>

/// What everything on the table is made of. One lamp at the top left lights it all.
///
/// Places and sizes are counted in the game's pixels, whatever the density. A place inside a pixel is a fraction,
/// counted from the middle of the pixel at (0, 0): at density 1 all places that are painted are whole numbers.
namespace materials {

/// How many real pixels each of the game's pixels has each way, 1 to 4. It is set once, before anything is painted.
inline int density = 1;

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

/// The number of the cell that a place lies in, where each cell is so many of the game's pixels broad; cells may be
/// as narrow as one real pixel.
inline int cellAt(double place, double breadth) { return static_cast<int>(std::floor((place + 0.5) / breadth)); }

/// Whether a rectangle of whole pixels holds a place.
inline bool holds(const QRect& rect, double x, double y) { return rect.contains(cellAt(x, 1), cellAt(y, 1)); }

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

/// Paints a line one pixel broad along the inside of a rectangle's edge.
void paintBorder(QPainter& painter, const QRect& rect, const QBrush& brush);

/// Lays an image of real pixels with its corner at a whole pixel.
void lay(QPainter& painter, const QPoint& corner, const QImage& image);

/// Calls paint(x, y) at the middle of every real pixel of a rectangle, row by row.
template <typename Paint>
void everyPixel(const QRect& rect, Paint paint) {
    const auto middle = [](int start, int pixel) { return start + (pixel + 0.5) / density - 0.5; };
    for (int row = 0; row < rect.height() * density; ++row)
        for (int column = 0; column < rect.width() * density; ++column)
            paint(middle(rect.left(), column), middle(rect.top(), row));
}

/// Paints one real pixel.
void dot(QPainter& painter, double x, double y, QRgb color);

/// The mean of colours with their shares of opacity already in them.
QRgb meanOf(const std::array<QRgb, 4>& colors);

/// The colour of a real pixel. Where they are fine, edges that run aslant are smoothed.
template <typename Color>
QRgb smooth(double x, double y, Color color) {
    if (density == 1) return color(x, y);
    const double aside = 0.25 / density;
    return meanOf({color(x - aside, y - aside), color(x + aside, y - aside), color(x - aside, y + aside),
                   color(x + aside, y + aside)});
}

/// An image of a rectangle, with color(x, y) at every place; shares of opacity are already in the colours.
template <typename Color>
QImage shaded(const QRect& rect, Color color) {
    QImage image(rect.size() * density, QImage::Format_ARGB32_Premultiplied);
    auto* pixel = reinterpret_cast<QRgb*>(image.bits());
    everyPixel(rect, [&](double x, double y) { *pixel++ = smooth(x, y, color); });
    return image;
}

/// Paints the mask of what covers a picture of the given size: black where covers(x, y) holds, white elsewhere.
template <typename Covers>
void paintMask(QPainter& painter, QSize size, Covers covers) {
    everyPixel({QPoint(0, 0), size},
               [&](double x, double y) { dot(painter, x, y, covers(x, y) ? qRgb(0, 0, 0) : qRgb(255, 255, 255)); });
}

}  // namespace materials
