#include <array>

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
    Honour{'W', U'西', QRect(2, 8, 21, 24), 'k', 0.8}, Honour{'N', U'北', QRect(2, 7, 22, 26), 'k', 0.8},
    Honour{'R', U'中', QRect(3, 7, 19, 27), 'r', 1.2}, Honour{'G', U'發', QRect(1, 7, 23, 28), 'g', 0.3},
};

void paintBlueFrame(QPainter& painter) {
    painter.setPen(QColor::fromRgb(paletteColour('b')));
    painter.drawRect(2, 8, 20, 25);
    painter.drawRect(3, 9, 18, 23);
    painter.drawRect(6, 12, 12, 17);
}

}  // namespace

void paintHonour(QPainter& painter, int number) {
    if (number == 7) {
        paintIndex(painter, 0, 0, 'B', paletteColour('B'));
        return paintBlueFrame(painter);
    }
    const Honour& honour = honours[number - 1];
    paintIndex(painter, 0, 0, honour.index, paletteColour(honour.ink));
    paintBrush(painter, honour.box, honour.character, paletteColour(honour.ink), honour.weight);
}
