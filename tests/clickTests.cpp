// What the pointer does in the dialogs that Enter answers.

#include "forms/frmAbout.h"
#include "hiscores/frmHiScore.h"
#include "match/frmChooseSeat.h"
#include "match/frmGameSummary.h"
#include "modZQT.h"
#include "platform/sim/simulation.h"
#include "presentation/buttons.h"
#include "scoring/frmBreakDown.h"
#include "tests/gameFixture.h"

namespace {

using Clicks = GameFixture;

struct Pixel {
    int x, y;
};

TEST_F(Clicks, AClickDrawsTheTileUnderIt) {
    const int lefts[] = {47, 89, 131, 173};  // of the frames, 36 wide and 45 high from 105
    for (int tile = 1; tile <= 4; ++tile) {
        int expected = 0;
        sim::setHands([&] {
            if (!gfrmChooseSeat.isOpen() || gfrmChooseSeat->mblnDrawn) return;
            const int left = lefts[tile - 1];
            for (const Pixel beside : {Pixel{left - 1, 120}, Pixel{left + 36, 120}, Pixel{left, 104}, Pixel{left, 150}})
                sim::clickAt(beside.x, beside.y);
            ASSERT_FALSE(gfrmChooseSeat->mblnDrawn);
            EXPECT_EQ(gfrmChooseSeat->mintSelTile, 1);
            sim::movePointer(left + 35, 149);
            EXPECT_EQ(gfrmChooseSeat->mintSelTile, tile);
            EXPECT_EQ(gfrmChooseSeat->shpSeat.look().place.left, left);
            expected = gfrmChooseSeat->malngSeatTiles[tile] - 27;
            sim::postAfter(1000, [&] {
                sim::clickAt(lefts[tile % 4], 120);
                EXPECT_EQ(gfrmChooseSeat->mintSelTile, tile) << "the tiles have been turned over";
            });
            sim::clickAt(left, 105);
        });
        sim::clickToolButton(Button::StartAnew);
        sim::setHands({});
        EXPECT_EQ(game->mlngSeat, expected);
    }
}

TEST_F(Clicks, AClickAnywhereClosesWhatIsOnlyRead) {
    beginHand();
    game->Timer1.setEnabled(false);
    const struct {
        const char* what;
        void (*show)();
        int width, height;
    } dialogs[] = {
        {"break-down", [] { gfrmBreakDown.showModal(); }, 667, 330},
        {"summary", [] { gfrmGameSummary->msLoadFormVariables(4, 17, 5), gfrmGameSummary.showModal(); }, 353, 279},
        {"high scores", [] { gfrmHiScore.showModal(); }, 500, 351},
        {"about box", [] { gfrmAbout.showModal(); }, 273, 153},
    };
    for (const auto& dialog : dialogs)
        for (const Pixel at : {Pixel{0, 0}, Pixel{100, 90}, Pixel{dialog.width - 1, dialog.height - 1}}) {
            sim::post([&] {
                sim::clickAt(dialog.width, at.y);
                sim::clickAt(at.x, dialog.height);
                EXPECT_EQ(sim::modalDepth(), 1) << dialog.what;
                sim::clickAt(at.x, at.y);
                EXPECT_EQ(sim::modalDepth(), 0) << dialog.what;
            });
            dialog.show();
        }
}

}  // namespace
