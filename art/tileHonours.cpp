#include <array>

#include "fineSuits.h"
#include "materials.h"
#include "tileBrush.h"
#include "tileFaces.h"
#include "tileSprites.h"

namespace {

struct Honour {
    char index;
    char32_t character;
    QRect box;
    char ink;
    double weight;
};
constexpr std::array honours = {
    Honour{'E', U'東', QRect(2, 7, 22, 27), 'k', 0.8}, Honour{'S', U'南', QRect(2, 7, 21, 27), 'k', 0.8},
    Honour{'W', U'西', QRect(2, 8, 21, 25), 'k', 0.8}, Honour{'N', U'北', QRect(2, 7, 22, 26), 'k', 0.8},
    Honour{'R', U'中', QRect(3, 7, 19, 27), 'r', 1.2}, Honour{'G', U'發', QRect(1, 7, 23, 28), 'g', 0.3},
};

constexpr int blueDragon = 7;

/// The Blue dragon is a quarter of its frame; the rest mirrors it.
constexpr Sprite frameQuarter =
    "cccbbbbbbbbb\n"
    "cbbbbbbbbbbb\n"
    "cbb.........\n"
    "bb..bbbbb.bb\n"
    "bb.bb...b.b.\n"
    "bb.b.bb.b.b.\n"
    "bb.b.bb.b...\n"
    "bb.b....b...\n"
    "bb.bbbbbb...\n"
    "bb..........\n"
    "bb.bbb......\n"
    "bb.b........\n"
    "bb.b........\n"
    "bb.b........";

void paintBlueFrame(QPainter& painter) {
    if (materials::density > 1) return paintFineFrame(painter);
    constexpr QPoint corner(1, 7);
    constexpr QSize mirrored(11, 14);
    for (const bool right : {false, true})
        for (const bool low : {false, true})
            paintSprite(painter, corner.x() + (right ? mirrored.width() : 0),
                        corner.y() + (low ? mirrored.height() : 0), frameQuarter, {}, {},
                        {.leftRight = right, .upsideDown = low});
}

}  // namespace

void paintHonour(QPainter& painter, int number) {
    if (number == blueDragon) {
        paintIndex(painter, 0, 0, 'B', paletteColour('B'));
        return paintBlueFrame(painter);
    }
    const Honour& honour = honours[number - 1];
    paintIndex(painter, 0, 0, honour.index, paletteColour(honour.ink));
    paintBrush(painter, honour.box, honour.character, paletteColour(honour.ink), honour.weight);
}
