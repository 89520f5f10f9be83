// The toolbar's commands.

#include "platform/sim/simulation.h"
#include "tests/gameFixture.h"

namespace {

using Commands = GameFixture;

TEST_F(Commands, TogglesRewriteTheirToolTipAndComeBack) {
    struct {
        int button;
        bool& option;
        const char *changed, *back;
    } const cases[] = {
        {Button::BreakDown, game->mblnBreakDown, "Break Down:Off", "Break Down:On"},
        {Button::Music, game->mblnMusicOn, "Music:Off", "Music:On"},
        {Button::Round, game->mblnRoundInChinese, "Round:(In English)", "Round:(In Chinese)"},
        {Button::Peek, game->mblnPeek, "Peek:On", "Peek:Off"},
    };
    for (const auto& row : cases) {
        const bool before = row.option;
        sim::clickToolButton(row.button);
        EXPECT_EQ(game->tbrZQT.toolTip(row.button), row.changed);
        EXPECT_NE(row.option, before);
        sim::clickToolButton(row.button);
        EXPECT_EQ(game->tbrZQT.toolTip(row.button), row.back);
    }
}

TEST_F(Commands, WhatHoldsAndWhatSetsGoing) {
    struct {
        const char* what;
        std::vector<int> buttons;
        bool running;
    } const cases[] = {
        {"pause", {Button::Pause}, false},
        {"pause twice", {Button::Pause, Button::Pause}, true},
        {"stop", {Button::Stop}, false},
        {"stop and pause", {Button::Stop, Button::Pause}, true},
        {"stop and high scores", {Button::Stop, Button::HighScores}, true},
        {"pause and about", {Button::Pause, Button::About}, true},
        {"order", {Button::Order}, true},
        {"help", {Button::Help}, true},
        {"the gap", {Button::Gap}, true},
    };
    for (const auto& row : cases) {
        beginHand();
        for (const int button : row.buttons) {
            if (button != Button::About && button != Button::HighScores && button != Button::Order)
                sim::clickToolButton(button);
            else
                inDialog(button, [this] {
                    EXPECT_FALSE(game->Timer1.enabled());
                    sim::pressKey(platform::key::Escape);
                });
        }
        EXPECT_EQ(game->Timer1.enabled(), row.running) << row.what;
        EXPECT_TRUE(game->mblnGameRunning) << row.what;
    }
}

TEST_F(Commands, TheLineTellsHowThingsStand) {
    const auto press = [](int button) { return [button] { sim::clickToolButton(button); }; };
    const auto end = [this](int row, int tilesDropped, int handCount) {
        return [=, this] {
            game->mblnBreakDown = false;
            game->CellTable[row][entryColumn].Filled = true;
            game->mintTilesDropped = narrow16(tilesDropped);
            game->mintHandCount = narrow16(handCount);
            game->mintCurRow = noRow;
            game->Timer1_Timer();
        };
    };
    const auto highScores = [] { inDialog(Button::HighScores, [] { sim::pressKey(platform::key::Escape); }); };
    const auto pass = [this] {
        setBoard({"c3 c3 . . . . . . ."});
        land("c3", 3, [this] {
            EXPECT_EQ(game->lblHint.text(), "Left and Right choose, Enter takes");
            for (const int key : {platform::key::Left, platform::key::Enter}) sim::pressKey(key);
        });
    };
    const struct {
        const char* what;
        std::function<void()> action;
        const char* told;
    } rows[] = {
        {"as it opens", [] {}, "Start Anew (F2) begins a match"},
        {"Pause before a match", press(Button::Pause), "Start Anew (F2) begins a match"},
        {"Stop before a match", press(Button::Stop), "Start Anew (F2) begins a match"},
        {"a dialog before a match", highScores, "Start Anew (F2) begins a match"},
        {"a match begins", [this] { startMatch(); }, ""},
        {"Pause", press(Button::Pause), "Paused"},
        {"Pause again", press(Button::Pause), ""},
        {"Stop", press(Button::Stop), "Stopped"},
        {"a dialog sets the game going", highScores, ""},
        {"an offer was passed", pass, ""},
        {"a won hand", end(12, 20, 14), ""},
        {"the entry is taken", end(1, 20, 13), "The hand is lost: the entry is taken"},
        {"not yet two seconds", [] { sim::runFor(1999); }, "The hand is lost: the entry is taken"},
        {"two seconds", [] { sim::runFor(1); }, ""},
        {"the last tile", end(12, 143, 13), "The hand is lost: it was the last tile"},
        {"Pause at once", press(Button::Pause), "Paused"},
        {"Pause stays", [] { sim::runFor(3000); }, "Paused"},
        {"another match", [this] { startMatch(); }, ""},
    };
    std::vector<std::string> told;
    sim::setScreenReader(true);
    for (const auto& row : rows) {
        const std::string before = game->lblHint.text();
        row.action();
        EXPECT_EQ(game->lblHint.text(), row.told) << row.what;
        if (before != row.told && *row.told != 0) told.push_back(row.told);
    }
    for (const std::string& text : told)
        EXPECT_EQ(std::ranges::count(sim::announcements(), text), std::ranges::count(told, text)) << text;
}

TEST_F(Commands, AfterWhatOpensInsideATickTheNextStepComesAtTheNextBeat) {
    for (const int button : {int{Button::RoundsSetting}, int{Button::Level}}) {
        beginHand();
        game->Timer1.setInterval(100);
        sim::runFor(100);  // A tile has come in, and falls a row each 400 ms.
        sim::postAfter(400, [button] {
            sim::postAfter(1000, [] {
                sim::chooseMenuItem(0);
                sim::pressKey(platform::key::Escape);
            });
            sim::clickToolButton(button);
        });
        sim::runFor(1400);
        EXPECT_EQ(game->mintCurRow, 2) << button;
        sim::runFor(199);
        EXPECT_EQ(game->mintCurRow, 2) << button;
        sim::runFor(1);
        EXPECT_EQ(game->mintCurRow, 3) << button;
    }
}

TEST_F(Commands, TheFallStandsWhileTheSeatIsDrawn) {
    beginHand();
    sim::runFor(1000);
    inDialog(Button::StartAnew, [row = game->mintCurRow, this] {
        sim::postAfter(2000, [=, this] {
            EXPECT_EQ(game->mintCurRow, row);
            sim::pressKey(platform::key::Enter);
        });
    });
    EXPECT_EQ(game->mintCurRow, noRow) << "another hand";
}

}  // namespace
