#include "tilePass.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "materials.h"
#include "script.h"

namespace {

constexpr double cornerRound = 8;

/// The layers of the rim from the outline inward: a dark edge, a bevel of gilt, a groove.
constexpr std::array<QRgb, 4> rimLit = {materials::lacquerDeep, materials::giltBright, materials::gilt,
                                        materials::lacquerDeep};
constexpr std::array<QRgb, 4> rimShaded = {materials::lacquerDeep, materials::gilt, materials::giltDeep,
                                           materials::lacquerDeep};

constexpr QRgb woodDark = 0xFF3A1612;
constexpr QRgb woodLight = 0xFF94382A;

constexpr QRect wordBand(18, 7, 56, 25);
constexpr script::Ink wordInk = {materials::giltBright, materials::gilt, materials::lacquerDeep};

bool covers(double x, double y) {
    if (!materials::holds({0, 0, passWidth, passHeight}, x, y)) return false;
    const double across = cornerRound - 0.5 - std::min(x, passWidth - 1 - x);
    const double down = cornerRound - 0.5 - std::min(y, passHeight - 1 - y);
    return across < 0 || down < 0 || std::hypot(across, down) <= cornerRound;
}

/// How many pixels lie between this one and the outline, at most the breadth of the rim.
int depthOf(double x, double y) {
    int depth = 0;
    const auto inside = [&](int reach) {
        return covers(x - reach, y) && covers(x + reach, y) && covers(x, y - reach) && covers(x, y + reach);
    };
    while (depth < static_cast<int>(rimLit.size()) && inside(depth + 1)) ++depth;
    return depth;
}

/// Lacquered wood: long wavy grain under a sheen that falls from the top left.
QRgb woodColour(double x, double y) {
    const double wave = std::sin(y * 1.3 + 1.6 * std::sin(x * 0.07) + 0.7 * std::sin(x * 0.19 + y * 0.2));
    const double fibre =
        materials::grain(materials::cellAt(x, 7), materials::cellAt(y, 1.0 / materials::density)) - 0.5;
    const double sheen = 0.62 - 0.5 * y / passHeight - 0.18 * x / passWidth;
    return materials::mix(woodDark, woodLight, std::clamp(sheen + 0.14 * wave + 0.16 * fibre, 0.0, 1.0));
}

QRgb passColour(double x, double y) {
    const int depth = depthOf(x, y);
    if (depth >= static_cast<int>(rimLit.size())) return woodColour(x, y);
    const bool lit = std::min(x, y) < std::min(passWidth - x, passHeight - y);
    return lit ? rimLit[depth] : rimShaded[depth];
}

}  // namespace

void paintPass(QPainter& painter) {
    materials::everyPixel(QRect(0, 0, passWidth, passHeight), [&](double x, double y) {
        if (covers(x, y)) materials::dot(painter, x, y, materials::smooth(x, y, passColour));
    });
    script::paintInBand(painter, script::flowing("Pass", 26), wordBand, wordInk);
}

void paintPassMask(QPainter& painter) { materials::paintMask(painter, {passWidth, passHeight}, covers); }
