#include <array>
#include <span>

#include "fineSuits.h"
#include "materials.h"
#include "tileBrush.h"
#include "tileFaces.h"
#include "tileRosette.h"
#include "tileSprites.h"

namespace {

/// The sprites below are drawn in D, m and l: the dark, the plain and the light tone of one of these colours.
constexpr std::string_view tones = "Dml";
constexpr std::string_view red = "Rre";
constexpr std::string_view green = "Ggl";
constexpr std::string_view blue = "Bbc";

constexpr Sprite disc7 =
    "..lmm..\n"
    ".lmmmm.\n"
    "lmwwwmm\n"
    "mmwDwmm\n"
    "mmwwwmD\n"
    ".mmmmD.\n"
    "..mDD..";
constexpr Sprite disc9 =
    "..lmmmm..\n"
    ".lmmmmmm.\n"
    "lmmwwwmmm\n"
    "mmwwDwwmm\n"
    "mmwDlDwmm\n"
    "mmwwDwwmD\n"
    "mmmwwwmmD\n"
    ".mmmmmmD.\n"
    "..mmDDD..";
constexpr Sprite disc11 =
    "...lmmmm...\n"
    ".llmmmmmmm.\n"
    ".lmmwwwmmm.\n"
    "lmmwwDwwmmm\n"
    "mmwwDDDwwmm\n"
    "mmwDDlDDwmm\n"
    "mmwwDDDwwmD\n"
    "mmmwwDwwmmD\n"
    ".mmmwwwmmD.\n"
    ".mmmmmmmDD.\n"
    "...mmDDD...";
constexpr Sprite disc13 =
    "....lllmm....\n"
    "..llmmmmmmm..\n"
    ".lmmmwwwmmmm.\n"
    ".lmwwwDwwwmm.\n"
    "lmmwDwDwDwmmm\n"
    "lmwwwDDDwwwmm\n"
    "mmwDDDlDDDwmm\n"
    "mmwwwDDDwwwmD\n"
    "mmmwDwDwDwmmD\n"
    ".mmwwwDwwwmD.\n"
    ".mmmmwwwmmmD.\n"
    "..mmmmmmmDD..\n"
    "....mmDDD....";

struct Disc {
    int x, y;
    std::string_view colour;
};

constexpr std::array twoDiscs = {Disc{6, 3, blue}, Disc{6, 19, green}};
constexpr std::array threeDiscs = {Disc{0, 7, blue}, Disc{8, 16, red}, Disc{16, 25, green}};
constexpr std::array fourDiscs = {Disc{0, 8, blue}, Disc{14, 8, green}, Disc{0, 23, green}, Disc{14, 23, blue}};
constexpr std::array fiveDiscs = {Disc{0, 7, blue}, Disc{16, 7, green}, Disc{8, 16, red}, Disc{0, 25, green},
                                  Disc{16, 25, blue}};
constexpr std::array sixDiscs = {Disc{5, 0, green}, Disc{15, 0, green}, Disc{5, 14, red},
                                 Disc{15, 14, red}, Disc{5, 25, red},   Disc{15, 25, red}};
constexpr std::array sevenDiscs = {Disc{0, 7, green}, Disc{9, 9, green}, Disc{18, 11, green}, Disc{4, 19, red},
                                   Disc{14, 19, red}, Disc{4, 27, red},  Disc{14, 27, red}};
constexpr std::array eightDiscs = {Disc{6, 0, blue},  Disc{16, 0, blue},  Disc{6, 9, blue},  Disc{16, 9, blue},
                                   Disc{6, 18, blue}, Disc{16, 18, blue}, Disc{6, 27, blue}, Disc{16, 27, blue}};
constexpr std::array nineDiscs = {Disc{0, 7, blue},   Disc{9, 7, blue},   Disc{18, 7, blue},
                                  Disc{0, 17, red},   Disc{9, 17, red},   Disc{18, 17, red},
                                  Disc{0, 27, green}, Disc{9, 27, green}, Disc{18, 27, green}};

struct Circles {
    Sprite disc;
    std::span<const Disc> places;
};

constexpr std::array<Circles, 9> circles = {{
    {{}, {}},
    {disc13, twoDiscs},
    {disc9, threeDiscs},
    {disc11, fourDiscs},
    {disc9, fiveDiscs},
    {disc9, sixDiscs},
    {disc7, sevenDiscs},
    {disc7, eightDiscs},
    {disc7, nineDiscs},
}};

/// The wheel of the single circle.
constexpr std::array wheel = {
    Ring{12.5, 'B', 'B', 0, 0}, Ring{11.4, 'b', 'b', 0, 0}, Ring{10.4, 'w', 'w', 0, 0}, Ring{9.5, 'w', 'g', 8, 0.8},
    Ring{6.3, 'w', 'w', 0, 0},  Ring{5.4, 'r', 'r', 0, 0},  Ring{3.6, 'y', 'y', 0, 0},  Ring{2.3, 'R', 'R', 0, 0},
};
constexpr std::array fineWheel = {
    Ring{12.5, 'B', 'B', 0, 0},    Ring{11.8, 'b', 'c', 28, 0.4}, Ring{10.5, 'w', 'w', 0, 0},
    Ring{9.9, 'w', 'g', 12, 0.82}, Ring{6.9, 'w', 'w', 0, 0},     Ring{6.5, 'r', 'r', 0, 0},
    Ring{5.8, 'w', 'r', 8, 0.8},   Ring{2.9, 'y', 'y', 0, 0},     Ring{2.3, 'R', 'R', 0, 0},
    Ring{0.8, 'y', 'y', 0, 0},
};
constexpr QPoint wheelCentre(12, 21);

void paintFineDiscs(QPainter& painter, const Circles& face) {
    const double radius = face.disc.find('\n') / 2.0;
    for (const Disc& disc : face.places)
        paintFineDisc(painter, QPointF(disc.x + radius, disc.y + radius), radius, disc.colour);
}

struct Stick {
    int x, y, height;
    std::string_view colour;
};

constexpr std::array twoSticks = {Stick{10, 1, 15, blue}, Stick{10, 18, 15, green}};
constexpr std::array threeSticks = {Stick{10, 1, 15, blue}, Stick{4, 18, 15, green}, Stick{16, 18, 15, green}};
constexpr std::array fourSticks = {Stick{6, 1, 15, blue}, Stick{16, 1, 15, green}, Stick{6, 18, 15, green},
                                   Stick{16, 18, 15, blue}};
constexpr std::array fiveSticks = {Stick{5, 1, 15, green}, Stick{19, 1, 15, blue}, Stick{12, 10, 15, red},
                                   Stick{5, 18, 15, blue}, Stick{19, 18, 15, green}};
constexpr std::array sixSticks = {Stick{5, 1, 15, green}, Stick{12, 1, 15, green}, Stick{19, 1, 15, green},
                                  Stick{5, 18, 15, blue}, Stick{12, 18, 15, blue}, Stick{19, 18, 15, blue}};
constexpr std::array sevenSticks = {Stick{12, 0, 11, red},    Stick{5, 12, 11, green}, Stick{12, 12, 11, blue},
                                    Stick{19, 12, 11, green}, Stick{5, 24, 11, green}, Stick{12, 24, 11, blue},
                                    Stick{19, 24, 11, green}};
constexpr std::array nineSticks = {Stick{5, 0, 11, red},  Stick{12, 0, 11, blue},  Stick{19, 0, 11, green},
                                   Stick{5, 12, 11, red}, Stick{12, 12, 11, blue}, Stick{19, 12, 11, green},
                                   Stick{5, 24, 11, red}, Stick{12, 24, 11, blue}, Stick{19, 24, 11, green}};

constexpr std::array<std::span<const Stick>, 9> sticks = {{
    {},
    twoSticks,
    threeSticks,
    fourSticks,
    fiveSticks,
    sixSticks,
    sevenSticks,
    {},
    nineSticks,
}};

constexpr Sprite stickEnd = ".DDD.\n";
constexpr Sprite stickKnot = "DlmmD\n";
constexpr Sprite stickCane = ".lmD.\n";

void paintFineStick(QPainter& painter, const Stick& stick) {
    const QPointF top(stick.x + stickEnd.find('\n') / 2.0, stick.y);
    paintFineCane(painter, top, top + QPointF(0, stick.height), static_cast<double>(stickEnd.find('\n')), stick.colour);
}

void paintStick(QPainter& painter, const Stick& stick) {
    if (materials::density > 1) return paintFineStick(painter, stick);
    const int last = stick.height - 1;
    for (int row = 0; row <= last; ++row) {
        const bool end = row == 0 || row == last;
        const bool knot = row == 1 || row == last - 1 || row == last / 2;
        const Sprite part = end ? stickEnd : knot ? stickKnot : stickCane;
        paintSprite(painter, stick.x, stick.y + row, part, tones, stick.colour);
    }
}

/// Half of the eight, two upright canes and two that lean together: an M above, upside down a W below.
struct Leaning {
    int top;
    bool upsideDown;
    std::string_view colour;
};
constexpr std::array leaningHalves = {Leaning{7, false, green}, Leaning{22, true, blue}};
constexpr int leaningHeight = 13;
constexpr int lean = 4;
constexpr int leaningCanes[] = {1, 5, 17, 21};
constexpr int leaningWays[] = {0, 1, -1, 0};
constexpr Sprite leaningKnot = "DmD\n";
constexpr Sprite leaningCane = "lmD\n";

void paintFineLeaning(QPainter& painter, const Leaning& half) {
    constexpr double breadth = 4;
    for (size_t cane = 0; cane < std::size(leaningCanes); ++cane) {
        const QPointF upright(leaningCanes[cane] + leaningCane.find('\n') / 2.0, half.top);
        const QPointF leant = upright + QPointF(leaningWays[cane] * lean, 0), below(0, leaningHeight);
        paintFineCane(painter, half.upsideDown ? leant : upright, (half.upsideDown ? upright : leant) + below, breadth,
                      half.colour);
    }
}

void paintLeaning(QPainter& painter, const Leaning& half) {
    if (materials::density > 1) return paintFineLeaning(painter, half);
    for (int row = 0; row < leaningHeight; ++row) {
        const int line = half.top + (half.upsideDown ? leaningHeight - 1 - row : row);
        const bool knot = row % (leaningHeight / 2) == 0;
        const int shift = (row * lean + leaningHeight / 2) / (leaningHeight - 1);
        for (size_t cane = 0; cane < std::size(leaningCanes); ++cane)
            paintSprite(painter, leaningCanes[cane] + leaningWays[cane] * shift, line, knot ? leaningKnot : leaningCane,
                        tones, half.colour);
    }
}

constexpr QPoint birdPlace(1, 10);
constexpr Sprite bird =
    "....r.r.r..............\n"
    "....r.r.r..............\n"
    ".....GGGG..............\n"
    "....GlggGG.............\n"
    "...GlwkggG.............\n"
    ".oyGgwwggG.............\n"
    "oYY.GgggG..............\n"
    "....GlgbG..............\n"
    "....GlgbBG.............\n"
    "...GlggbbBGG...........\n"
    "...GlggbccbBGG.........\n"
    "..GlwggbbccbbBGG.......\n"
    "..GlgwggbbcccbbBGG.....\n"
    "..GlwgwggBbbccbbBGGG...\n"
    "..GglgwgggBBbbbbBggGG..\n"
    "...GglggggggBBBBGgyrgG.\n"
    "...GGgglgggggGGGgGrrggG\n"
    "....GGgggggGGGgyrgGgyrG\n"
    ".....GGGGGGGG.GrrggGrrG\n"
    ".......y..y...GGggyrggG\n"
    "tttttttyttyttttGGgrrgG.\n"
    "TTTTTTyyTyyTTTTTGGgggG.\n"
    "..T......TT......GGGGG.\n"
    "..........T......GGG...";

struct Numeral {
    char32_t character;
    QRect box;
    double lower = 0;  ///< As an outline it stands so much lower, to be told from another.
};
constexpr std::array numerals = {
    Numeral{U'一', QRect(6, 7, 17, 4)},  Numeral{U'二', QRect(6, 3, 17, 11)}, Numeral{U'三', QRect(6, 1, 17, 15), 0.8},
    Numeral{U'四', QRect(6, 2, 17, 14)}, Numeral{U'五', QRect(6, 1, 18, 15)}, Numeral{U'六', QRect(6, 1, 18, 15)},
    Numeral{U'七', QRect(6, 1, 18, 15)}, Numeral{U'八', QRect(5, 2, 19, 14)}, Numeral{U'九', QRect(6, 1, 18, 15)},
};
constexpr double numeralWeight = 1.0;
constexpr QPoint tenThousandPlace(3, 18);
constexpr Sprite tenThousand =
    ".....rr.....rr.....\n"
    "rrrrrrrrrrrrrrrrrrr\n"
    ".....rr.....rr.....\n"
    ".....rr.....r......\n"
    "...rrrrrrrrrrrrr...\n"
    "...rr....r....rr...\n"
    "...rrrrrrrrrrrrr...\n"
    "...rr....r....rr...\n"
    "...rrrrrrrrrrrrr...\n"
    ".........rr........\n"
    ".rrrrrrrrrrrrrrrrr.\n"
    ".rr......rr.....rr.\n"
    ".rr......rr.r...rr.\n"
    ".rr..rrrrrrrrr..rr.\n"
    ".rr..rrr....rr..rr.\n"
    ".rr...........rrrr.\n"
    ".r.............rr..";

void paintFineCharacters(QPainter& painter, const Numeral& numeral) {
    constexpr QRect tenThousandBox(2, 17, 21, 18);
    constexpr double tenThousandWeight = 0.5;
    painter.save();
    painter.translate(0, numeral.lower);
    paintBrush(painter, numeral.box, numeral.character, paletteColour('k'), numeralWeight);
    painter.restore();
    paintBrush(painter, tenThousandBox, U'萬', paletteColour('r'), tenThousandWeight);
}

}  // namespace

