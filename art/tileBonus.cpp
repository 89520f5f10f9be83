#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "fineBonus.h"
#include "materials.h"
#include "tileBody.h"
#include "tileFaces.h"
#include "tileRosette.h"
#include "tileSprites.h"

namespace {

/// A sprite at its place in a scene, with the letters that it is repainted in.
struct Part {
    int x, y;
    Sprite sprite;
    std::string_view from = {}, to = {};
};

/// A leaf or a stem: a bow from its root to its tip, broad in the middle; lit along its upper left.
struct Blade {
    QPoint root, bend, tip;
    int breadth;
    char lit, shaded;
};

constexpr Sprite blossom =
    "...ww....\n"
    "..wppp...\n"
    ".wwpppww.\n"
    "wpppPpppp\n"
    "pppPyPppP\n"
    ".ppPyPpP.\n"
    ".pppPppp.\n"
    ".ppP.ppP.\n"
    "..P...P..";
constexpr Sprite smallBlossom =
    ".wp..\n"
    "wpppp\n"
    "ppyPP\n"
    ".ppP.\n"
    ".pPP.";
constexpr Sprite bud =
    ".w.\n"
    "wpP\n"
    ".P.";
constexpr Sprite petal = "wp\n.P";

constexpr Sprite canopy =
    "....wppp...wpp.....\n"
    "..wwwppppwwppppp...\n"
    ".wwwpppppwwpppppp..\n"
    "wwwppPppppppPpppp..\n"
    "wwppppppPpppwwppppp\n"
    "wpppPpppppwwppppppP\n"
    "pPppwwwppppppPppppP\n"
    ".pppPppwppPppppppP.\n"
    "ppwwpppPppppwwppPP.\n"
    "ppwppppppPpppppPPP.\n"
    ".pPpppPPppPppPPPP..\n"
    "..PPPPPPtTPPPPPP...\n"
    "....PP..tT..tTP....\n"
    ".........tTtT......\n"
    ".........tTTT......\n"
    ".........tTT.......\n"
    ".........tTT.......\n"
    ".........tTT.......\n"
    "........ttTTT......";
constexpr Sprite meadow =
    "..............lllllll....\n"
    "lllll.....lllllggggggllll\n"
    "gggglllllllggggggglgggggg\n"
    "ggggggggggggglgggggggggGg\n"
    "gglgggggggGggggggggGggggg\n"
    "ggggggGgggggggggGggggggGG\n"
    "gGggggggggggGgggggggGgGGG\n"
    "GgGgGgGgGgGgGgGgGGGGGGGGG";

constexpr Sprite junk =
    "......T.......\n"
    "....erT.......\n"
    "...errTr......\n"
    "..errrTrr.....\n"
    "..RRRRTRRr....\n"
    ".eerrrTrrr....\n"
    ".errrrTrrrr...\n"
    ".RRRRRTRRRR...\n"
    "eerrrrTrrrrr..\n"
    "eRRRRRTRRRRR..\n"
    "......T.....t.\n"
    "tTTTTTTTTTTtt.\n"
    ".itttttttttT..\n"
    "..TTTTTTTTT...";
constexpr Sprite sea =
    "bbbbbbbbbbbbbbbbbbbbbbbbb\n"
    "bbccbbbbbbbccbbbbbbbbbccb\n"
    "bcbbccbbbbcbbccbbbbbbcbbc\n"
    "bbbbbbbbbbbbbbbbbbbbbbbbb\n"
    "Bbbbbbbccbbbbbbbbccbbbbbb\n"
    "bbbbbbcbbccbbbbbcbbccbbbB\n"
    "bBbbBbbbbbbbBbbbbbbbbbBBb\n"
    "BBBBBbBBbBBBBBbBBbBBBBBBB";

constexpr Sprite geese =
    "k...k.........\n"
    ".k.k..........\n"
    "..k......k...k\n"
    "..........k.k.\n"
    "...........k..";
constexpr Sprite duskHill =
    ".................vvvv....\n"
    "..............vvvvvvvvv..\n"
    "...........vvvvvvvvvvvvvv\n"
    "vvvv....vvvvvvvvvvvvvvvvv\n"
    "vvvvvvvvvvvvvvvvvvvvvvvvv\n"
    "tvvvvvvvvvvvvvvvvvvvvvvvt\n"
    "tttttvvvvvvvvvvvvvvvttttt\n"
    "ttttttttttttttttttttttttT\n"
    "tttTttttttttTttttttTttTTT\n"
    "TtTTTtTTTTtTTTTTtTTTTTTTT";
constexpr Sprite plume =
    "..wwi.\n"
    ".wwiii\n"
    ".wi.iY\n"
    "wwi..Y\n"
    "wiY...\n"
    "wi....\n"
    "iY....";

constexpr Sprite pine =
    "........w........\n"
    ".......www.......\n"
    ".......wGw.......\n"
    "......wwgGs......\n"
    ".....wwgGGGs.....\n"
    "....wwgGGGGss....\n"
    "......ggGGG......\n"
    ".....wwgGGGs.....\n"
    "....wwgGgGGGs....\n"
    "...wwwgGGGgGss...\n"
    "..wwwgGGGgGGGss..\n"
    ".....ggGGGGG.....\n"
    "...wwwgGGGGGss...\n"
    "..wwwgGGgGGGGss..\n"
    ".wwwggGGGGgGGGss.\n"
    "wwwwgGGgGGGGGGsss\n"
    "...gGGGGGGGGGG...\n"
    ".......tTT.......\n"
    ".......tTT.......\n"
    "......wtTTs......";
constexpr Sprite drift =
    "......................www\n"
    "wwwwww..........wwwwwwwww\n"
    "wwwwwwwwwwwwwwwwwwwwwwwws\n"
    "wwwwwwwwwwwwwwwwwwwwwwsss\n"
    "wwwwwwssswwwwwwwwwssswwss\n"
    "wwssswwwwwwwsssswwwwwssss";
constexpr Sprite flake = "w";

constexpr std::array spring = {Part{0, 27, meadow}, Part{3, 9, canopy},  Part{1, 25, petal},        Part{20, 23, petal},
                               Part{7, 30, petal},  Part{17, 31, petal}, Part{22, 3, bud, "P", "p"}};
constexpr std::array summer = {Part{0, 27, sea}, Part{3, 17, junk}};
constexpr std::array autumn = {Part{0, 25, duskHill}, Part{8, 3, geese}, Part{1, 22, plume}, Part{6, 18, plume},
                               Part{12, 23, plume}};
constexpr std::array winter = {Part{0, 29, drift, "w", "n"}, Part{5, 10, pine},  Part{9, 2, flake},
                               Part{15, 5, flake},           Part{21, 3, flake}, Part{3, 12, flake},
                               Part{22, 12, flake},          Part{1, 20, flake}, Part{19, 9, flake},
                               Part{23, 20, flake},          Part{7, 7, flake},  Part{12, 6, flake}};

constexpr std::array sun = {Ring{7.5, '.', 'y', 12, 0.42}, Ring{4.9, 'o', 'o', 0, 0}, Ring{4.2, 'y', 'y', 0, 0},
                            Ring{2.4, 'w', 'w', 0, 0}};
constexpr std::array moon = {Ring{5.5, 'y', 'y', 0, 0}, Ring{4.6, 'i', 'i', 0, 0}, Ring{3.4, 'w', 'w', 0, 0}};

constexpr std::array pampas = {
    Blade{{4, 34}, {2, 30}, {1, 27}, 1, 'Y', 'Y'},   Blade{{6, 34}, {6, 28}, {6, 24}, 1, 'Y', 'Y'},
    Blade{{9, 34}, {12, 31}, {12, 28}, 1, 'Y', 'Y'}, Blade{{5, 34}, {2, 30}, {0, 31}, 1, 'y', 'y'},
    Blade{{9, 34}, {14, 29}, {17, 31}, 1, 'y', 'y'}, Blade{{7, 34}, {9, 28}, {10, 29}, 1, 'y', 'y'},
};

/// A season: a small painting from its sky down.
struct Season {
    QRgb high, low;
    std::span<const Ring> light;
    QPoint lightCentre;
    std::span<const Part> parts;
    std::span<const Blade> blades;
};
constexpr std::array seasons = {
    Season{0xFF9CCFEF, 0xFFFCE6EC, {}, {}, spring, {}},
    Season{0xFF3FA0E4, 0xFFD6F0FA, sun, {17, 9}, summer, {}},
    Season{0xFFE25A1E, 0xFFFCD070, moon, {17, 15}, autumn, pampas},
    Season{0xFF2F5488, 0xFF8FB4D6, {}, {}, winter, {}},
};

constexpr Sprite plumBranch =
    "....................t....\n"
    "...................tT....\n"
    "..................tT.....\n"
    "t................tT......\n"
    ".t..............tT.......\n"
    "..tt...........tT........\n"
    "....tt........tT.........\n"
    "......ttt....tTT.........\n"
    "........tttttTT..........\n"
    "..........tTTTT..........\n"
    "............tTTT.......t.\n"
    ".............tTT......t..\n"
    ".............tTTT....t...\n"
    "..............tTT..tt....\n"
    "..............tTTTtT.....\n"
    "...............tTTT......\n"
    "...............tTTT......\n"
    "..............tTTT.......\n"
    "............ttTTT........\n"
    "..........ttTTTT.........\n"
    "........ttTTTT...........\n"
    "......ttTTTT.............\n"
    ".....tTTTT...............\n"
    "....tTTTT................\n"
    "....tTTTT................";
constexpr Sprite orchidBloom =
    "..v..Pv..\n"
    "..Pv.Pv..\n"
    "vPpvwPvvv\n"
    ".vPpwpPv.\n"
    "...vyv...\n"
    "..vPyPv..\n"
    "..vP.Pv..\n"
    ".v.....v.";
constexpr Sprite cane =
    "lgG\n"
    "lgG\n"
    "lgG\n"
    "lgG\n"
    "lgG\n"
    "GGG";

constexpr std::array plumParts = {Part{0, 10, plumBranch},   Part{12, 1, blossom}, Part{2, 12, blossom},
                                  Part{16, 16, blossom},     Part{7, 24, blossom}, Part{20, 8, smallBlossom},
                                  Part{0, 23, smallBlossom}, Part{10, 13, bud},    Part{18, 27, bud}};
constexpr std::array orchidParts = {Part{7, 2, orchidBloom}, Part{15, 12, orchidBloom}, Part{2, 12, bud, "pP", "Pv"}};
constexpr std::array orchidBlades = {
    Blade{{12, 34}, {13, 20}, {11, 8}, 1, 'l', 'l'},  Blade{{13, 34}, {15, 24}, {18, 18}, 1, 'l', 'l'},
    Blade{{11, 34}, {6, 20}, {0, 22}, 2, 'g', 'G'},   Blade{{11, 34}, {8, 18}, {3, 15}, 2, 'g', 'G'},
    Blade{{13, 34}, {19, 19}, {24, 23}, 2, 'g', 'G'}, Blade{{13, 34}, {15, 20}, {21, 9}, 2, 'g', 'G'},
    Blade{{10, 34}, {5, 28}, {1, 31}, 2, 'g', 'G'},   Blade{{14, 34}, {20, 28}, {24, 32}, 2, 'g', 'G'},
};
constexpr std::array chrysanthemum = {
    Ring{9.7, '.', 'y', 12, 0.6}, Ring{7.4, 'Y', 'y', 12, 0.74}, Ring{6.6, 'o', 'o', 0, 0},
    Ring{5.9, 'o', 'y', 12, 0.6}, Ring{3.6, 'o', 'o', 0, 0},     Ring{2.5, 'Y', 'Y', 0, 0},
    Ring{1.5, 'y', 'y', 0, 0},
};
constexpr std::array chrysanthemumBlades = {
    Blade{{12, 34}, {13, 28}, {13, 22}, 2, 'g', 'G'},
    Blade{{12, 33}, {6, 32}, {2, 25}, 4, 'g', 'G'},
    Blade{{13, 34}, {19, 33}, {23, 26}, 4, 'g', 'G'},
};
constexpr std::array bambooParts = {Part{8, 13, cane},  Part{8, 19, cane},  Part{8, 25, cane},
                                    Part{8, 31, cane},  Part{15, 7, cane},  Part{15, 13, cane},
                                    Part{15, 19, cane}, Part{15, 25, cane}, Part{15, 29, cane}};
constexpr std::array bambooBlades = {
    Blade{{9, 14}, {5, 13}, {0, 19}, 3, 'l', 'g'}, Blade{{9, 14}, {6, 9}, {1, 11}, 3, 'g', 'G'},
    Blade{{16, 8}, {20, 5}, {24, 9}, 3, 'g', 'G'}, Blade{{16, 8}, {20, 9}, {23, 15}, 3, 'l', 'g'},
    Blade{{16, 8}, {12, 3}, {8, 4}, 3, 'g', 'G'},  Blade{{17, 18}, {21, 18}, {24, 24}, 3, 'g', 'G'},
    Blade{{8, 24}, {4, 24}, {1, 30}, 3, 'g', 'G'},
};

/// A flower: one plant on the bare ivory.
struct Flower {
    std::span<const Blade> blades;
    std::span<const Part> parts;
    std::span<const Ring> bloom;
    QPoint bloomCentre;
};
constexpr std::array flowers = {
    Flower{{}, plumParts, {}, {}},
    Flower{orchidBlades, orchidParts, {}, {}},
    Flower{chrysanthemumBlades, {}, chrysanthemum, {13, 15}},
    Flower{bambooBlades, bambooParts, {}, {}},
};

void paintBlade(QPainter& painter, const Blade& blade) {
    constexpr int steps = 80;
    if (materials::density > 1) {
        constexpr QPointF middle(0.5, 0.5);
        return paintFineBlade(painter, blade.root + middle, blade.bend + middle, blade.tip + middle, blade.breadth,
                              blade.lit, blade.shaded);
    }
    for (const bool shaded : {true, false})
        for (int i = 0; i <= steps; ++i) {
            const double t = static_cast<double>(i) / steps;
            const QPointF place = QPointF(blade.root) * (1 - t) * (1 - t) + QPointF(blade.bend) * 2 * t * (1 - t) +
                                  QPointF(blade.tip) * t * t;
            const double swell = 4 * t * (1 - t);
            const int breadth = std::max(1, static_cast<int>(std::lround(blade.breadth * swell)));
            const int painted = shaded ? breadth : (breadth + 1) / 2;
            painter.fillRect(static_cast<int>(std::lround(place.x())), static_cast<int>(std::lround(place.y())), 1,
                             painted, QColor::fromRgb(paletteColour(shaded ? blade.shaded : blade.lit)));
        }
}

void paintParts(QPainter& painter, std::span<const Part> parts) {
    for (const Part& part : parts) paintSprite(painter, part.x, part.y, part.sprite, part.from, part.to);
}

void paintBlades(QPainter& painter, std::span<const Blade> blades) {
    for (const Blade& blade : blades) paintBlade(painter, blade);
}

/// The line where a season's sky has reached its lower colour.
constexpr int horizon = 28;

/// What a season covers: ivory is left round it and round its index.
constexpr QRect scene(1, 1, faceWidth - 2, faceHeight - 2);
constexpr QRect plaque(0, 0, 6, 8);

void paintSeasonSprites(QPainter& painter, const Season& season) {
    painter.save();
    painter.setClipRect(scene, Qt::IntersectClip);
    for (int y = 0; y < faceHeight; ++y) {
        const double fall = std::min(1.0, static_cast<double>(y) / horizon);
        painter.fillRect(0, y, faceWidth, 1, QColor::fromRgb(materials::mix(season.high, season.low, fall)));
    }
    if (!season.light.empty()) paintRosette(painter, season.lightCentre, season.light);
    paintParts(painter, season.parts);
    paintBlades(painter, season.blades);
    painter.fillRect(plaque, QColor::fromRgb(paletteColour('w')));
    painter.restore();
}

void paintFlowerSprites(QPainter& painter, const Flower& flower) {
    paintParts(painter, flower.parts);
    if (!flower.bloom.empty()) paintRosette(painter, flower.bloomCentre, flower.bloom);
}

}  // namespace

void paintSeason(QPainter& painter, int number) {
    const Season& season = seasons[number - 1];
    if (materials::density > 1)
        paintFineSeason(painter, number, season.high, season.low);
    else
        paintSeasonSprites(painter, season);
    paintIndex(painter, 0, 0, digit(number), paletteColour('k'));
}

void paintFlower(QPainter& painter, int number) {
    const Flower& flower = flowers[number - 1];
    paintBlades(painter, flower.blades);
    if (materials::density > 1)
        paintFineFlower(painter, number);
    else
        paintFlowerSprites(painter, flower);
    paintIndex(painter, 0, 0, digit(number), paletteColour('v'));
}
