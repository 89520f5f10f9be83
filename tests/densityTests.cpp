// Pictures of higher densities, which lie in files beside the program.

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>

#include "platform/desktop.h"
#include "platform/pictures.h"
#include "presentation/commands.h"
#include "tests/gameFixture.h"

namespace {

using namespace platform;

constexpr uint32_t mark = 0xFF00FF00;

/// A set whose pixels are all of one colour, but for the first of that picture, and a byte shorter than it should be.
void writeSet(int density, const Picture& marked, size_t missing) {
    const auto perPixel = static_cast<size_t>(density * density);
    std::vector<uint32_t> pixels(storedPixels().size() * perPixel, 0xFF0000FF);
    pixels[static_cast<size_t>(marked.pixels - storedPixels().data()) * perPixel] = mark;
    std::ofstream(programFile("pictures-x" + std::to_string(density) + ".bin"), std::ios::binary)
        .write(reinterpret_cast<const char*>(pixels.data()),
               static_cast<std::streamsize>(pixels.size() * sizeof(uint32_t) - missing));
}

class DensityInPlay : public GameFixture {
  protected:
    /// The table after some landings at one density and a step of the next tile at another.
    std::vector<uint32_t> tableAfter(int density, int lastDensity) {
        setDensity(density);
        startProgram();
        dealHand("c1 b2 w3 E f1 c9");
        game->mblnPeek = true;
        land("c1", 2), land("b2", 7), land("f1", 9);
        command::togglePeek(*game), nextTile();
        sim::runFor(1200);
        setDensity(lastDensity);
        sim::runFor(500);
        const uint32_t* const first = game->form.surface().row(0);
        return {first,
                first + game->form.surface().width() * lastDensity * game->form.surface().height() * lastDensity};
    }
};

TEST_F(DensityInPlay, TheNextStepPaintsTheTableAtTheNewOne) {
    writeSet(2, pictureByName("102"), 0);
    ASSERT_EQ(densePixels(pictureByName("102"), 2).density, 2) << "it stays, whatever becomes of the file";
    const std::vector<uint32_t> always = tableAfter(2, 2), lately = tableAfter(1, 2);
    setDensity(1);
    EXPECT_TRUE(always == lately);
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
    EXPECT_EQ(shown.row(11)[12], 0xFF0000FF);
    setDensity(1);
    EXPECT_EQ(*shown.row(0), own);
}

}  // namespace
