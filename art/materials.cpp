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

/// The layers of a frame, counted in pixels outward from its inner edge.
constexpr int edgeLine = 1;
constexpr int innerSlopeEnd = 4;
constexpr int giltLine = 5;
constexpr int giltShade = 6;
constexpr int outerSlope = 2;
constexpr int leastForInlay = 14;

/// A place on a frame: its side, its distance from the inner edge, the breadth there and the share of the way along.
struct FramePlace {
    Side side;
    int depth;
    int breadth;
    double along;
};

FramePlace framePlace(const QRect& outer, const QRect& inner, int x, int y) {
    const int depths[] = {inner.top() - y, inner.left() - x, x - inner.right(), y - inner.bottom()};
    const int breadths[] = {inner.top() - outer.top(), inner.left() - outer.left(), outer.right() - inner.right(),
                            outer.bottom() - inner.bottom()};
    const auto side = std::max_element(std::begin(depths), std::end(depths)) - std::begin(depths);
    const bool level = side == int(Side::top) || side == int(Side::bottom);
    const double along = level ? double(x - outer.left()) / outer.width() : double(y - outer.top()) / outer.height();
    return {Side(side), depths[side], breadths[side], along};
}

QRgb lacquerFace(const FramePlace& place, const SideLight& light) {
    const double across = double(place.depth - giltShade) / (place.breadth - outerSlope - giltShade);
    const double curve = 0.72 + 0.42 * std::sin(across * 3.14);
    const double body = curve * (0.82 + 0.18 * light.outward);
    const double ridge = std::exp(-std::pow((across - 0.66) / 0.17, 2));
    const double sheen = 0.10 + 0.34 * std::exp(-std::pow((place.along - 0.24) / 0.22, 2));
    return mix(lit(lacquerRed, body), lacquerGloss, ridge * sheen * light.outward);
}

QRgb framePixel(const FramePlace& place) {
    const SideLight& light = sideLights[int(place.side)];
    if (place.depth <= edgeLine || place.depth >= place.breadth) return lacquerDeep;
    if (place.depth <= innerSlopeEnd) return lit(lacquerRed, light.inward * (1.1 - 0.12 * place.depth));
    if (place.depth == giltLine) return mix(gilt, light.inward > 1 ? giltBright : giltDeep, 0.45);
    if (place.depth == giltShade) return mix(lacquerDeep, giltDeep, light.outward > 1 ? 0.75 : 0.25);
    if (place.depth > place.breadth - outerSlope) return lit(lacquerRed, light.outward);
    return lacquerFace(place, light);
}

/// A small inlay of gilt in the middle of a frame's corner.
void paintInlay(QPainter& painter, const QPoint& middle) {
    constexpr int radius = 4;
    everyPixel({middle.x() - radius, middle.y() - radius, 2 * radius + 1, 2 * radius + 1}, [&](int x, int y) {
        const int dx = x - middle.x(), dy = y - middle.y(), away = std::abs(dx) + std::abs(dy);
        if (away > radius) return;
        const QRgb rim = dx + dy < 0 ? giltBright : dx + dy > 0 ? giltDeep : gilt;
        dot(painter, x, y, away == radius ? lacquerDeep : away == 0 ? giltDeep : rim);
    });
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
double weave(int x, int y) {
    const bool over = ((x / 2 + y / 2) & 1) != 0;
    const double crest = (over ? x : y) % 2 == 0 ? 0.020 : -0.020;
    const double thread = (over ? grain(x / 2, -1) : grain(-1, y / 2)) - 0.5;
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

void dot(QPainter& painter, int x, int y, QRgb color) { painter.fillRect(x, y, 1, 1, QColor::fromRgb(color)); }

QImage cloth(QSize size, QRgb color) {
    QImage image(size, QImage::Format_RGB32);
    const double centreX = size.width() * 0.46, centreY = size.height() * 0.42;
    everyPixel(image.rect(), [&](int x, int y) {
        const double away = std::hypot((x - centreX) / size.width(), (y - centreY) / size.height());
        image.setPixel(x, y, lit(color, (1.06 - 0.36 * soft(0.1, 0.85, away)) * weave(x, y)));
    });
    return image;
}

void paintFrame(QPainter& painter, const QRect& outer, const QRect& inner) {
    QImage image(outer.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    everyPixel(outer, [&](int x, int y) {
        if (inner.contains(x, y)) return;
        image.setPixel(QPoint(x, y) - outer.topLeft(), framePixel(framePlace(outer, inner, x, y)));
    });
    painter.drawImage(outer.topLeft(), image);
    if (inner.left() - outer.left() >= leastForInlay) paintInlays(painter, outer, inner);
}

void paintShadow(QPainter& painter, const QRect& raised, int reach, double strength) {
    const QRect thrown = raised.translated(reach / 3, reach / 2);
    const QRect all = thrown.adjusted(-reach, -reach, reach, reach);
    QImage image(all.size(), QImage::Format_ARGB32_Premultiplied);
    everyPixel(all, [&](int x, int y) {
        const double dark = raised.contains(x, y) ? 0 : strength * (1 - soft(0, reach, distanceTo(thrown, x, y)));
        image.setPixel(QPoint(x, y) - all.topLeft(), qRgba(0, 0, 0, int(std::lround(255 * dark))));
    });
    painter.drawImage(all.topLeft(), image);
}

void paintHollowShadow(QPainter& painter, const QRect& hollow, int reach, double strength) {
    QImage image(hollow.size(), QImage::Format_ARGB32_Premultiplied);
    everyPixel(image.rect(), [&](int x, int y) {
        const double open = soft(-1, reach, x) * soft(-1, reach * 1.4, y);
        image.setPixel(x, y, qRgba(0, 0, 0, int(std::lround(255 * strength * (1 - open)))));
    });
    painter.drawImage(hollow.topLeft(), image);
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
