#include "tileRosette.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>

#include "materials.h"
#include "outline.h"
#include "tileSprites.h"

namespace {

constexpr int fineness = 6;

char letterAt(std::span<const Ring> rings, double dx, double dy) {
    const double radius = std::hypot(dx, dy);
    const double turn = std::atan2(dx, -dy);
    char letter = '.';
    for (const Ring& ring : rings)
        if (radius < ring.outer) {
            const bool petal = std::cos(ring.petals * turn) > std::cos(std::numbers::pi * ring.cover);
            letter = petal ? ring.petal : ring.between;
        }
    return letter;
}

/// The letter that covers most of a pixel, so that no pixel is a blur of two.
char mostOf(std::span<const Ring> rings, int x, int y) {
    std::map<char, int> shares;
    for (int row = 0; row < fineness; ++row)
        for (int column = 0; column < fineness; ++column)
            ++shares[letterAt(rings, x + (column + 0.5) / fineness - 0.5, y + (row + 0.5) / fineness - 0.5)];
    return std::ranges::max_element(shares, {}, [](const auto& share) { return share.second; })->first;
}

/// The petal that points upwards: narrow at the inner radius and rounded at the outer one.
QPainterPath petalOf(const Ring& ring, double inner) {
    const double half = std::numbers::pi / ring.petals * ring.cover;
    const auto at = [&](double radius, double turn) {
        return QPointF(radius * std::sin(turn), -radius * std::cos(turn));
    };
    const double shoulder = inner + 0.7 * (ring.outer - inner);
    QPainterPath petal(at(inner, -half * 0.7));
    petal.lineTo(at(shoulder, -half));
    petal.cubicTo(at(ring.outer, -half), at(ring.outer, half), at(shoulder, half));
    petal.lineTo(at(inner, half * 0.7));
    petal.closeSubpath();
    return petal;
}

void engraveIn(QPainter& painter, const QPainterPath& path, char letter, double rimLight) {
    const QRgb colour = paletteColour(letter);
    if (letter == 'w') return painter.fillPath(path, QColor::fromRgb(colour));
    outline::engrave(painter, path, colour, rimLight);
}

}  // namespace

void paintFineRosette(QPainter& painter, QPointF centre, std::span<const Ring> rings, std::string_view from,
                      std::string_view to, double rimLight) {
    const auto painted = [&](char letter) {
        return from.find(letter) != std::string_view::npos ? to[from.find(letter)] : letter;
    };
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    for (size_t i = 0; i < rings.size(); ++i) {
        const Ring& ring = rings[i];
        if (ring.between != '.') engraveIn(painter, outline::disc(centre, ring.outer), painted(ring.between), rimLight);
        if (ring.petals == 0) continue;
        const QPainterPath petal = petalOf(ring, i + 1 < rings.size() ? rings[i + 1].outer : 0);
        for (int turn = 0; turn < ring.petals; ++turn) {
            const QTransform place =
                QTransform::fromTranslate(centre.x(), centre.y()).rotate(turn * 360.0 / ring.petals);
            engraveIn(painter, place.map(petal), painted(ring.petal), rimLight);
        }
    }
    painter.restore();
}

void paintRosette(QPainter& painter, QPoint centre, std::span<const Ring> rings) {
    if (materials::density > 1) return paintFineRosette(painter, QPointF(centre) + QPointF(0.5, 0.5), rings);
    const int reach = static_cast<int>(std::ceil(rings.front().outer));
    for (int y = -reach; y <= reach; ++y)
        for (int x = -reach; x <= reach; ++x)
            if (const QRgb colour = paletteColour(mostOf(rings, x, y)))
                materials::dot(painter, centre.x() + x, centre.y() + y, colour);
}
