// What the game relies on in the committed pictures: sizes, masks, outlines and places.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>

#include "tools/png.h"

namespace {

constexpr uint32_t black = 0xFF000000;
constexpr uint32_t white = 0xFFFFFFFF;
constexpr int tileWidth = 30;
constexpr int tileHeight = 39;
constexpr int viewCount = 3;

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

    constexpr bool holds(int atX, int atY) const { return atX >= x && atX < x + width && atY >= y && atY < y + height; }
};

/// Counts the pixels of a rectangle for which holds(x, y) is true.
template <typename Holds>
int countOf(const Rect& rect, Holds holds) {
    int count = 0;
    for (int y = rect.y; y < rect.y + rect.height; ++y)
        for (int x = rect.x; x < rect.x + rect.width; ++x) count += holds(x, y) ? 1 : 0;
    return count;
}

TEST(Pictures, haveTheirSizesIn24Bits) {
    const struct {
        const char* name;
        int width, height;
    } sheets[] = {{"picAllTiles", 1260, 117},
                  {"picTileBackMask", 30, 117},
                  {"picTileBack", 30, 117},
                  {"picTableTop", 64, 64},
                  {"picHouse", 256, 132},
                  {"picHouseMask", 64, 66},
                  {"picSmallHouse", 64, 32},
                  {"picSmallHouseMask", 16, 16},
                  {"picLightning", 200, 233},
                  {"picPass", 90, 39},
                  {"picLightningMask", 200, 233},
                  {"picPassMask", 90, 39},
                  {"101", 800, 600},
                  {"102", 667, 329},
                  {"103", 256, 256},
                  {"104", 500, 350},
                  {"ImageList1", 224, 16}};
    for (const auto& sheet : sheets) {
        const PngImage& image = picture(sheet.name);
        EXPECT_EQ(image.width, sheet.width) << sheet.name;
        EXPECT_EQ(image.height, sheet.height) << sheet.name;
        EXPECT_TRUE(image.trueColour24) << sheet.name;
    }
}

TEST(Pictures, areBlackWhereTheirMaskIsWhite) {
    const struct {
        const char *picture, *mask;
    } pairs[] = {{"picAllTiles", "picTileBackMask"},
                 {"picTileBack", "picTileBackMask"},
                 {"picHouse", "picHouseMask"},
                 {"picSmallHouse", "picSmallHouseMask"},
                 {"picPass", "picPassMask"}};
    for (const auto& pair : pairs) {
        const PngImage& image = picture(pair.picture);
        const PngImage& mask = picture(pair.mask);
        const auto pixels = [&](uint32_t colour, bool blackOnly) {  // where the mask has that colour
            return countOf({0, 0, image.width, image.height}, [&](int x, int y) {
                return mask.at(x % mask.width, y % mask.height) == colour && (!blackOnly || image.at(x, y) == black);
            });
        };
        EXPECT_EQ(pixels(black, false) + pixels(white, false), image.width * image.height) << pair.mask;
        EXPECT_EQ(pixels(white, true), pixels(white, false)) << pair.picture;
        for (const uint32_t colour : {black, white}) EXPECT_GT(pixels(colour, false), 0) << pair.mask;
    }
}

TEST(Pictures, tilesHaveTheOutlineOfTheirView) {
    const PngImage& mask = picture("picTileBackMask");
    for (int view = 0; view < viewCount; ++view)
        for (int line = 0; line < tileHeight; ++line) {
            const int far = std::max(0, 3 - line), near = std::max(0, line - tileHeight + 3);  // pixels left out
            const int corner = line == 0 || line == tileHeight - 1 ? 1 : 0;
            const int left = view == 0   ? corner
                             : view == 1 ? near
                                         : far,
                      right = view == 0 ? corner : far + near - left;
            const Rect row = {0, view * tileHeight + line, tileWidth, 1},
                       shown = {left, row.y, tileWidth - left - right, 1};
            EXPECT_EQ(countOf(row, [&](int x, int y) { return (mask.at(x, y) == black) != shown.holds(x, y); }), 0)
                << "view " << view << ", line " << line;
        }
}

TEST(Pictures, lightningMaskIsTheComplement) {
    const PngImage& bolt = picture("picLightning");
    const PngImage& mask = picture("picLightningMask");
    const Rect all = {0, 0, bolt.width, bolt.height};
    EXPECT_EQ(countOf(all, [&](int x, int y) { return (bolt.at(x, y) ^ mask.at(x, y)) != (white ^ black); }), 0);
    EXPECT_GT(countOf(all, [&](int x, int y) { return bolt.at(x, y) != black; }), 0);
}

TEST(Table, frameEndsExactlyAtTheBoard) {
    constexpr Rect around = {10, 34, 332, 527}, outer = {21, 44, 310, 507}, board = {40, 63, 270, 468};
    const auto isWrong = [&](int x, int y) {
        const uint32_t colour = picture("101").at(x, y);
        const bool isRed = red(colour) > std::max(green(colour), blue(colour));
        return isRed != (outer.holds(x, y) && !board.holds(x, y));
    };
    EXPECT_EQ(countOf(around, isWrong), 0);
}

TEST(Table, labelsStandInTheirRows) {
    constexpr Rect labels[] = {
        {353, 45, 447, 24}, {353, 99, 447, 23}, {353, 242, 447, 23}, {353, 323, 447, 22}, {353, 403, 447, 24}};
    const auto magentaIn = [](const Rect& rect) {
        return countOf(rect, [](int x, int y) {
            const uint32_t colour = picture("101").at(x, y);
            return red(colour) > 120 && std::min(red(colour), blue(colour)) > 2 * green(colour);
        });
    };
    int inLabels = 0;
    for (const auto& [x, y, width, height] : labels) {
        inLabels += magentaIn({x, y, width, height});
        for (const Rect& edge : {Rect{x, y, width, 1}, {x, y + height - 1, width, 1}, {x, y, 1, height}})
            EXPECT_GT(magentaIn(edge), 0) << "nothing from " << edge.x << ", " << edge.y;
    }
    EXPECT_EQ(magentaIn({331, 0, 469, 600}), inLabels) << "magenta outside the labels";
}

TEST(Table, smallTableLeavesNoSeam) {
    const PngImage& table = picture("101");
    const PngImage& top = picture("picTableTop");
    const Rect all = {0, 0, top.width, top.height};
    EXPECT_EQ(countOf(all, [&](int x, int y) { return top.at(x, y) != table.at(592 + x, 304 + y); }), 0);
}

}  // namespace