void paintCircles(QPainter& painter, int number) {
    paintIndex(painter, 0, 0, digit(number), paletteColour('B'));
    if (number == 1 && materials::density > 1)
        return paintFineRosette(painter, wheelCentre + QPointF(0.5, 0.5), fineWheel);
    if (number == 1) return paintRosette(painter, wheelCentre, wheel);
    const Circles& face = circles[number - 1];
    if (materials::density > 1) return paintFineDiscs(painter, face);
    for (const Disc& disc : face.places) paintSprite(painter, disc.x, disc.y, face.disc, tones, disc.colour);
}

void paintBamboo(QPainter& painter, int number) {
    paintIndex(painter, 0, 0, digit(number), paletteColour('G'));
    if (number == 1 && materials::density > 1) return paintFineBird(painter);
    if (number == 1) paintSprite(painter, birdPlace.x(), birdPlace.y(), bird);
    if (number == 8)
        for (const Leaning& half : leaningHalves) paintLeaning(painter, half);
    for (const Stick& stick : sticks[number - 1]) paintStick(painter, stick);
}

void paintCharacters(QPainter& painter, int number) {
    paintIndex(painter, 0, 0, digit(number), paletteColour('R'));
    const Numeral& numeral = numerals[number - 1];
    if (materials::density > 1) return paintFineCharacters(painter, numeral);
    paintBrush(painter, numeral.box, numeral.character, paletteColour('k'), numeralWeight);
    paintSprite(painter, tenThousandPlace.x(), tenThousandPlace.y(), tenThousand);
}
