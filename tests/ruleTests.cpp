// The drop loop, and what all of the game uses.

#include "platform/desktop.h"
#include "platform/pictures.h"
#include "scoring/frmBreakDown.h"
#include "tests/gameFixture.h"
#include "toolkit/failures.h"
#include "toolkit/modScreen.h"

namespace {

using platform::key::Down;
using platform::key::Left;
using platform::key::Right;

class DropLoop : public GameFixture {
  protected:
    void SetUp() override {
        GameFixture::SetUp();
        beginHand();
        nextTile();
    }

    void fill(int column, int fromRow) {
        for (int row = fromRow; row <= bottomRow; ++row)
            game->CellTable[row][column].fill(game->TileKinds[kindOf("c1")]);
    }
};

TEST_F(DropLoop, KeysSteerByTheRules) {
    struct {
        const char* what;
        int column, key, filled, expected;
    } const cases[] = {
        {"left", 5, Left, 0, 4},
        {"left on the number pad", 5, 100, 0, 4},
        {"right", 5, Right, 0, 6},
        {"right on the number pad", 5, 102, 0, 6},
        {"the left wall", 1, Left, 0, 1},
        {"the right wall", 9, Right, 0, 9},
        {"a tile in the way", 5, Left, 4, 5},
        {"a tile elsewhere", 5, Left, 6, 4},
        {"another key", 5, 'A', 0, 5},
        {"up", 5, 38, 0, 5},
    };
    for (const auto& row : cases) {
        beginHand();
        nextTile();
        game->mintCurCol = narrow16(row.column);
        if (row.filled > 0) game->CellTable[1][row.filled].fill(game->TileKinds[1]);
        sim::pressKey(row.key);
        EXPECT_EQ(game->mintCurCol, row.expected) << row.what;
    }
}

TEST_F(DropLoop, AHardDropCannotBeSteeredAndEndsWithTheTileThoughTheKeyIsHeld) {
    for (const int key : {Down, 98}) {
        dealHand("c1 b5");
        nextTile();
        sim::keyDown(key);
        EXPECT_TRUE(game->mblnDropKeyUsed);
        sim::pressKey(Left);
        EXPECT_EQ(game->mintCurCol, 5);
        sim::runFor(5 * 11);
        EXPECT_EQ(game->mintCurRow, 12);
        for (; game->mintTilesDropped == 1; sim::step()) sim::keyDown(key);
        sim::keyDown(key);
        EXPECT_EQ(game->Timer1.interval(), 400) << "a repeat of the last tile's press";
        EXPECT_FALSE(game->mblnDropKeyUsed);
        for (int repeat = 0; repeat < 2; ++repeat) sim::keyDown(Left);
        EXPECT_EQ(game->mintCurCol, 3) << "sideways keys go on repeating";
        for (const int code : {Left, key}) sim::keyUp(code);
    }
}

TEST_F(DropLoop, WhatEventsInsideATickLeaveItToDo) {
    struct {
        const char* what;
        std::function<void()> event;
        int row;  // after the tick that began at row 6 over a free place
    } const cases[] = {
        {"nothing", [] {}, 7},
        {"pause", [this] { game->tbrZQT_ButtonClick(Button::Pause); }, 6},
        {"stop", [this] { game->tbrZQT_ButtonClick(Button::Stop); }, 6},
        {"pause and on", [this] { game->tbrZQT_ButtonClick(Button::Pause), game->tbrZQT_ButtonClick(Button::Pause); },
         7},
        {"a step over a free place", [] { sim::pressKey(Right); }, 7},
        {"another hand", [this] { game->msInitNewGame(); }, noRow},
        {"a step over a taken place", [] { sim::pressKey(Left); }, 6},
    };
    for (const auto& row : cases) {
        beginHand();
        nextTile();
        fill(4, 7);
        sim::runFor(400 * 5);
        ASSERT_EQ(game->mintCurRow, 6) << row.what;
        sim::post(row.event);
        game->Timer1_Timer();
        EXPECT_EQ(game->mintCurRow, row.row) << row.what;
        EXPECT_FALSE(game->mblnInTimerTick) << row.what;
    }
    game->Timer1_Timer();
    EXPECT_TRUE(game->CellTable[6][4].Filled) << "it lands on what lies there at the next tick";
    EXPECT_EQ(game->mintCurRow, noRow);
}

TEST_F(DropLoop, FourteenTilesATakenEntryOrTheLastTileEndAHand) {
    struct {
        const char* what;
        int handCount, dropped, filledColumn;
        int gamesPlayed, gamesWon;
    } const cases[] = {
        {"the entry is taken", 0, 50, 5, 1, 0},
        {"another column is full", 0, 50, 4, 0, 0},
        {"the last tile", 0, 143, 0, 1, 0},
        {"the last tile but one", 0, 142, 0, 0, 0},
        {"fourteen tiles", 14, 50, 0, 1, 1},
        {"fourteen tiles and the entry taken", 14, 50, 5, 1, 1},
        {"fourteen tiles and the last tile", 14, 143, 0, 1, 1},
    };
    int breakDowns = 0;
    sim::setHands([&] {
        if (!gfrmBreakDown.isOpen()) return;
        ++breakDowns;
        EXPECT_FALSE(game->Timer1.enabled()) << "the next hand begins a whole interval after it";
        sim::pressKey(platform::key::Enter);
    });
    for (const auto& row : cases)
        for (const bool breakDown : {true, false}) {
            SCOPED_TRACE(row.what);
            beginHand();
            breakDowns = game->mintGamesPlayed = game->mintGamesWon = 0;
            game->mblnBreakDown = breakDown;
            game->mintHandCount = narrow16(row.handCount);
            game->mintTilesDropped = narrow16(row.dropped);
            if (row.filledColumn > 0) fill(row.filledColumn, 1);
            game->Timer1_Timer();
            EXPECT_EQ(game->mintGamesPlayed, row.gamesPlayed);
            EXPECT_EQ(game->mintGamesWon, row.gamesWon);
            EXPECT_EQ(breakDowns, breakDown ? row.gamesWon : 0);
            EXPECT_EQ(game->mintTilesDropped, row.gamesPlayed > 0 ? 0 : row.dropped + 1);
            EXPECT_TRUE(game->Timer1.enabled());
        }
}

TEST_F(DropLoop, PauseHoldsTheTileAndAHardDropGoesOn) {
    sim::pressKey(Down);
    sim::clickToolButton(Button::Pause);
    sim::pressKey(Left);
    sim::runFor(10000);
    EXPECT_EQ(game->mintCurRow, 1);
    EXPECT_EQ(game->mintCurCol, 5);
    sim::clickToolButton(Button::Pause);
    sim::runFor(5 * 4);
    EXPECT_EQ(game->mintCurRow, 5);
}

class Toolkit : public GameFixture {};

TEST_F(Toolkit, TheWindowIsInTheMiddle) {
    EXPECT_EQ(game->form.width(), 795 * 15);
    EXPECT_EQ(game->form.left(), (1920 - 795) / 2.0 * 15);
    EXPECT_EQ(game->form.top(), (1080 - 581) / 2.0 * 15);
}

TEST_F(Toolkit, ATimerTicksOnAfterWhatPassedItsHandler) {
    int ticks = 0;
    platform::Timer timer;
    timer.onTick = [&] { ++ticks == 1 ? throw sim::ProcessEnded() : void(); };
    timer.setInterval(10);
    timer.setEnabled(true);
    EXPECT_THROW(sim::runFor(15), sim::ProcessEnded);
    sim::runFor(20);
    EXPECT_EQ(ticks, 3);
}

TEST_F(Toolkit, AFailureIsReportedByNameAndTheCallerGoesOn) {
    EXPECT_EQ(guarded("msSomething", []() -> int { failure::overflow(); }), 0);
    beginHand();
    for (const int column : {0, 10}) {
        game->mintCurCol = narrow16(column);
        EXPECT_FALSE(game->mblnfDropOK());
    }
    guarded("msLoad", [] { platform::pictureByName("picNothing"); });
    const std::vector<std::string> expected = {"Error In msSomething: Error 6 - Overflow",
                                               "Error In mblnfDropOK: Error 9 - Subscript out of range",
                                               "Error In mblnfDropOK: Error 9 - Subscript out of range",
                                               "Error In msLoad: Error 53 - File not found: picture picNothing"};
    EXPECT_EQ(sim::messages(), expected);
}

TEST_F(Toolkit, NumbersNarrowOrFail) {
    EXPECT_EQ(narrow16(32767), 32767);
    EXPECT_EQ(narrow32(-2147483648.0), INT32_MIN);
    EXPECT_THROW(narrow16(32768), RuntimeError);
    EXPECT_THROW(narrow32(2147483648.0), RuntimeError);
    EXPECT_THROW(narrow32(int64_t{1} << 40), RuntimeError);
}

TEST_F(Toolkit, ADelayLetsEventsRunAlsoOverMidnight) {
    startProgram(86399.5);
    bool served = false;
    sim::postAfter(1500, [&] { served = true; });
    gsDelay(2);
    EXPECT_TRUE(served);
    EXPECT_NEAR(platform::secondsOfDay(), 1.5, 0.1);
}

}  // namespace
