#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "platform/surface.h"
#include "tests/contractDriver.h"

// The list of texts on a surface where the back end writes them down instead of drawing them.

namespace {

using namespace platform;

Surface surfaceWith(const std::vector<std::pair<PixelPoint, std::string>>& texts) {
    Surface surface(100, 50);
    for (const auto& [place, text] : texts) {
        surface.currentX = place.X;
        surface.currentY = place.Y;
        surface.print(text);
    }
    return surface;
}

/// The texts with their places, in one line.
std::string listOf(const Surface& surface) {
    std::string list;
    for (const PrintedText& text : surface.texts)
        list += text.text + " " + std::to_string(text.left) + " " + std::to_string(text.top) + ", ";
    return list;
}

TEST(WrittenText, HoldsAllThatIsSeenOfAText) {
    driver::begin();
    Surface surface(100, 50);
    surface.font = {"Courier New", 14, true};
    surface.foreColor = 0xFF;
    surface.currentX = 7;
    surface.currentY = 9;
    surface.print("120");
    ASSERT_EQ(surface.texts.size(), 1U);
    const PrintedText& text = surface.texts[0];
    EXPECT_EQ(text.text, "120");
    EXPECT_EQ(text.left, 7);
    EXPECT_EQ(text.top, 9);
    EXPECT_EQ(text.font.name, "Courier New");
    EXPECT_EQ(text.font.points, 14);
    EXPECT_TRUE(text.font.bold);
    EXPECT_EQ(text.color, 0xFFU);
    EXPECT_EQ(surface.textWidth("120"), 3 * 10) << "two thirds of a pixel a point, and one pixel more if bold";
}

TEST(WrittenText, GoesWithTheDrawing) {
    driver::begin();
    const std::vector<uint32_t> pixels(4);
    const Picture picture{2, 2, pixels.data()};
    struct {
        const char* what;
        void (*change)(Surface&, const Picture&);
        const char* left;
    } const rows[] = {
        {"nothing", [](Surface&, const Picture&) {}, "East 10 20, Points 60 5, "},
        {"clear", [](Surface& surface, const Picture&) { surface.clear(); }, ""},
        {"another size", [](Surface& surface, const Picture&) { surface.resize(200, 100); }, ""},
        {"another picture", [](Surface& surface, const Picture& other) { surface.setPicture(other); }, ""},
        {"a picture over one text",
         [](Surface& surface, const Picture&) { BitBlt(surface, 10, 20, 5, 5, Surface(5, 5), 0, 0, SRCCOPY); },
         "Points 60 5, "},
        {"a picture beside them",
         [](Surface& surface, const Picture&) { BitBlt(surface, 11, 20, 49, 5, Surface(49, 5), 0, 0, SRCCOPY); },
         "East 10 20, Points 60 5, "},
        {"a mask over one text",
         [](Surface& surface, const Picture&) { BitBlt(surface, 10, 20, 5, 5, Surface(5, 5), 0, 0, SRCAND); },
         "East 10 20, Points 60 5, "},
        {"a copy within itself",
         [](Surface& surface, const Picture&) { BitBlt(surface, 50, 15, 20, 10, surface, 5, 15, SRCCOPY); },
         "East 10 20, Points 60 5, East 55 20, "},
    };
    for (const auto& row : rows) {
        Surface surface = surfaceWith({{{10, 20}, "East"}, {{60, 5}, "Points"}});
        row.change(surface, picture);
        EXPECT_EQ(listOf(surface), row.left) << row.what;
    }
}

TEST(WrittenText, IsCopiedWithItsPixels) {
    driver::begin();
    const Surface from = surfaceWith({{{10, 20}, "East"}, {{60, 5}, "Points"}});
    Surface to = surfaceWith({{{4, 4}, "under"}, {{90, 40}, "beside"}});
    BitBlt(to, 0, 0, 50, 30, from, 5, 15, SRCCOPY);
    EXPECT_EQ(listOf(to), "beside 90 40, East 5 5, ");
    BitBlt(to, 40, 30, 100, 100, from, 0, 0, SRCCOPY);
    EXPECT_EQ(listOf(to), "East 5 5, ") << "nothing begins on what was cut off";
    EXPECT_EQ(listOf(Surface(from)), listOf(from));
}

}  // namespace
