// The toolbar's commands.

#include "platform/sim/simulation.h"
#include "tests/gameFixture.h"

namespace {

class Commands : public GameFixture {};

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
            if (button == Button::About || button == Button::HighScores)
                sim::post([] { sim::pressKey(platform::key::Escape); });
            if (button == Button::Order) sim::post([] { sim::clickButton("Close"); });
            sim::clickToolButton(button);
        }
        EXPECT_EQ(game->Timer1.enabled(), row.running) << row.what;
        EXPECT_TRUE(game->mblnGameRunning) << row.what;
    }
}

TEST_F(Commands, NothingBeginsBeforeStartAnew) {
    for (int button = Button::Level; button <= Button::Gap; ++button) {
        sim::post([button] {
            if (button == Button::Level) sim::chooseMenuItem(2);
            if (button == Button::RoundsSetting || button == Button::About || button == Button::HighScores)
                sim::pressKey(platform::key::Escape);
            if (button == Button::Order) sim::clickButton("Close");
        });
        sim::clickToolButton(button);
        for (const int key : {37, 39, 40, 13}) sim::pressKey(key);
        sim::runFor(1000);
        EXPECT_FALSE(game->Timer1.enabled()) << button;
        EXPECT_EQ(game->mintTilesDropped, 0) << button;
    }
    EXPECT_TRUE(sim::messages().empty());
}

}  // namespace
