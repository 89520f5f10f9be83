// The game in a program that carries no picture: it says which are missing, each once, and can be played and closed.

#include <algorithm>

#include "platform/pictures.h"
#include "scoring/frmBreakDown.h"
#include "tests/gameFixture.h"

namespace platform {

std::span<const StoredPicture> storedPictures() { return {}; }
std::span<const uint32_t> storedPixels() { return {}; }

}  // namespace platform

namespace {

using WithoutPictures = GameFixture;

TEST_F(WithoutPictures, TheGameSaysSoOnceAndIsPlayedInTheDark) {
    EXPECT_EQ(game->form.scaleWidth(), 795);
    EXPECT_EQ(game->form.scaleHeight(), 581);
    EXPECT_EQ(game->tbrZQT.toolTip(Button::Exit), "Exit");
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

    std::vector<std::string> names;
    for (const std::string& message : sim::messages())
        names.push_back(message.substr(message.find(": Error 53 - File not found: picture ") + 37));
    std::ranges::sort(names);
    EXPECT_EQ(names, words("101 102 103 ImageList1 picAllTiles picHouse picHouseMask picLightning picLightningMask "
                           "picPass picPassMask picSmallHouse picSmallHouseMask picTableTop picTileBack "
                           "picTileBackMask"));
    EXPECT_THROW(sim::clickToolButton(Button::Exit), sim::ProcessEnded);
}

}  // namespace
