#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <tuple>
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
    for (const auto& r : rects)
        for (const uint32_t operation : {SRCCOPY, SRCAND, SRCPAINT, unknown}) {
            Surface surface(under.picture);
            BitBlt(surface, r.x, r.y, r.width, r.height, source, r.sourceX, r.sourceY, operation);
            for (int i = 0; i < gridWidth * gridHeight; ++i) {
                const int x = i % gridWidth, y = i / gridWidth, fromX = r.sourceX + x - r.x,
                          fromY = r.sourceY + y - r.y;
                const bool hit = x >= r.x && x < r.x + r.width && y >= r.y && y < r.y + r.height;
                const Color old = before.point(x, y), from = source.point(fromX, fromY);
                Color expected = old;
                if (hit && isOn(fromX, fromY))
                    expected = operation == SRCCOPY    ? from
                               : operation == SRCAND   ? old & from
                               : operation == SRCPAINT ? old | from
                                                       : old;
                ASSERT_EQ(surface.point(x, y), expected) << r.what << " at " << x << ", " << y;
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
    surface.resize(gridWidth - 1, gridHeight);
    EXPECT_EQ(surface.point(2, 2), original.point(2, 2)) << "in its row also where it is narrower";
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

TEST(SurfaceContract, ACopyOfTheWholeIsWholeWhateverWasDrawnOnEither) {
    const Grid one(0x10305), two(0x5070B), three(0x30901);
    const Surface other(two.picture);
    Surface source(one.picture), destination(gridWidth - 1, gridHeight - 1), second(three.picture);
    uint32_t choice = 1;
    int x = 0, y = 0;
    const std::function<void(Surface&)> strokes[] = {
        [&](Surface& on) { BitBlt(on, x, y, 3, 2, other, y, x, SRCCOPY); },
        [&](Surface& on) { BitBlt(on, x, y, 3, 2, other, y, x, SRCAND); },
        [&](Surface& on) { BitBlt(on, x, y, 3, 2, other, y, x, SRCPAINT); },
        [&](Surface& on) {
            paintMasked(on, {x, y, 3, 2}, {other, y, x}, {other, x, y});
        },
        [&](Surface& on) { on.canvas()[choice >> 19 & 31] = 0xFF000000 | choice; },
        [&](Surface& on) { on.clear(); },
        [](Surface&) {},
    };
    for (int turn = 0; turn < 4000; ++turn) {
        const bool many = turn % 500 == 0;  // More than a surface remembers, and none that changes all of it.
        for (int left = many ? 300 : static_cast<int>(choice >> 20 & 3); left > 0; --left) {
            choice = choice * 1664525 + 1013904223;
            x = static_cast<int>(choice >> 11 & 7);
            y = static_cast<int>(choice >> 15 & 7);
            Surface* const surfaces[] = {&source, &destination, &second};
            strokes[(choice >> 3) % (many ? 4 : 7)](*surfaces[choice >> 28 & 1 ? 0 : (choice >> 26) % 3]);
        }
        if (turn % 97 == 0) source = Surface(turn % 2 == 0 ? one.picture : three.picture);
        if (turn % 61 == 0) destination.resize(gridWidth - turn % 2, gridHeight);
        const Surface& from = turn % 13 == 0 ? second : source;
        BitBlt(destination, 0, 0, from.width(), from.height(), from, 0, 0, SRCCOPY);
        const auto width = std::min(destination.width(), from.width());
        for (int line = 0; line < std::min(destination.height(), from.height()); ++line)
            ASSERT_TRUE(std::equal(from.row(line), from.row(line) + width, destination.row(line))) << "turn " << turn;
    }
}

std::vector<uint32_t> realPixels(const Surface& surface) {
    const uint32_t* const first = surface.row(0);
    return {first, first + surface.width() * surface.height() * density() * density()};
}

TEST(SurfaceContract, AtEachDensityAndAfterEachChangeOfItAllIsDrawnAsAtOne) {
    const Grid one(0x10305), two(0x5070B);
    const Surface other(two.picture);
    const std::function<void(Surface&)> strokes[] = {
        [&](Surface& on) { BitBlt(on, -1, 1, 3, 2, other, 1, 0, SRCCOPY); },
        [&](Surface& on) { BitBlt(on, 2, 2, 9, 3, other, 3, 1, SRCAND); },
        [&](Surface& on) { BitBlt(on, 1, -1, 4, 4, other, 0, 0, SRCPAINT); },
        [&](Surface& on) {
            paintMasked(on, {4, 1, 3, 2}, {other, 2, 1}, {other, 1, 3});
        },
        [&](Surface& on) {
            Surface copy(gridWidth, gridHeight);
            BitBlt(copy, 0, 0, gridWidth, gridHeight, on, 0, 0, SRCCOPY);
            BitBlt(on, 1, 1, gridWidth, gridHeight, copy, 0, 0, SRCCOPY);
        },
    };
    Surface plain(one.picture);
    for (const auto& stroke : strokes) stroke(plain);
    const std::vector<uint32_t> expected = realPixels(plain);
    for (int dense = 1; dense <= highestDensity; ++dense)
        for (size_t change = 0; change <= std::size(strokes); ++change) {
            setDensity(1);
            Surface surface(one.picture);
            for (size_t i = 0; i <= std::size(strokes); ++i) {
                if (i == change) setDensity(dense);
                if (i < std::size(strokes)) strokes[i](surface);
            }
            const std::vector<uint32_t> seen = realPixels(surface);
            for (size_t i = 0; i < seen.size(); ++i) {
                const size_t row = i / (gridWidth * dense) / dense, column = i % (gridWidth * dense) / dense;
                ASSERT_EQ(seen[i], expected[row * gridWidth + column]) << dense << " from stroke " << change;
            }
            EXPECT_EQ(surface.point(7, 5), plain.point(7, 5));
            setDensity(1);
            EXPECT_EQ(realPixels(surface), expected) << dense << " from stroke " << change << " and back";
        }
}

TEST(SurfaceContract, WhatHasChangedIsKnownAndNothingElse) {
    const Grid one(0x10305), two(0x5070B);
    const Surface other(two.picture), mask(gridWidth, gridHeight);  // the mask is black all over
    Surface surface(one.picture);
    const auto drawsMuch = [&] {
        for (int i = 0; i < 33; ++i)
            for (const Surface* const each : {&mask, &other}) BitBlt(surface, i % 4, 0, 1, 1, *each, 0, 0, SRCCOPY);
    };
    const auto paintsMasked = [&] { paintMasked(surface, {5, 0, 2, 2}, {mask, 0, 0}, {other, 0, 0}); };
    struct {
        const char* what;
        std::function<void()> draws;
        std::vector<Place> changed;
    } const cases[] = {
        {"a copy", [&] { BitBlt(surface, 1, 2, 3, 2, other, 0, 0, SRCCOPY); }, {{1, 2, 3, 2}}},
        {"the same copy", [&] { BitBlt(surface, 1, 2, 3, 2, other, 0, 0, SRCCOPY); }, {}},
        {"a masked picture", paintsMasked, {{5, 0, 2, 2}}},
        {"the same picture", paintsMasked, {}},
        {"a cut one", [&] { BitBlt(surface, -1, -1, 2, 2, mask, 0, 0, SRCAND); }, {{0, 0, 1, 1}}},
        {"nothing", [] {}, {}},
        {"a clear", [&] { surface.clear(); }, {{0, 0, gridWidth, gridHeight}}},
        {"more than it remembers", drawsMuch, {{0, 0, gridWidth, gridHeight}}},
    };
    for (const auto& row : cases) {
        const Changes::Moment before = surface.changes().now();
        row.draws();
        std::vector<Place> changed;
        surface.changes().collect(before, {0, 0, gridWidth, gridHeight}, changed);
        EXPECT_TRUE(std::ranges::equal(changed, row.changed, [](const Place& a, const Place& b) {
            return std::tie(a.left, a.top, a.width, a.height) == std::tie(b.left, b.top, b.width, b.height);
        })) << row.what;
    }
}

}  // namespace
