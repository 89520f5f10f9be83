// Pictures of higher densities, which lie in files beside the program.

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>
#include <set>

#include "platform/desktop.h"
#include "platform/pictures.h"
#include "presentation/commands.h"
#include "tests/tableFixture.h"

namespace {

using namespace platform;

constexpr uint32_t mark = 0xFF00FF00;

/// The colour of each pixel of a set, so that what is painted of it is like nothing else.
uint32_t colourAt(size_t pixel) { return 0xFF000000 | (static_cast<uint32_t>(pixel) * 0x9E3779B1 >> 8); }

/// A set of such pixels, but for the first of that picture, and so many bytes shorter than it should be.
void writeSet(int density, const Picture& marked, size_t missing) {
    const auto perPixel = static_cast<size_t>(density * density);
    std::vector<uint32_t> pixels(storedPixels().size() * perPixel);
    for (size_t i = 0; i < pixels.size(); ++i) pixels[i] = colourAt(i);
    pixels[static_cast<size_t>(marked.pixels - storedPixels().data()) * perPixel] = mark;
    std::ofstream(programFile("pictures-x" + std::to_string(density) + ".bin"), std::ios::binary)
        .write(reinterpret_cast<const char*>(pixels.data()),
               static_cast<std::streamsize>(pixels.size() * sizeof(uint32_t) - missing));
}

class DensityInPlay : public TableFixture {
  protected:
    using Seen = std::pair<std::vector<uint32_t>, std::multiset<std::string>>;  // pixels and texts

    /// The table after some landings at one density, and a step of the next tile and a strike at another.
    Seen tableAfter(int density, int lastDensity) {
        setDensity(density);
        startProgram();
        dealHand("c1 b2 w3 E f1 c9");
        command::togglePeek(*game);
        for (const int side : {key::Left, key::Right}) nextTile(), press(side, 3), drop();
        command::togglePeek(*game), nextTile();
        sim::runFor(1200);
        setDensity(lastDensity);
        sim::runFor(500);
        game->mblnLightningDue = true, game->msEndLightning();
        const Surface& table = game->form.surface();
        std::multiset<std::string> texts;
        for (const PrintedText& each : table.texts)
            texts.insert(each.text + " in " + std::to_string(each.left) + ',' + std::to_string(each.top));
        return {{table.row(0), table.row(0) + table.width() * lastDensity * table.height() * lastDensity}, texts};
    }
};

TEST_F(DensityInPlay, TheNextStepPaintsTheTableAtTheNewOne) {
    writeSet(2, pictureByName("102"), 0);
    ASSERT_EQ(densePixels(pictureByName("102"), 2).density, 2) << "it stays, whatever becomes of the file";
    const Seen always = tableAfter(2, 2), lately = tableAfter(1, 2);
    setDensity(1);
    EXPECT_TRUE(always == lately);
    EXPECT_EQ(lately.second.count("0 in 454,237"), 1u) << "the score";
}

TEST(Density, APictureIsTakenFromTheHighestSetThatIsThereAndWhole) {
    sim::switchOn(1);
    const Picture& picture = pictureByName("102");
    const uint32_t own = picture.pixels[0];
    writeSet(2, picture, 0);
    writeSet(3, picture, 1);
    ASSERT_EQ(::mkfifo(programFile("pictures-x4.bin").c_str(), S_IRUSR), 0) << "a pipe, which nobody writes to";
    const struct {
        int wanted, density;
        uint32_t first;
    } rows[] = {{1, 1, own}, {2, 2, mark}, {3, 2, mark}, {4, 2, mark}};
    for (const auto& row : rows) {
        const DensePixels dense = densePixels(picture, row.wanted);
        EXPECT_EQ(dense.density, row.density) << row.wanted;
        EXPECT_EQ(dense.pixels[0], row.first) << row.wanted;
    }

    Surface shown(picture);
    const Surface black(1, 1);
    BitBlt(shown, 5, 5, 1, 1, black, 0, 0, SRCCOPY);
    setDensity(2);
    EXPECT_EQ(*shown.row(0), mark) << "the background is crisp at once";
    EXPECT_EQ(shown.row(11)[11], 0xFF000000) << "and what was drawn on it is enlarged";
    const auto first = static_cast<size_t>(picture.pixels - storedPixels().data()) * 4;
    EXPECT_EQ(shown.row(11)[12], colourAt(first + static_cast<size_t>(11 * 2 * picture.width + 12)));
    setDensity(1);
    EXPECT_EQ(*shown.row(0), own);
}

}  // namespace
