#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "platform/surface.h"
#include "tests/contractDriver.h"

// What a text looks like on a surface where the back end draws it.

namespace {

using namespace platform;

constexpr int overhang = 4;  // pixels by which a slanted letter may lean out of its width

/// The bounds of what a text has changed on a white surface, and how many pixels.
struct Ink {
    int left = 1000, top = 1000, right = 0, count = 0;
    bool onlyRed = true;
};

Ink printed(const Font& font, const std::string& text, int x, int y) {
    const std::vector<uint32_t> white(120 * 60, 0xFFFFFFFF);
    Surface surface(Picture{120, 60, white.data()});
    surface.font = font;
    surface.foreColor = 0x0000FF;
    surface.currentX = x;
    surface.currentY = y;
    surface.print(text);
    Ink ink;
    for (int row = 0; row < surface.height(); ++row) {
        for (int column = 0; column < surface.width(); ++column) {
            const Color color = surface.point(column, row);
            if (color == 0xFFFFFF) continue;
            ink.left = std::min(ink.left, column);
            ink.top = std::min(ink.top, row);
            ink.right = std::max(ink.right, column);
            ++ink.count;
            ink.onlyRed = ink.onlyRed && (color & 0xFF) == 0xFF;
        }
    }
    return ink;
}

int widthOf(const Font& font, const std::string& text) {
    Surface surface;
    surface.font = font;
    return surface.textWidth(text);
}

TEST(DrawnText, StartsAtItsPlaceInItsFont) {
    driver::begin();
    for (const char* name : {"Times New Roman", "Courier New", "Wonton ICG", "No Such Font"}) {
        const Font plain{name, 12, false}, bold{name, 12, true};
        const Ink ink = printed(plain, "HE", 20, 15);
        EXPECT_GT(ink.count, 20) << name;
        EXPECT_GE(ink.left, 19) << name;
        EXPECT_LT(ink.left, 26) << name;
        EXPECT_GT(ink.right, 20 + widthOf(plain, "H")) << name;
        EXPECT_LE(ink.right, 20 + widthOf(plain, "HE") + overhang) << name;
        EXPECT_GE(ink.top, 15) << name;
        EXPECT_LT(ink.top, 26) << name;
        EXPECT_TRUE(ink.onlyRed) << name << " in another colour";
        EXPECT_GT(printed(bold, "HE", 20, 15).count, ink.count) << name << " bold";
        EXPECT_EQ(printed(plain, "", 20, 15).count, 0) << name;
    }
}

TEST(DrawnText, IsCutToItsSurface) {
    driver::begin();
    const Font font{"Times New Roman", 24, true};
    struct {
        int x, y;
        bool seen;
    } const rows[] = {{-10, -8, true}, {110, 40, true}, {200, 10, false}, {10, -200, false}, {-2000, 10, false}};
    for (const auto& row : rows) EXPECT_EQ(printed(font, "Wonton", row.x, row.y).count > 0, row.seen) << row.x;
}

}  // namespace
