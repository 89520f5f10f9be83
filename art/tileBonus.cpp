#include <array>

#include "tileBrush.h"
#include "tileFaces.h"
#include "tileSprites.h"

namespace {

constexpr std::array seasons = {U'春', U'夏', U'秋', U'冬'};
constexpr std::array flowers = {U'梅', U'蘭', U'菊', U'竹'};

char digit(int number) { return static_cast<char>('0' + number); }

}  // namespace

void paintSeason(QPainter& painter, int number) {
    painter.fillRect(0, 7, 25, 28, QColor::fromRgb(paletteColour('c')));
    paintIndex(painter, 0, 0, digit(number), paletteColour('B'));
    paintBrush(painter, QRect(2, 9, 21, 24), seasons[number - 1], paletteColour('B'), 0.2);
}

void paintFlower(QPainter& painter, int number) {
    paintIndex(painter, 0, 0, digit(number), paletteColour('P'));
    paintBrush(painter, QRect(2, 9, 21, 24), flowers[number - 1], paletteColour('P'), 0.2);
}
