// The bolt over the table: when it strikes and when it ends.

#include "tests/gameFixture.h"

namespace {

constexpr double firstSecond = 36000;  // of the day, as the simulated desktop starts

class Lightning : public GameFixture {
  protected:
    /// Counts what is heard from now on in `thunders`.
    void listen() {
        sim::setLog([this](const std::string& line) {
            if (line.find("sound ") == std::string::npos) return;
            EXPECT_NE(line.find("sound Thunder2.wav 3"), std::string::npos) << line;
            ++thunders;
        });
    }

    /// Begins a hand that lasts long: nothing ever lies on the board, and no tile makes a set alone.
    void beginLongHand() {
        beginHand();
        for (int16_t& tile : game->TileOrder) tile = 1;
        sim::setHands([this] {
            for (auto& row : game->CellTable)
                for (CellInfo& place : row) place.empty();
        });
    }

    /// Lets the hand go on to the tick that paints a strike.
    void waitForStrike() {
        while (!game->mblnLightningShown) ASSERT_TRUE(sim::step());
    }

    static double second() { return firstSecond + sim::now() / 1000; }

    int thunders = 0;
};

TEST_F(Lightning, StrikesAMinuteAfterTheLastForOneTick) {
    beginLongHand();
    double last = second();
    for (int strike = 1; strike <= 6; ++strike) {
        SCOPED_TRACE(strike);
        waitForStrike();
        EXPECT_GE(second() - last, 59.5) << "whole seconds count";
        EXPECT_LT(second() - last, 60 + 40);
        last = second();
        while (game->mblnLightningShown) ASSERT_TRUE(sim::step());
        // A tile that lands meanwhile paints nothing.
        const int duration = static_cast<int>((second() - last) * 1000 + 0.5);
        EXPECT_TRUE(duration == 400 || duration == 800) << duration;
    }
    EXPECT_EQ(game->mintGamesPlayed, 0);
}

TEST_F(Lightning, ThunderFollowsWhenItGoesOutWithMusicAndWithout) {
    for (const bool music : {true, false}) {
        SCOPED_TRACE(music ? "with music" : "without music");
        game->mblnMusicOn = music;
        beginLongHand();
        listen();
        thunders = 0;
        waitForStrike();
        EXPECT_EQ(thunders, 0) << "the bolt comes first";
        while (game->mblnLightningShown) ASSERT_TRUE(sim::step());
        EXPECT_EQ(thunders, 1);
        waitForStrike();
        sim::pressKey('Q');
        EXPECT_EQ(thunders, 2);
        game->msDrawLightning();
        EXPECT_EQ(thunders, 2) << "nothing is under way";
        sim::setLog({});
    }
}

TEST_F(Lightning, OneTickInTenMakesAStrikeDueOnceAMinuteIsOver) {
    beginHand();
    game->mlngLastLightning = static_cast<int32_t>(firstSecond) - 59;
    const auto dueIn = [&](int ticks) {
        int due = 0;
        for (int tick = 0; tick < ticks; ++tick) {
            game->mblnLightningDue = false;
            game->msGenerateLightning();
            due += game->mblnLightningDue ? 1 : 0;
        }
        return due;
    };
    EXPECT_EQ(dueIn(1000), 0);
    sim::runFor(1000);
    EXPECT_NEAR(dueIn(10000), 1000, 100);
}

TEST_F(Lightning, AHandAndAStrikeNoteTheWholeSecondAndANewHandEndsAll) {
    sim::runFor(20600);
    beginHand();
    EXPECT_EQ(game->mlngLastLightning, 36021);
    game->Timer1.setEnabled(false);
    game->mblnLightningDue = true;
    sim::runFor(800);  // 36021.4
    game->msDrawLightning();
    EXPECT_TRUE(game->mblnLightningShown);
    EXPECT_EQ(game->mlngLastLightning, 36021);
    sim::runFor(200);
    game->msDrawLightning();
    EXPECT_FALSE(game->mblnLightningShown);
    EXPECT_EQ(game->mlngLastLightning, 36021) << "the painting counts, not the end";
    game->mblnLightningDue = game->mblnLightningShown = true;
    sim::runFor(5000);
    listen();
    beginHand();
    EXPECT_FALSE(game->mblnLightningDue || game->mblnLightningShown);
    EXPECT_EQ(game->mlngLastLightning, 36027);
    EXPECT_EQ(thunders, 0);
}

TEST_F(Lightning, AnyKeyEndsItAndStillWorks) {
    for (const int key : {int{platform::key::Left}, int{platform::key::Up}, int{'Q'}}) {
        beginLongHand();
        waitForStrike();
        const int column = game->mintCurCol;
        sim::pressKey(key);
        EXPECT_FALSE(game->mblnLightningShown);
        EXPECT_EQ(game->mintCurCol, key == platform::key::Left ? column - 1 : column);
    }
    const int16_t rows[] = {game->mintCurRow, noRow};  // A key between two tiles does so too.
    for (const int16_t row : rows)
        for (const bool shown : {false, true}) {  // A strike that is only due is over before it is seen.
            game->mintCurRow = row;
            game->mblnLightningDue = true;
            if (shown) game->msDrawLightning();
            sim::pressKey('Q');
            EXPECT_FALSE(game->mblnLightningDue || game->mblnLightningShown) << row;
        }
}

TEST_F(Lightning, AnOfferEndsIt) {
    for (const bool shown : {false, true}) {
        SCOPED_TRACE(shown ? "shown" : "due");
        beginHand();
        setBoard("c1 c2");
        game->mblnLightningDue = true;
        if (shown) game->msDrawLightning();
        bool looked = false;
        land("c3", 3, [&] {
            looked = true;
            EXPECT_FALSE(game->mblnLightningDue || game->mblnLightningShown);
            sim::pressKey(platform::key::Enter);
        });
        EXPECT_TRUE(looked);
    }
}

TEST_F(Lightning, StandsWhileTheFallIsHeldAndGoesWithTheNextTick) {
    beginLongHand();
    waitForStrike();
    sim::clickToolButton(9);
    sim::runFor(200000);
    sim::pressKey(platform::key::Left);
    EXPECT_TRUE(game->mblnLightningShown);
    sim::clickToolButton(9);
    sim::runFor(game->Timer1.interval() - 1);
    EXPECT_TRUE(game->mblnLightningShown);
    game->mblnLightningDue = true;  // The minute is over: another may fall due before the first is taken off.
    game->msDrawLightning();
    EXPECT_TRUE(game->mblnLightningShown);
    EXPECT_FALSE(game->mblnLightningDue);
    sim::pressKey(platform::key::Left);
    EXPECT_FALSE(game->mblnLightningShown);
}

TEST_F(Lightning, NoneAfterMidnightUntilTheNextHand) {
    startProgram(86400 - 100);
    beginLongHand();
    int before = 0, after = 0;
    bool shown = false;
    while (sim::now() < 500000) {
        ASSERT_TRUE(sim::step());
        if (game->mblnLightningShown && !shown) ++(sim::now() < 100000 ? before : after);
        shown = game->mblnLightningShown;
    }
    EXPECT_EQ(before, 1);
    EXPECT_EQ(after, 0);
    beginLongHand();
    EXPECT_EQ(game->mlngLastLightning, 400);
    waitForStrike();
}

}  // namespace
