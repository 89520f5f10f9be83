#include "tileSprites.h"

#include <algorithm>
#include <array>

#include "materials.h"
#include "outline.h"
#include "script.h"

namespace {

struct Ink {
    char letter;
    QRgb colour;
};

constexpr std::array inks = {
    Ink{'k', 0xFF1B1A1E},                                              // black
    Ink{'r', 0xFFC42016}, Ink{'R', 0xFF86100C}, Ink{'e', 0xFFF0755C},  // red: plain, deep, light
    Ink{'g', 0xFF0E8C62}, Ink{'G', 0xFF044834}, Ink{'l', 0xFF6CCBA0},  // green
    Ink{'b', 0xFF1C40A4}, Ink{'B', 0xFF10205C}, Ink{'c', 0xFF84A8EC},  // blue
    Ink{'y', 0xFFF2BE32}, Ink{'Y', 0xFFA87410}, Ink{'o', 0xFFE8801C},  // gold, dark gold, orange
    Ink{'p', 0xFFF4A6BC}, Ink{'P', 0xFFD4547C}, Ink{'v', 0xFF7A3C9C},  // pink, deep pink, violet
    Ink{'t', 0xFF7C5028}, Ink{'T', 0xFF4A2C14}, Ink{'w', 0xFFFFFDF6},  // brown, dark brown, white
    Ink{'n', 0xFFE2ECF6}, Ink{'s', 0xFFB8C4D0}, Ink{'i', 0xFFF4EAD0},  // snow, its shade, ivory
    Ink{'h', 0xFFFFCEA4}, Ink{'H', 0xFFE29E74}, Ink{'#', 0xFF503A3E},  // a hand, its shade, the outline of icons
    Ink{'m', 0xFFF06CE0}, Ink{'M', 0xFF9C1E92},                        // magenta, deep magenta
};

struct IndexGlyph {
    char symbol;
    Sprite rows;
};

constexpr std::array indexGlyphs = {
    IndexGlyph{'1', ".#..\n##..\n.#..\n.#..\n.#..\n###."}, IndexGlyph{'2', "###.\n...#\n..#.\n.#..\n#...\n####"},
    IndexGlyph{'3', "###.\n...#\n.##.\n...#\n...#\n###."}, IndexGlyph{'4', "..#.\n.##.\n#.#.\n####\n..#.\n..#."},
    IndexGlyph{'5', "####\n#...\n###.\n...#\n...#\n###."}, IndexGlyph{'6', ".##.\n#...\n###.\n#..#\n#..#\n.##."},
    IndexGlyph{'7', "####\n...#\n..#.\n..#.\n.#..\n.#.."}, IndexGlyph{'8', ".##.\n#..#\n.##.\n#..#\n#..#\n.##."},
    IndexGlyph{'9', ".##.\n#..#\n#..#\n.###\n...#\n.##."}, IndexGlyph{'E', "####\n#...\n###.\n#...\n#...\n####"},
    IndexGlyph{'S', ".###\n#...\n.##.\n...#\n...#\n###."}, IndexGlyph{'W', "#...#\n#...#\n#.#.#\n#.#.#\n##.##\n#...#"},
    IndexGlyph{'N', "#..#\n##.#\n##.#\n#.##\n#.##\n#..#"}, IndexGlyph{'R', "###.\n#..#\n#..#\n###.\n#.#.\n#..#"},
    IndexGlyph{'G', ".###\n#...\n#...\n#.##\n#..#\n.###"}, IndexGlyph{'B', "###.\n#..#\n###.\n#..#\n#..#\n###."},
};

/// Calls put(column, row, letter) for every painted letter of the sprite.
template <typename Put>
void walk(Sprite sprite, Put put) {
    int column = 0;
    int row = 0;
    for (const char letter : sprite) {
        if (letter == '\n') {
            column = 0;
            ++row;
        } else {
            if (letter != '.') put(column, row, letter);
            ++column;
        }
    }
}

/// The symbol as an outline, about as large as its sprite.
void paintFineIndex(QPainter& painter, int x, int y, char symbol, QRgb colour) {
    constexpr QSizeF room{5.6, 5.5};
    const QPainterPath path = script::plain(QString(QChar(symbol)), room.height());
    const QRectF bounds = path.boundingRect();
    QTransform fit = QTransform::fromTranslate(x, y);
    fit.scale(std::min(room.width() / bounds.width(), room.height() / bounds.height()),
              room.height() / bounds.height());
    outline::engrave(painter, fit.map(path.translated(-bounds.topLeft())), colour);
}

}  // namespace

QRgb paletteColour(char letter) {
    const auto* found = std::ranges::find(inks, letter, &Ink::letter);
    return found == inks.end() ? 0 : found->colour;
}

void paintSprite(QPainter& painter, int x, int y, Sprite sprite, std::string_view from, std::string_view to,
                 Turn turn) {
    const int width = static_cast<int>(sprite.find('\n'));
    const int height = 1 + static_cast<int>(std::ranges::count(sprite, '\n'));
    walk(sprite, [&](int column, int row, char letter) {
        const size_t swap = from.find(letter);
        const char painted = swap == std::string_view::npos ? letter : to[swap];
        if (turn.leftRight) column = width - 1 - column;
        if (turn.upsideDown) row = height - 1 - row;
        if (const QRgb colour = paletteColour(painted)) materials::dot(painter, x + column, y + row, colour);
    });
}

void paintIndex(QPainter& painter, int x, int y, char symbol, QRgb colour) {
    if (materials::density > 1) return paintFineIndex(painter, x, y, symbol, colour);
    const auto* glyph = std::ranges::find(indexGlyphs, symbol, &IndexGlyph::symbol);
    walk(glyph->rows, [&](int column, int row, char) { materials::dot(painter, x + column, y + row, colour); });
}
