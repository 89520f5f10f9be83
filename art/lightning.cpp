#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "materials.h"
#include "tableArt.h"

namespace tableArt {

namespace {

using namespace materials;

constexpr QRect flash = rectOf(lightningPlace);

/// A straight piece of the bolt; breadth is 1 for the trunk.
struct Piece {
    QPointF from;
    QPointF to;
    double breadth;
};

/// A fork of the bolt: where it starts and ends, how broad it is and how often it is broken in two.
struct Fork {
    QPointF from;
    QPointF to;
    double breadth;
    int breaks;
};

constexpr Fork forks[] = {
    {{122, 6}, {104, 78}, 1.00, 4},    {{104, 78}, {126, 120}, 0.95, 4}, {{126, 120}, {96, 222}, 0.80, 5},
    {{104, 78}, {48, 128}, 0.50, 4},   {{48, 128}, {30, 178}, 0.30, 3},  {{126, 120}, {168, 160}, 0.50, 4},
    {{168, 160}, {174, 208}, 0.28, 3}, {{118, 34}, {160, 86}, 0.34, 4},  {{48, 128}, {66, 160}, 0.22, 3},
    {{114, 166}, {70, 204}, 0.30, 4},  {{160, 86}, {178, 128}, 0.20, 3},
};

/// Breaks a piece in the middle, a little to the side, again and again.
void breakUp(std::vector<Piece>& bolt, const Piece& piece, int breaks, int seed) {
    if (breaks == 0) {
        bolt.push_back(piece);
        return;
    }
    const QPointF along = piece.to - piece.from;
    const double aside = 0.34 * (grain(seed, breaks) - 0.5);
    const QPointF middle = (piece.from + piece.to) / 2 + QPointF(-along.y(), along.x()) * aside;
    breakUp(bolt, {piece.from, middle, piece.breadth}, breaks - 1, 2 * seed);
    breakUp(bolt, {middle, piece.to, piece.breadth}, breaks - 1, 2 * seed + 1);
}

/// The end of a piece that lies nearest to a point, so that a branch grows out of the bolt; the point itself at first.
QPointF nearestJoint(const std::vector<Piece>& bolt, const QPointF& point) {
    const auto away = [&](const QPointF& joint) { return std::hypot(joint.x() - point.x(), joint.y() - point.y()); };
    const auto nearest = std::min_element(
        bolt.begin(), bolt.end(), [&](const Piece& one, const Piece& other) { return away(one.to) < away(other.to); });
    return nearest == bolt.end() ? point : nearest->to;
}

std::vector<Piece> makeBolt() {
    std::vector<Piece> bolt;
    int seed = 71;
    for (const Fork& fork : forks)
        breakUp(bolt, {nearestJoint(bolt, fork.from), fork.to, fork.breadth}, fork.breaks, seed += 64);
    return bolt;
}

double distanceTo(const Piece& piece, const QPointF& point) {
    const QPointF along = piece.to - piece.from, away = point - piece.from;
    const double length = QPointF::dotProduct(along, along);
    const double share = length > 0 ? std::clamp(QPointF::dotProduct(along, away) / length, 0.0, 1.0) : 0;
    const QPointF rest = away - along * share;
    return std::hypot(rest.x(), rest.y());
}

/// How bright a place is: the white core, the light round it and the faint light in the air, each 0 to 1.
struct Brightness {
    double core = 0;
    double light = 0;
    double air = 0;
};

Brightness brightnessAt(const std::vector<Piece>& bolt, const QPointF& point) {
    Brightness sum;
    for (const Piece& piece : bolt) {
        const double away = distanceTo(piece, point);
        sum.core = std::max(sum.core, std::clamp(0.55 + 1.3 * piece.breadth - away, 0.0, 1.0));
        sum.light = std::max(sum.light, piece.breadth * std::exp(-away / (2.0 + 3.5 * piece.breadth)));
        sum.air = std::max(sum.air, piece.breadth * std::exp(-std::pow(away / 27, 2)));
    }
    return sum;
}

/// Fades to nothing at all four edges.
double fade(double x, double y) {
    const double edge = std::min({x, flash.width() - 1 - x, y, flash.height() - 1 - y});
    return soft(0, 22, edge);
}

/// The colour that the place is to have on a black table, channels 0 to 255.
std::array<double, 3> glowAt(const std::vector<Piece>& bolt, double x, double y) {
    const Brightness bright = brightnessAt(bolt, QPointF(x + 0.5, y + 0.5));
    // What the cloth throws back of the light in the air is green.
    constexpr double air[] = {5, 34, 7}, light[] = {120, 150, 255};
    std::array<double, 3> glow{};
    for (int channel = 0; channel < 3; ++channel) {
        const double round = air[channel] * bright.air + light[channel] * bright.light;
        glow[channel] = fade(x, y) * std::min(255.0, round + (255 - round) * bright.core);
    }
    return glow;
}

/// Adding by bits swallows what the table has already: the value whose bits bring the table nearest to the sum.
int nearestBits(int table, double wanted, double glow) {
    int best = 0;
    double least = 1e9;
    for (int value = 0; value < 256; ++value) {
        const double miss = std::abs((table | value) - wanted) + 0.02 * std::abs(value - glow);
        if (miss < least) least = miss, best = value;
    }
    return best;
}

/// What was missed at a place is made up for at the places right of it and below it.
class Spread {
  public:
    explicit Spread(int width) : here(width + 2), below(width + 2) {}
    double at(int x) const { return here[x + 1]; }
    void add(int x, double miss) {
        here[x + 2] += miss * 7 / 16;
        below[x] += miss * 3 / 16;
        below[x + 1] += miss * 5 / 16;
        below[x + 2] += miss / 16;
    }
    void nextRow() {
        here.swap(below);
        std::fill(below.begin(), below.end(), 0.0);
    }

  private:
    std::vector<double> here;
    std::vector<double> below;
};

QImage tableUnderFlash() {
    QImage table(flash.size() * density, QImage::Format_RGB888);
    QPainter painter(&table);
    painter.scale(density, density);
    painter.translate(-flash.topLeft());
    paintTable(painter);
    return table;
}

QImage makeLightning() {
    const QImage table = tableUnderFlash();
    const std::vector<Piece> bolt = makeBolt();
    QImage image(table.size(), QImage::Format_RGB888);
    std::array<Spread, 3> spreads{Spread(image.width()), Spread(image.width()), Spread(image.width())};
    const auto place = [](int pixel) { return (pixel + 0.5) / density - 0.5; };
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const std::array<double, 3> glow = glowAt(bolt, place(x), place(y));
            for (int channel = 0; channel < 3; ++channel) {
                const int under = table.constScanLine(y)[3 * x + channel];
                const double clear = under + glow[channel] * (255 - under) / 255;
                const int value =
                    glow[channel] < 1 ? 0 : nearestBits(under, clear + spreads[channel].at(x), glow[channel]);
                spreads[channel].add(x, std::clamp(clear + spreads[channel].at(x) - (under | value), -40.0, 40.0));
                image.scanLine(y)[3 * x + channel] = uchar(value);
            }
        }
        for (Spread& spread : spreads) spread.nextRow();
    }
    return image;
}

const QImage& lightning() {
    static const QImage image = makeLightning();
    return image;
}

}  // namespace

void paintLightning(QPainter& painter) { lay(painter, {0, 0}, lightning()); }

void paintLightningMask(QPainter& painter) {
    QImage mask = lightning();
    mask.invertPixels();
    lay(painter, {0, 0}, mask);
}

}  // namespace tableArt
