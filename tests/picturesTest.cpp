// What the game relies on in the committed pictures: sizes, masks, outlines, places, and faces that can't be confused.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <map>
#include <string>
#include <vector>

#include "tools/png.h"

namespace {

constexpr uint32_t black = 0xFF000000;
constexpr uint32_t white = 0xFFFFFFFF;
constexpr int tileWidth = 30;
constexpr int tileHeight = 39;
constexpr int viewCount = 3;
constexpr int faceCount = 42;

const PngImage& picture(const std::string& name) {
    static std::map<std::string, PngImage> pictures;
    const auto [entry, isNew] = pictures.try_emplace(name);
    if (isNew) entry->second = readPng(std::string(VELMORA_ASSETS "/pictures/") + name + ".png");
    return entry->second;
}

int red(uint32_t colour) { return colour >> 16 & 0xFF; }
int green(uint32_t colour) { return colour >> 8 & 0xFF; }
int blue(uint32_t colour) { return colour & 0xFF; }

struct Rect {
    int x, y, width, height;
};

/// Calls look(x, y) at every pixel of a rectangle.
template <typename Look>
void everyPixel(const Rect& rect, Look look) {
    for (int y = rect.y; y < rect.y + rect.height; ++y)
        for (int x = rect.x; x < rect.x + rect.width; ++x) look(x, y);
}

/// Counts the pixels of a rectangle for which holds(x, y) is true.
template <typename Holds>
int countOf(const Rect& rect, Holds holds) {
    int count = 0;
    everyPixel(rect, [&](int x, int y) { count += holds(x, y) ? 1 : 0; });
    return count;
}

TEST(Pictures, haveTheirSizesIn24Bits) {
    struct Sheet {
        const char* name;
        int width, height;
    };
    constexpr std::array sheets = {
        Sheet{"picAllTiles", 1260, 117},
        Sheet{"picTileBackMask", 30, 117},
        Sheet{"picTileBack", 30, 117},
        Sheet{"picTableTop", 64, 64},
        Sheet{"picHouse", 256, 132},
        Sheet{"picHouseMask", 64, 66},
        Sheet{"picSmallHouse", 64, 32},
        Sheet{"picSmallHouseMask", 16, 16},
        Sheet{"picLightning", 200, 233},
        Sheet{"picPass", 90, 39},
        Sheet{"picLightningMask", 200, 233},
        Sheet{"picPassMask", 90, 39},
        Sheet{"101", 800, 600},
        Sheet{"102", 667, 329},
        Sheet{"103", 256, 256},
        Sheet{"104", 500, 350},
        Sheet{"ImageList1", 224, 16},
    };
    for (const Sheet& sheet : sheets) {
        SCOPED_TRACE(sheet.name);
        const PngImage& image = picture(sheet.name);
        EXPECT_EQ(image.width, sheet.width);
        EXPECT_EQ(image.height, sheet.height);
        EXPECT_TRUE(image.trueColour24);
    }
}

TEST(Pictures, areBlackWhereTheirMaskIsWhite) {
    struct Pair {
        const char *picture, *mask;
    };
    constexpr std::array pairs = {Pair{"picAllTiles", "picTileBackMask"}, Pair{"picTileBack", "picTileBackMask"},
                                  Pair{"picHouse", "picHouseMask"}, Pair{"picSmallHouse", "picSmallHouseMask"},
                                  Pair{"picPass", "picPassMask"}};
    for (const Pair& pair : pairs) {
        SCOPED_TRACE(pair.picture);
        const PngImage& image = picture(pair.picture);
        const PngImage& mask = picture(pair.mask);
        const Rect all = {0, 0, image.width, image.height};
        const auto maskAt = [&](int x, int y) { return mask.at(x % mask.width, y % mask.height); };
        const int shown = countOf(all, [&](int x, int y) { return maskAt(x, y) == black; });
        const int kept = countOf(all, [&](int x, int y) { return maskAt(x, y) == white; });
        EXPECT_EQ(shown + kept, image.width * image.height) << "a mask colour that is neither black nor white";
        EXPECT_GT(shown, 0);
        EXPECT_GT(kept, 0);
        EXPECT_EQ(countOf(all, [&](int x, int y) { return maskAt(x, y) == white && image.at(x, y) != black; }), 0);
        EXPECT_LT(countOf(all, [&](int x, int y) { return maskAt(x, y) == black && image.at(x, y) == black; }),
                  shown / 10);
    }
}

/// Pixels left out at the left and the right of a line.
struct Cut {
    int left, right;
};

Cut cutOf(int view, int line) {
    const int fromBottom = tileHeight - 1 - line;
    const int far = std::max(0, 3 - line);
    const int near = std::max(0, 2 - fromBottom);
    if (view == 0) return line == 0 || fromBottom == 0 ? Cut{1, 1} : Cut{0, 0};
    return view == 1 ? Cut{near, far} : Cut{far, near};
}

TEST(Pictures, tilesHaveTheOutlineOfTheirView) {
    const PngImage& mask = picture("picTileBackMask");
    for (int view = 0; view < viewCount; ++view)
        for (int line = 0; line < tileHeight; ++line) {
            const Cut cut = cutOf(view, line);
            for (int x = 0; x < tileWidth; ++x)
                EXPECT_EQ(mask.at(x, view * tileHeight + line) == black, x >= cut.left && x < tileWidth - cut.right)
                    << "view " << view << ", line " << line << ", x " << x;
        }
}

TEST(Pictures, tilesAreDarkerAlongTheirSide) {
    struct Band {
        int view, band, edgeOfFront;
    };
    constexpr int bandWidth = 3;
    constexpr std::array bands = {Band{1, tileWidth - bandWidth, tileWidth - bandWidth - 2}, Band{2, 0, bandWidth}};
    const auto lightOf = [](const Rect& rect) {
        int sum = 0;
        everyPixel(rect, [&](int x, int y) { sum += green(picture("picAllTiles").at(x, y)); });
        return sum / (rect.width * rect.height);
    };
    for (const Band& band : bands)
        for (int face = 0; face < faceCount; ++face) {
            const int top = band.view * tileHeight + bandWidth;
            const int height = tileHeight - 2 * bandWidth;
            EXPECT_LT(lightOf({face * tileWidth + band.band, top, bandWidth, height}),
                      lightOf({face * tileWidth + band.edgeOfFront, top, 1, height}))
                << "face " << face << ", view " << band.view;
        }
}

TEST(Pictures, lightningMaskIsTheComplement) {
    const PngImage& bolt = picture("picLightning");
    const PngImage& mask = picture("picLightningMask");
    EXPECT_EQ(countOf({0, 0, bolt.width, bolt.height},
                      [&](int x, int y) { return (bolt.at(x, y) ^ mask.at(x, y)) != (white ^ black); }),
              0);
    EXPECT_GT(countOf({0, 0, bolt.width, bolt.height}, [&](int x, int y) { return bolt.at(x, y) != black; }), 0);
}

TEST(Table, frameEndsExactlyAtTheBoard) {
    struct Strip {
        const char* name;
        Rect rect;
        bool frame;
    };
    constexpr std::array strips = {
        Strip{"left band", {21, 63, 19, 468}, true},     Strip{"right band", {310, 63, 21, 468}, true},
        Strip{"upper band", {40, 44, 270, 19}, true},    Strip{"lower band", {40, 531, 270, 20}, true},
        Strip{"board", {40, 63, 270, 468}, false},       Strip{"left of it", {10, 63, 11, 468}, false},
        Strip{"right of it", {331, 63, 11, 468}, false}, Strip{"above it", {40, 34, 270, 10}, false},
        Strip{"below it", {40, 551, 270, 10}, false},
    };
    const PngImage& table = picture("101");
    for (const Strip& strip : strips) {
        const int redder = countOf(strip.rect, [&](int x, int y) {
            return red(table.at(x, y)) > green(table.at(x, y)) && red(table.at(x, y)) > blue(table.at(x, y));
        });
        EXPECT_EQ(redder, strip.frame ? strip.rect.width * strip.rect.height : 0) << strip.name;
    }
}

TEST(Table, labelsStandInTheirRows) {
    struct Label {
        const char* words;
        int first, last;
        int gaps;
    };
    constexpr std::array labels = {Label{"Next Tile", 45, 68, 1}, Label{"Tiles In Possession", 99, 121, 2},
                                   Label{"Score", 242, 264, 0}, Label{"Round", 323, 344, 0},
                                   Label{"Select Tiles", 403, 426, 1}};
    constexpr int left = 353;
    constexpr int wordGap = 5;
    constexpr Rect right = {331, 0, 469, 600};
    const PngImage& table = picture("101");
    const auto magenta = [&](int x, int y) {
        const uint32_t colour = table.at(x, y);
        return red(colour) > 120 && std::min(red(colour), blue(colour)) > 2 * green(colour);
    };
    int inLabels = 0;
    for (const Label& label : labels) {
        SCOPED_TRACE(label.words);
        const int height = label.last - label.first + 1;
        const auto inkOf = [&](int x) { return countOf({x, label.first, 1, height}, magenta); };
        inLabels += countOf({right.x, label.first, right.width, height}, magenta);
        EXPECT_GT(countOf({right.x, label.first, right.width, 1}, magenta), 0);
        EXPECT_GT(countOf({right.x, label.last, right.width, 1}, magenta), 0);
        EXPECT_EQ(countOf({right.x, label.first, left - right.x, height}, magenta), 0);
        EXPECT_GT(inkOf(left), 0);
        int gaps = 0;
        int blank = 0;
        for (int x = left; x < right.x + right.width; ++x) {
            if (inkOf(x) > 0) gaps += blank >= wordGap ? 1 : 0;
            blank = inkOf(x) > 0 ? 0 : blank + 1;
        }
        EXPECT_EQ(gaps, label.gaps) << "words run together or fall apart";
    }
    EXPECT_EQ(countOf(right, magenta), inLabels) << "magenta outside the rows of the labels";
}

TEST(Table, smallTableLeavesNoSeam) {
    constexpr int left = 592;
    constexpr int upper = 304;
    const PngImage& table = picture("101");
    const PngImage& top = picture("picTableTop");
    EXPECT_EQ(countOf({0, 0, top.width, top.height},
                      [&](int x, int y) { return top.at(x, y) != table.at(left + x, upper + y); }),
              0);
}

TEST(Backgrounds, areCalmWhereTextIsPrinted) {
    struct Place {
        const char* name;
        Rect rect;
        int rows, pitch;
    };
    constexpr std::array places = {
        Place{"101", {452, 236, 136, 28}, 1, 0}, Place{"102", {37, 54, 195, 21}, 6, 38},
        Place{"102", {248, 54, 74, 21}, 6, 38},  Place{"102", {353, 54, 195, 21}, 6, 38},
        Place{"102", {565, 54, 74, 21}, 6, 38},  Place{"102", {207, 283, 110, 21}, 1, 0},
        Place{"102", {519, 283, 110, 21}, 1, 0}, Place{"104", {65, 137, 160, 21}, 5, 32},
        Place{"104", {229, 137, 60, 21}, 5, 32}, Place{"104", {321, 137, 30, 21}, 5, 32},
        Place{"104", {360, 137, 86, 21}, 5, 32},
    };
    constexpr int loudestStep = 12;
    for (const Place& place : places)
        for (int row = 0; row < place.rows; ++row) {
            const PngImage& image = picture(place.name);
            const auto step = [&](int x, int y) {
                const int here = green(image.at(x, y));
                return std::max(std::abs(here - green(image.at(x + 1, y))), std::abs(here - green(image.at(x, y + 1))));
            };
            int loudest = 0;
            Rect rect = place.rect;
            rect.y += row * place.pitch;
            everyPixel(rect, [&](int x, int y) { loudest = std::max(loudest, step(x, y)); });
            EXPECT_LE(loudest, loudestStep) << place.name << " at " << rect.x << ", " << rect.y;
        }
}

using Colour = std::array<double, 3>;
using Face = std::array<Colour, tileWidth * tileHeight>;

/// How an eye mixes linear red, green and blue.
struct Eye {
    const char* name;
    std::array<Colour, 3> rows;
};
constexpr std::array<Eye, 4> eyes = {{
    {"full colour", {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}},
    {"no red", {{{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}}}},
    {"no green", {{{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}}}},
    {"no blue", {{{1.255528, -0.076749, -0.178779}, {-0.078411, 0.930809, 0.147602}, {0.004733, 0.691367, 0.303900}}}},
}};

double linear(int channel) { return std::pow(channel / 255.0, 2.2); }
double shown(double light) { return 255 * std::pow(std::clamp(light, 0.0, 1.0), 1 / 2.2); }

Colour seenBy(const Eye& eye, uint32_t colour) {
    const Colour light = {linear(red(colour)), linear(green(colour)), linear(blue(colour))};
    Colour seen{};
    for (size_t i = 0; i < seen.size(); ++i)
        seen[i] = shown(eye.rows[i][0] * light[0] + eye.rows[i][1] * light[1] + eye.rows[i][2] * light[2]);
    return seen;
}

/// A face as it looks from some way off: each pixel the mean of itself and its neighbours.
Face faceSeenBy(const Eye& eye, int kind, int view) {
    const Rect whole = {0, 0, tileWidth, tileHeight};
    Face sharp{};
    everyPixel(whole, [&](int x, int y) {
        sharp[y * tileWidth + x] = seenBy(eye, picture("picAllTiles").at(kind * tileWidth + x, view * tileHeight + y));
    });
    Face soft{};
    everyPixel({1, 1, tileWidth - 2, tileHeight - 2}, [&](int x, int y) {
        everyPixel({x - 1, y - 1, 3, 3}, [&](int nearX, int nearY) {
            for (size_t i = 0; i < 3; ++i) soft[y * tileWidth + x][i] += sharp[nearY * tileWidth + nearX][i] / 9;
        });
    });
    return soft;
}

/// The root mean square difference of two faces, in steps of 255.
double distanceOf(const Face& one, const Face& other) {
    double sum = 0;
    for (size_t pixel = 0; pixel < one.size(); ++pixel)
        for (size_t i = 0; i < 3; ++i) sum += std::pow(one[pixel][i] - other[pixel][i], 2);
    return std::sqrt(sum / (3.0 * one.size()));
}

TEST(Faces, differClearlyForEveryEye) {
    constexpr double leastDistance = 20;
    for (const Eye& eye : eyes)
        for (int view = 0; view < viewCount; ++view) {
            std::vector<Face> faces;
            for (int kind = 0; kind < faceCount; ++kind) faces.push_back(faceSeenBy(eye, kind, view));
            for (int one = 0; one < faceCount; ++one)
                for (int other = one + 1; other < faceCount; ++other)
                    EXPECT_GE(distanceOf(faces[one], faces[other]), leastDistance)
                        << "faces " << one << " and " << other << ", view " << view << ", " << eye.name;
        }
}

}  // namespace
