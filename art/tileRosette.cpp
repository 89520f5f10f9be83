#include "tileRosette.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>

#include "materials.h"
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

}  // namespace

void paintRosette(QPainter& painter, QPoint centre, std::span<const Ring> rings) {
    const int reach = static_cast<int>(std::ceil(rings.front().outer));
    for (int y = -reach; y <= reach; ++y)
        for (int x = -reach; x <= reach; ++x)
            if (const QRgb colour = paletteColour(mostOf(rings, x, y)))
                materials::dot(painter, centre.x() + x, centre.y() + y, colour);
}
