#include "tilePass.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "materials.h"
#include "script.h"

namespace {

/// How far the outline stands back from the side, by line from the top or bottom edge.
constexpr std::array cornerCut = {5, 3, 2, 1, 1};

/// The layers of the rim from the outline inward: a dark edge, a bevel of gilt, a groove.
constexpr std::array<QRgb, 4> rimLit = {materials::lacquerDeep, materials::giltBright, materials::gilt,
                                        materials::lacquerDeep};
constexpr std::array<QRgb, 4> rimShaded = {materials::lacquerDeep, materials::gilt, materials::giltDeep,
                                           materials::lacquerDeep};

constexpr QRgb woodDark = 0xFF3A1612;
constexpr QRgb woodLight = 0xFF94382A;

constexpr QRect wordBand(18, 7, 56, 25);
constexpr script::Ink wordInk = {materials::giltBright, materials::gilt, materials::lacquerDeep};

int cutOf(int y) {
    const int line = std::min(y, passHeight - 1 - y);
    return line < static_cast<int>(cornerCut.size()) ? cornerCut[line] : 0;
}

bool covers(int x, int y) { return y >= 0 && y < passHeight && x >= cutOf(y) && x < passWidth - cutOf(y); }

/// How many pixels lie between this one and the outline, at most the breadth of the rim.
int depthOf(int x, int y) {
    int depth = 0;
    const auto inside = [&](int reach) {
        return covers(x - reach, y) && covers(x + reach, y) && covers(x, y - reach) && covers(x, y + reach);
    };
    while (depth < static_cast<int>(rimLit.size()) && inside(depth + 1)) ++depth;
    return depth;
}

/// Lacquered wood: long wavy grain under a sheen that falls from the top left.
QRgb woodColour(int x, int y) {
    const double wave = std::sin(y * 1.3 + 1.6 * std::sin(x * 0.07) + 0.7 * std::sin(x * 0.19 + y * 0.2));
    const double fibre = materials::grain(x / 7, y) - 0.5;
    const double sheen = 0.62 - 0.5 * y / passHeight - 0.18 * x / passWidth;
    return materials::mix(woodDark, woodLight, std::clamp(sheen + 0.14 * wave + 0.16 * fibre, 0.0, 1.0));
}

QRgb passColour(int x, int y) {
    const int depth = depthOf(x, y);
    if (depth >= static_cast<int>(rimLit.size())) return woodColour(x, y);
    const bool lit = std::min(x, y) < std::min(passWidth - x, passHeight - y);
    return lit ? rimLit[depth] : rimShaded[depth];
}

}  // namespace

void paintPass(QPainter& painter) {
    materials::everyPixel(QRect(0, 0, passWidth, passHeight), [&](int x, int y) {
        if (covers(x, y)) materials::dot(painter, x, y, passColour(x, y));
    });
    script::paintInBand(painter, script::flowing("Pass", 26), wordBand, wordInk);
}

void paintPassMask(QPainter& painter) { materials::paintMask(painter, {passWidth, passHeight}, covers); }
