// The toolbar's commands.

#include "platform/sim/simulation.h"
#include "tests/gameFixture.h"

namespace {

using Commands = GameFixture;

TEST_F(Commands, TogglesRewriteTheirToolTipAndComeBack) {
    struct {
        int button;
        const char *changed, *back;
    } const cases[] = {
        {Button::BreakDown, "Break Down:Off", "Break Down:On"},
        {Button::Music, "Music:Off", "Music:On"},
        {Button::Round, "Round:(In English)", "Round:(In Chinese)"},
        {Button::Peek, "Peek:On", "Peek:Off"},
    };
    for (const auto& row : cases)
        for (const char* const toolTip : {row.changed, row.back}) {
            sim::clickToolButton(row.button);
            EXPECT_EQ(game->tbrZQT.toolTip(row.button), toolTip);
        }
}

TEST_F(Commands, WhatHoldsAndWhatSetsGoingIsTold) {
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
    const auto read = [this](int button) {
        return [button, this] {
            inDialog(button, [this] {
                EXPECT_FALSE(game->Timer1.enabled());
                sim::pressKey(platform::key::Escape);
            });
        };
    };
    const auto pass = [this] {
        setBoard("c3 c3");
        land("c3", 3, [this] {
            EXPECT_EQ(game->lblHint.text(), "Left and Right choose, Enter takes");
            for (const int key : {platform::key::Left, platform::key::Enter}) sim::pressKey(key);
        });
    };
    const struct {
        const char* what;
        std::function<void()> action;
        const char* told;
        bool running;
    } rows[] = {
        {"as it opens", [] {}, "Start Anew (F2) begins a match", false},
        {"Pause before a match", press(Button::Pause), "Start Anew (F2) begins a match", false},
        {"Stop before a match", press(Button::Stop), "Start Anew (F2) begins a match", false},
        {"a dialog before a match", read(Button::HighScores), "Start Anew (F2) begins a match", false},
        {"a match begins", [this] { startMatch(); }, "", true},
        {"Pause", press(Button::Pause), "Paused", false},
        {"Pause again", press(Button::Pause), "", true},
        {"Stop", press(Button::Stop), "Stopped", false},
        {"Pause after Stop", press(Button::Pause), "", true},
        {"Stop", press(Button::Stop), "Stopped", false},
        {"a dialog sets the game going", read(Button::HighScores), "", true},
        {"the order form", read(Button::Order), "", true},
        {"the help", press(Button::Help), "", true},
        {"the gap", press(Button::Gap), "", true},
        {"an offer was passed", pass, "", true},
        {"a won hand", end(12, 20, 14), "", true},
        {"the entry is taken", end(1, 20, 13), "The hand is lost: the entry is taken", true},
        {"not yet two seconds", [] { sim::runFor(1999); }, "The hand is lost: the entry is taken", true},
        {"two seconds", [] { sim::runFor(1); }, "", true},
        {"the last tile", end(12, 143, 13), "The hand is lost: it was the last tile", true},
        {"Pause at once", press(Button::Pause), "Paused", false},
        {"Pause stays", [] { sim::runFor(3000); }, "Paused", false},
        {"the about box", read(Button::About), "", true},
        {"another match", [this] { startMatch(); }, "", true},
    };
    std::vector<std::string> told;
    sim::setScreenReader(true);
    for (const auto& row : rows) {
        const std::string before = game->lblHint.text();
        row.action();
        EXPECT_EQ(game->lblHint.text(), row.told) << row.what;
        EXPECT_EQ(game->Timer1.enabled(), row.running) << row.what;
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

}  // namespace
