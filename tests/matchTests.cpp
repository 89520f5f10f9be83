// Seats, House, rounds and the end of a match.

#include "match/frmGameSummary.h"
#include "match/frmRoundsSetting.h"
#include "tests/gameFixture.h"

namespace {

class Match : public GameFixture {};

TEST_F(Match, TheSummaryGivesThePercentageInItsShortestForm) {
    struct {
        int won, games;
        const char* text;
    } const cases[] = {{0, 4, "0%"},     {1, 4, "25%"},     {7, 9, "77.78%"}, {1, 3, "33.33%"},
                       {1, 8, "12.5%"},  {4, 4, "100%"},    {1, 32, "3.12%"}, {3, 32, "9.38%"},
                       {1, 7, "14.29%"}, {1, 1000, "0.1%"}, {2, 3, "66.67%"}};
    for (const auto& row : cases) {
        frmGameSummary summary;
        summary.msLoadFormVariables(1, narrow16(row.games), narrow16(row.won));
        EXPECT_EQ(summary.mstrfPercentage(), row.text);
    }
}

TEST_F(Match, TheNumberOfRoundsCountsAtOnce) {
    struct {
        int played, from, less;
        platform::CommandButton frmRoundsSetting::*button;
        int rounds;
        bool ends;
    } const cases[] = {
        {2, 4, 2, &frmRoundsSetting::cmdOK, 2, true},
        {2, 4, 4, &frmRoundsSetting::cmdOK, 1, false},
        {2, 4, 2, &frmRoundsSetting::cmdCancel, 4, false},
    };
    for (const auto& row : cases) {
        startMatch();
        game->mintRoundsPlayed = narrow16(row.played);
        gintNumRounds = narrow16(row.from);
        int summaries = 0;
        sim::post([&] {
            frmRoundsSetting& setting = *gfrmRoundsSetting.hold();
            for (int i = 0; i < row.less; ++i) setting.SpinButton1.onSpinDown();
            sim::press(setting.*row.button);
            sim::setHands([&] {
                if (!gfrmGameSummary.isOpen()) return;
                ++summaries;
                sim::pressKey(platform::key::Enter);
            });
        });
        sim::clickToolButton(Button::RoundsSetting);
        sim::runFor(1000);
        EXPECT_EQ(gintNumRounds, row.rounds) << row.less;
        EXPECT_EQ(summaries, row.ends ? 1 : 0) << row.less;
        sim::setHands({});
    }
}

}  // namespace
