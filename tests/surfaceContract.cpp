#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/surface.h"
#include "tests/contractDriver.h"

// What surfaces promise on every back end.

namespace {

using namespace platform;

constexpr int gridWidth = 8, gridHeight = 6;

/// A picture in which no two pixels are alike.
struct Grid {
    explicit Grid(uint32_t factor) {
        for (uint32_t i = 0; i < pixels.size(); ++i) pixels[i] = 0xFF000000 | ((i + 1) * factor & 0xFFFFFF);
    }

    std::vector<uint32_t> pixels = std::vector<uint32_t>(gridWidth * gridHeight);
    Picture picture{gridWidth, gridHeight, pixels.data()};
};

bool isOn(int x, int y) { return x >= 0 && y >= 0 && x < gridWidth && y < gridHeight; }

TEST(SurfaceContract, BitBltCombinesAndClips) {
    constexpr uint32_t unknown = 0x550009;
    struct {
        const char* what;
        int x, y, width, height, sourceX, sourceY;
    } const rects[] = {
        {"whole", 0, 0, gridWidth, gridHeight, 0, 0},
        {"inside", 2, 1, 3, 2, 4, 3},
        {"over the left", -3, 0, 5, 5, 0, 0},
        {"over the top", 0, -2, 5, 5, 1, 0},
        {"over the right", 6, 0, 5, 5, 0, 0},
        {"over the bottom", 0, 4, 5, 5, 0, 0},
        {"before the source", 1, 1, 6, 5, -2, -3},
        {"beyond the source", 0, 0, 8, 6, 5, 4},
        {"beside", 8, 0, 3, 3, 0, 0},
        {"above", 0, -9, 3, 3, 0, 0},
        {"nothing", 3, 3, 0, 3, 0, 0},
        {"less than nothing", 3, 3, -2, -2, 0, 0},
        {"too large", -50, -50, 100, 100, -50, -50},
    };
    const Grid under(0x10305), over(0x5070B);
    const Surface source(over.picture), before(under.picture);
    for (const auto& r : rects) {
        for (const uint32_t operation : {SRCCOPY, SRCAND, SRCPAINT, unknown}) {
            Surface surface(under.picture);
            BitBlt(surface, r.x, r.y, r.width, r.height, source, r.sourceX, r.sourceY, operation);
            for (int y = 0; y < gridHeight; ++y) {
                for (int x = 0; x < gridWidth; ++x) {
                    const int fromX = r.sourceX + x - r.x, fromY = r.sourceY + y - r.y;
                    const bool hit = x >= r.x && x < r.x + r.width && y >= r.y && y < r.y + r.height;
                    const Color old = before.point(x, y), from = source.point(fromX, fromY);
                    Color expected = old;
                    if (hit && isOn(fromX, fromY) && operation == SRCCOPY) expected = from;
                    if (hit && isOn(fromX, fromY) && operation == SRCAND) expected = old & from;
                    if (hit && isOn(fromX, fromY) && operation == SRCPAINT) expected = old | from;
                    ASSERT_EQ(surface.point(x, y), expected) << r.what << " at " << x << ", " << y;
                }
            }
        }
    }
}

TEST(SurfaceContract, ClearGivesTheBackgroundBack) {
    const Grid grid(0x10305);
    const Surface original(grid.picture), black(gridWidth, gridHeight);
    Surface surface(grid.picture);
    BitBlt(surface, 1, 1, 4, 4, black, 0, 0, SRCCOPY);
    EXPECT_EQ(surface.point(2, 2), 0U);
    surface.clear();
    EXPECT_EQ(surface.point(2, 2), original.point(2, 2));
    surface.resize(gridWidth + 2, gridHeight + 1);
    EXPECT_EQ(surface.point(2, 2), original.point(2, 2));
    EXPECT_EQ(*(surface.row(0) + gridWidth), 0xFF000000) << "beside the background lies black";
    EXPECT_EQ(*surface.row(gridHeight), 0xFF000000) << "and below it";
    EXPECT_EQ(surface.point(0, gridHeight + 1), 0U) << "outside";
}

int widthOf(const Font& font, const std::string& text) {
    Surface surface;
    surface.font = font;
    return surface.textWidth(text);
}

TEST(SurfaceContract, WidthFollowsFontAndText) {
    driver::begin();
    for (const char* name : {"Times New Roman", "Courier New", "Wonton ICG", "No Such Font"}) {
        const Font plain{name, 12, false}, large{name, 24, false};
        EXPECT_LT(widthOf(plain, "i"), widthOf(plain, "iW")) << name;
        EXPECT_LT(widthOf(plain, "iW"), widthOf(large, "iW")) << name;
        EXPECT_EQ(widthOf(plain, ""), 0) << name;
        EXPECT_LT(widthOf(plain, "\u00E9"), widthOf(plain, "ee")) << name << ": one letter of two bytes";
    }
    const Font typewriter{"Courier New", 14, false};
    EXPECT_EQ(widthOf(typewriter, "iiii"), widthOf(typewriter, "WWWW"));
}

}  // namespace
