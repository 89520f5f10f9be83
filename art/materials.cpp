#include "materials.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace materials {

namespace {

enum class Side { top, left, right, bottom };

/// How much light a slope takes that looks outward from its side, and one that looks inward.
struct SideLight {
    double outward;
    double inward;
};

constexpr SideLight sideLights[] = {
    {1.45, 0.50},  // top
    {1.25, 0.60},  // left
    {0.62, 1.30},  // right
    {0.50, 1.55},  // bottom
};

/// The layers of a frame, counted in pixels outward from its inner edge; each is a pixel broad.
constexpr int edgeLine = 1;
constexpr int innerSlopeEnd = 4;
constexpr int giltLine = 5;
constexpr int giltShade = 6;
constexpr int outerSlope = 2;
constexpr int leastForInlay = 14;

/// A place on a frame: its side, its distance from the inner edge, the breadth there and the share of the way along.
struct FramePlace {
    Side side;
    double depth;
    int breadth;
    double along;
};

FramePlace framePlace(const QRect& outer, const QRect& inner, double x, double y) {
    const double depths[] = {inner.top() - y, inner.left() - x, x - inner.right(), y - inner.bottom()};
    const int breadths[] = {inner.top() - outer.top(), inner.left() - outer.left(), outer.right() - inner.right(),
                            outer.bottom() - inner.bottom()};
    const auto side = std::max_element(std::begin(depths), std::end(depths)) - std::begin(depths);
    const bool level = side == int(Side::top) || side == int(Side::bottom);
    const double along = level ? (x - outer.left()) / outer.width() : (y - outer.top()) / outer.height();
    return {Side(side), depths[side], breadths[side], along};
}

/// A line that is engraved in the lacquer, finer than the game's pixels: it lies between the middles of two.
constexpr double hairline = 8.4;
constexpr double hairBreadth = 0.5;

/// How much darker or brighter the engraved line and its rim make the lacquer.
double hairLight(double depth, const SideLight& light) {
    const double away = (depth - hairline) / hairBreadth;
    if (std::abs(away) >= 0.75) return 1;
    if (std::abs(away) < 0.5) return 0.45;
    return (away < 0) == (light.outward > 1) ? 1.35 : 1;
}

QRgb lacquerFace(const FramePlace& place, const SideLight& light) {
    const double across = (place.depth - giltShade) / (place.breadth - outerSlope - giltShade);
    const double curve = 0.72 + 0.42 * std::sin(across * 3.14);
    const double body = curve * (0.82 + 0.18 * light.outward);
    const double ridge = std::exp(-std::pow((across - 0.66) / 0.17, 2));
    const double sheen = 0.10 + 0.34 * std::exp(-std::pow((place.along - 0.24) / 0.22, 2));
    const QRgb lacquer = mix(lit(lacquerRed, body), lacquerGloss, ridge * sheen * light.outward);
    return lit(lacquer, hairLight(place.depth, light));
}

QRgb framePixel(const FramePlace& place) {
    const SideLight& light = sideLights[int(place.side)];
    const int layer = cellAt(place.depth, 1);
    if (layer <= edgeLine || layer >= place.breadth) return lacquerDeep;
    if (layer <= innerSlopeEnd) return lit(lacquerRed, light.inward * (1.1 - 0.12 * place.depth));
    if (layer == giltLine) {
        // The line is a bead: the half of it that faces the lamp is brighter.
        const double facing = (place.depth - giltLine) * (light.outward > 1 ? 1 : -1);
        return lit(mix(gilt, light.inward > 1 ? giltBright : giltDeep, 0.45), 1 + 0.7 * facing);
    }
    if (layer == giltShade) return mix(lacquerDeep, giltDeep, light.outward > 1 ? 0.75 : 0.25);
    if (layer > place.breadth - outerSlope) return lit(lacquerRed, light.outward);
    return lacquerFace(place, light);
}

/// A small inlay of gilt in the middle of a frame's corner.
void paintInlay(QPainter& painter, const QPoint& middle) {
    constexpr int radius = 4;
    const QRect square(middle.x() - radius, middle.y() - radius, 2 * radius + 1, 2 * radius + 1);
    lay(painter, square.topLeft(), shaded(square, [&](double x, double y) -> QRgb {
            const double dx = x - middle.x(), dy = y - middle.y();
            const int away = cellAt(std::abs(dx) + std::abs(dy), 1), fall = cellAt(dx + dy, 1);
            if (away > radius) return 0;
            const QRgb rim = fall < 0 ? giltBright : fall > 0 ? giltDeep : gilt;
            return away == radius ? lacquerDeep : away == 0 ? giltDeep : rim;
        }));
}

void paintInlays(QPainter& painter, const QRect& outer, const QRect& inner) {
    const auto between = [](int a, int b) { return (a + b) / 2; };
    for (const int x :
         {between(outer.left(), inner.left() - giltLine), between(outer.right(), inner.right() + giltLine)})
        for (const int y :
             {between(outer.top(), inner.top() - giltLine), between(outer.bottom(), inner.bottom() + giltLine)})
            paintInlay(painter, {x, y});
}

double distanceTo(const QRect& rect, double x, double y) {
    const double dx = std::max({rect.left() - x, x - rect.right(), 0.0});
    const double dy = std::max({rect.top() - y, y - rect.bottom(), 0.0});
    return std::hypot(dx, dy);
}

/// One thread lies over the other in turn; each thread has its own slight thickness.
double weave(double x, double y) {
    constexpr int breadth = 2;
    const int column = cellAt(x, breadth), row = cellAt(y, breadth);
    const bool over = ((column + row) & 1) != 0;
    const double across = ((over ? x : y) + 0.5) / breadth;
    const double crest = 0.020 * std::sin(2 * M_PI * (across - std::floor(across)));
    const double thread = (over ? grain(column, -1) : grain(-1, row)) - 0.5;
    return 1 + crest + 0.045 * thread + (over ? 0.012 : -0.012);
}

}  // namespace

