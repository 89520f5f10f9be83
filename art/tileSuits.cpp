#include <array>
#include <cmath>
#include <numbers>
#include <span>

#include "tileBrush.h"
#include "tileFaces.h"
#include "tileSprites.h"

namespace {

/// The sprites below are drawn in D, m and l: the dark, the plain and the light tone of one of these colours.
constexpr std::string_view tones = "Dml";
constexpr std::string_view red = "Rre";
constexpr std::string_view green = "Ggl";
constexpr std::string_view blue = "Bbc";

constexpr Sprite disc7 =
    "..mmm..\n"
    ".mwwwm.\n"
    "mwDDDwm\n"
    "mwDlDwm\n"
    "mwDDDwm\n"
    ".mwwwm.\n"
    "..mmm..";
constexpr Sprite disc9 =
    "..mmmmm..\n"
    ".mmwwwmm.\n"
    "mmwwwwwmm\n"
    "mwwDDDwwm\n"
    "mwwDlDwwm\n"
    "mwwDDDwwm\n"
    "mmwwwwwmm\n"
    ".mmwwwmm.\n"
    "..mmmmm..";
constexpr Sprite disc11 =
    "...mmmmm...\n"
    "..mmmmmmm..\n"
    ".mmwwwwwmm.\n"
    "mmwwwwwwwmm\n"
    "mmwwDDDwwmm\n"
    "mmwwDlDwwmm\n"
    "mmwwDDDwwmm\n"
    "mmwwwwwwwmm\n"
    ".mmwwwwwmm.\n"
    "..mmmmmmm..\n"
    "...mmmmm...";
constexpr Sprite disc13 =
    "....mmmmm....\n"
    "..mmmmmmmmm..\n"
    ".mmmwwwwwmmm.\n"
    ".mmwwwDwwwmm.\n"
    "mmwwDDDDDwwmm\n"
    "mmwwDlllDwwmm\n"
    "mmwDDlllDDwmm\n"
    "mmwwDlllDwwmm\n"
    "mmwwDDDDDwwmm\n"
    ".mmwwwDwwwmm.\n"
    ".mmmwwwwwmmm.\n"
    "..mmmmmmmmm..\n"
    "....mmmmm....";

struct Disc {
    int x, y;
    std::string_view colour;
};

constexpr std::array twoDiscs = {Disc{6, 3, blue}, Disc{6, 19, green}};
constexpr std::array threeDiscs = {Disc{0, 7, blue}, Disc{8, 16, red}, Disc{16, 25, green}};
constexpr std::array fourDiscs = {Disc{0, 8, blue}, Disc{14, 8, green}, Disc{0, 23, green}, Disc{14, 23, blue}};
constexpr std::array fiveDiscs = {Disc{0, 7, blue}, Disc{16, 7, green}, Disc{8, 16, red}, Disc{0, 25, green},
                                  Disc{16, 25, blue}};
constexpr std::array sixDiscs = {Disc{5, 0, green}, Disc{15, 0, green}, Disc{5, 15, red},
                                 Disc{15, 15, red}, Disc{5, 25, red},   Disc{15, 25, red}};
constexpr std::array sevenDiscs = {Disc{0, 7, green}, Disc{9, 10, green}, Disc{18, 13, green}, Disc{3, 21, red},
                                   Disc{15, 21, red}, Disc{3, 28, red},   Disc{15, 28, red}};
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

/// The wheel of the single circle: rings from the rim inward, each with its petals standing out on ivory.
struct Ring {
    double outer;
    char plain, petal;
    int petals;
};
constexpr std::array wheel = {
    Ring{12.4, 'B', 'B', 0}, Ring{11.5, 'b', 'b', 0}, Ring{10.2, 'w', 'w', 0}, Ring{9.4, 'w', 'g', 12},
    Ring{6.4, 'w', 'w', 0},  Ring{5.6, 'r', 'R', 8},  Ring{2.6, 'y', 'y', 0},
};
constexpr QPoint wheelCentre(12, 20);
constexpr int wheelFineness = 6;

QRgb wheelColour(double dx, double dy) {
    const double radius = std::hypot(dx, dy);
    const double turn = std::atan2(dy, dx) / (2 * std::numbers::pi);
    QRgb colour = 0;
    for (const Ring& ring : wheel)
        if (radius < ring.outer)
            colour = paletteColour(std::cos(2 * std::numbers::pi * ring.petals * turn) > 0.1 ? ring.petal : ring.plain);
    return colour;
}

void paintWheel(QPainter& painter) {
    constexpr int half = 12 * wheelFineness + wheelFineness / 2;
    QImage fine(2 * half, 2 * half, QImage::Format_ARGB32);
    for (int y = 0; y < 2 * half; ++y)
        for (int x = 0; x < 2 * half; ++x)
            fine.setPixel(x, y, wheelColour((x - half + 0.5) / wheelFineness, (y - half + 0.5) / wheelFineness));
    const QImage image = fine.scaled(25, 25, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    painter.drawImage(wheelCentre - QPoint(12, 12), image);
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

void paintStick(QPainter& painter, const Stick& stick) {
    const int last = stick.height - 1;
    for (int row = 0; row <= last; ++row) {
        const bool end = row == 0 || row == last;
        const bool knot = row == 1 || row == last - 1 || row == last / 2;
        const Sprite part = end ? stickEnd : knot ? stickKnot : stickCane;
        paintSprite(painter, stick.x, stick.y + row, part, tones, stick.colour);
    }
}

/// One half of the eight: two upright canes and two that lean together, an M; upside down a W.
void paintLeaningSticks(QPainter& painter, int top, bool upsideDown, std::string_view colour) {
    constexpr int height = 13;
    constexpr int lean = 4;
    for (int row = 0; row < height; ++row) {
        const int line = top + (upsideDown ? height - 1 - row : row);
        const bool knot = row % (height / 2) == 0;
        const Sprite part = knot ? "DmD\n" : "lmD\n";
        const int shift = (row * lean + height / 2) / (height - 1);
        for (const int x : {0, 4 + shift, 16 - shift, 20}) paintSprite(painter, 1 + x, line, part, tones, colour);
    }
}

constexpr Sprite bird =
    "......rr...............\n"
    ".....rrr...............\n"
    "....GGGr...............\n"
    "...GggGG...............\n"
    "..YGgwkG...............\n"
    ".YYGggggG..............\n"
    "....GgglgG.............\n"
    "....GglllgGG...........\n"
    "...GgllllgbbGG.........\n"
    "...GgllwlgbccbGG.......\n"
    "...GglwlwgbbccbbGG.....\n"
    "...GggllllgbbccbbGGG...\n"
    "....GglllggGbbccbbgGG..\n"
    "....GGglggggGbbbbbggGG.\n"
    ".....GGgggggGGbbBgGrrG.\n"
    "......GGGgggggGGGGgryrG\n"
    "........tGGGGGGgggGrrG.\n"
    "........t.t..GGggryrgG.\n"
    "tttttttttttttttGgrrggrG\n"
    "TTTTTTTTTTTTTTTGGgggryr\n"
    "................GgryrgG\n"
    ".................GgrgG.\n"
    "..................GGG..";

struct Numeral {
    char32_t character;
    QRect box;
};
constexpr std::array numerals = {
    Numeral{U'一', QRect(6, 7, 17, 4)},  Numeral{U'二', QRect(6, 3, 17, 11)}, Numeral{U'三', QRect(6, 1, 17, 15)},
    Numeral{U'四', QRect(6, 2, 17, 14)}, Numeral{U'五', QRect(6, 1, 18, 15)}, Numeral{U'六', QRect(6, 1, 18, 15)},
    Numeral{U'七', QRect(6, 1, 18, 15)}, Numeral{U'八', QRect(5, 2, 19, 14)}, Numeral{U'九', QRect(6, 1, 18, 15)},
};
constexpr char32_t tenThousand = U'萬';
constexpr QRect tenThousandBox(3, 18, 19, 17);

char digit(int number) { return static_cast<char>('0' + number); }

}  // namespace

void paintCircles(QPainter& painter, int number) {
    paintIndex(painter, 0, 0, digit(number), paletteColour('B'));
    if (number == 1) return paintWheel(painter);
    const Circles& face = circles[number - 1];
    for (const Disc& disc : face.places) paintSprite(painter, disc.x, disc.y, face.disc, tones, disc.colour);
}

void paintBamboo(QPainter& painter, int number) {
    paintIndex(painter, 0, 0, digit(number), paletteColour('G'));
    if (number == 1) paintSprite(painter, 1, 10, bird);
    if (number == 8) {
        paintLeaningSticks(painter, 7, false, green);
        paintLeaningSticks(painter, 21, true, blue);
    }
    for (const Stick& stick : sticks[number - 1]) paintStick(painter, stick);
}

void paintCharacters(QPainter& painter, int number) {
    paintIndex(painter, 0, 0, digit(number), paletteColour('R'));
    const Numeral& numeral = numerals[number - 1];
    paintBrush(painter, numeral.box, numeral.character, paletteColour('k'), 1.0);
    paintBrush(painter, tenThousandBox, tenThousand, paletteColour('r'), 0.2);
}
