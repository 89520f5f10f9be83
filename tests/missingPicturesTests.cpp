// The game in a program that carries no picture: it says which are missing, each once, and can be played and closed.

#include <algorithm>

#include "platform/pictures.h"
#include "scoring/frmBreakDown.h"
#include "tests/gameFixture.h"

namespace platform {

std::span<const StoredPicture> storedPictures() { return {}; }

}  // namespace platform

namespace {

class WithoutPictures : public GameFixture {
  protected:
    /// The names of the pictures that were reported so far, in their order.
    static std::vector<std::string> reported() {
        const std::string text = "Error 53 - File not found: picture ";
        std::vector<std::string> names;
        for (const std::string& message : sim::messages()) {
            const size_t at = message.find(text);
            names.push_back(at == std::string::npos ? message : message.substr(at + text.size()));
        }
        return names;
    }
};

TEST_F(WithoutPictures, TheWindowSaysSoOnceAndCanBeClosed) {
    EXPECT_EQ(game->form.scaleWidth(), 795);
    EXPECT_EQ(game->form.scaleHeight(), 581);
    EXPECT_EQ(game->tbrZQT.toolTip(Button::Exit), "Exit");
    sim::runFor(1000);
    std::vector<std::string> names = reported();
    std::sort(names.begin(), names.end());
    const std::vector<std::string> expected = {"101",          "ImageList1",     "picAllTiles",       "picHouse",
                                               "picHouseMask", "picLightning",   "picLightningMask",  "picPass",
                                               "picPassMask",  "picSmallHouse",  "picSmallHouseMask", "picTableTop",
                                               "picTileBack",  "picTileBackMask"};
    EXPECT_EQ(names, expected);
    EXPECT_THROW(sim::clickToolButton(Button::Exit), sim::ProcessEnded);
}

TEST_F(WithoutPictures, AMatchIsPlayedInTheDark) {
    const size_t before = sim::messages().size();
    startMatch();
    EXPECT_GE(game->mlngSeat, 1);
    EXPECT_LE(game->mlngSeat, 4);
    sim::runFor(6000);
    EXPECT_NE(board(), "") << "the first tile has landed";
    setBoard("c1 c2");
    answers = "1";
    land("c3", 3);
    EXPECT_EQ(game->mintHandCount, 3);

    sim::setHands([] {
        if (gfrmBreakDown.isOpen()) sim::pressKey(platform::key::Enter);
    });
    gfrmBreakDown.showModal();
    EXPECT_TRUE(gfrmBreakDown.empty());
    const auto names = reported();
    EXPECT_EQ(std::vector<std::string>(names.begin() + static_cast<std::ptrdiff_t>(before), names.end()),
              (std::vector<std::string>{"103", "102"}));
}

}  // namespace