double grain(int x, int y) {
    uint32_t h = uint32_t(x) * 0x9E3779B1u ^ (uint32_t(y) + 0x7F4A7C15u) * 0x85EBCA77u;
    h = (h ^ h >> 15) * 0x2C1B3C6Du;
    h = (h ^ h >> 12) * 0x297A2D39u;
    return double(h ^ h >> 15) / 4294967296.0;
}

QRgb mix(QRgb from, QRgb to, double t) {
    const auto channel = [t](int a, int b) { return std::clamp(int(std::lround(a + (b - a) * t)), 0, 255); };
    return qRgb(channel(qRed(from), qRed(to)), channel(qGreen(from), qGreen(to)), channel(qBlue(from), qBlue(to)));
}

QRgb lit(QRgb color, double strength) { return mix(qRgb(0, 0, 0), color, strength); }

double soft(double edge0, double edge1, double x) {
    const double t = std::clamp((x - edge0) / (edge1 - edge0), 0.0, 1.0);
    return t * t * (3 - 2 * t);
}

void dot(QPainter& painter, double x, double y, QRgb color) {
    const double side = 1.0 / density, back = 0.5 - side / 2;
    painter.fillRect(QRectF(x + back, y + back, side, side), QColor::fromRgb(color));
}

void paintBorder(QPainter& painter, const QRect& rect, const QBrush& brush) {
    painter.fillRect(rect.left(), rect.top(), rect.width(), 1, brush);
    painter.fillRect(rect.left(), rect.bottom(), rect.width(), 1, brush);
    painter.fillRect(rect.left(), rect.top(), 1, rect.height(), brush);
    painter.fillRect(rect.right(), rect.top(), 1, rect.height(), brush);
}

void lay(QPainter& painter, const QPoint& corner, const QImage& image) {
    const QPoint real = painter.transform().map(corner);
    painter.save();
    painter.resetTransform();
    painter.drawImage(real, image);
    painter.restore();
}

QRgb meanOf(const std::array<QRgb, 4>& colors) {
    int sums[4] = {};
    for (const QRgb color : colors) {
        sums[0] += qRed(color), sums[1] += qGreen(color), sums[2] += qBlue(color), sums[3] += qAlpha(color);
    }
    const auto mean = [](int sum) { return (sum + 2) / 4; };
    return qRgba(mean(sums[0]), mean(sums[1]), mean(sums[2]), mean(sums[3]));
}

QImage cloth(QSize size, QRgb color) {
    const double centreX = size.width() * 0.46, centreY = size.height() * 0.42;
    return shaded({QPoint(0, 0), size}, [&](double x, double y) {
        const double away = std::hypot((x - centreX) / size.width(), (y - centreY) / size.height());
        return lit(color, (1.06 - 0.36 * soft(0.1, 0.85, away)) * weave(x, y));
    });
}

void paintFrame(QPainter& painter, const QRect& outer, const QRect& inner) {
    lay(painter, outer.topLeft(), shaded(outer, [&](double x, double y) {
            return holds(inner, x, y) ? 0 : framePixel(framePlace(outer, inner, x, y));
        }));
    if (inner.left() - outer.left() >= leastForInlay) paintInlays(painter, outer, inner);
}

void paintShadow(QPainter& painter, const QRect& raised, int reach, double strength) {
    const QRect thrown = raised.translated(reach / 3, reach / 2);
    const QRect all = thrown.adjusted(-reach, -reach, reach, reach);
    lay(painter, all.topLeft(), shaded(all, [&](double x, double y) {
            const double dark = holds(raised, x, y) ? 0 : strength * (1 - soft(0, reach, distanceTo(thrown, x, y)));
            return qRgba(0, 0, 0, int(std::lround(255 * dark)));
        }));
}

void paintHollowShadow(QPainter& painter, const QRect& hollow, int reach, double strength) {
    lay(painter, hollow.topLeft(), shaded({QPoint(0, 0), hollow.size()}, [&](double x, double y) {
            const double open = soft(-1, reach, x) * soft(-1, reach * 1.4, y);
            return qRgba(0, 0, 0, int(std::lround(255 * strength * (1 - open))));
        }));
}

void paintTray(QPainter& painter, const QRect& rect, double darker) {
    const QRectF edge = QRectF(rect).adjusted(-1.5, -1.5, 1.5, 1.5);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient rim(edge.topLeft(), edge.bottomRight());
    rim.setColorAt(0, QColor(0, 0, 0, 80));
    rim.setColorAt(1, QColor(255, 255, 220, 34));
    painter.setPen(QPen(rim, 1));
    painter.setBrush(QColor(0, 0, 0, int(255 * darker)));
    painter.drawRoundedRect(edge, 3, 3);
    painter.restore();
}

}  // namespace materials
