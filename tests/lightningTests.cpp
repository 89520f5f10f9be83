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

TEST_F(Lightning, StrikesAMinuteAfterTheLastForOneTickAndThenItThunders) {
    beginLongHand();
    listen();
    double last = second();
    for (int strike = 1; strike <= 6; ++strike) {
        SCOPED_TRACE(strike);
        game->mblnMusicOn = strike % 2 == 0;  // It thunders with music and without.
        waitForStrike();
        EXPECT_GE(second() - last, 59.5) << "whole seconds count";
        EXPECT_LT(second() - last, 60 + 40);
        EXPECT_EQ(thunders, strike - 1) << "the bolt comes first";
        last = second();
        while (game->mblnLightningShown) ASSERT_TRUE(sim::step());
        // A tile that lands meanwhile paints nothing.
        const int duration = static_cast<int>((second() - last) * 1000 + 0.5);
        EXPECT_TRUE(duration == 400 || duration == 800) << duration;
        game->msDrawLightning();
        EXPECT_EQ(thunders, strike) << "once";
    }
    EXPECT_EQ(game->mintGamesPlayed, 0);
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

TEST_F(Lightning, AHandAndAStrikeNoteTheWholeSecond) {
    sim::runFor(20600);
    beginHand();
    EXPECT_EQ(game->mlngLastLightning, 36021);
    game->Timer1.setEnabled(false);
    game->mblnLightningDue = true;
    for (const int pause : {800, 200}) {  // 36021.4, as it is painted, and 36021.6, as it ends
        sim::runFor(pause);
        game->msDrawLightning();
        EXPECT_EQ(game->mblnLightningShown, pause == 800);
        EXPECT_EQ(game->mlngLastLightning, 36021);
    }
}

TEST_F(Lightning, AnyKeyAnOfferAndAnotherHandEndIt) {
    const auto press = [](int key) { return [key] { sim::pressKey(key); }; };
    const auto offer = [this] {
        setBoard("c1 c2");
        land("c3", 3, [this] {
            EXPECT_FALSE(game->mblnLightningDue || game->mblnLightningShown);
            sim::pressKey(platform::key::Enter);
        });
    };
    const struct {
        const char* what;
        bool tileFalls;
        std::function<void()> action;
        int column, thunders;
    } rows[] = {
        {"a key that steers", true, press(platform::key::Left), 4, 1},
        {"a key that has no use", true, press('Q'), 5, 1},
        {"a key between two tiles", false, press('Q'), 5, 1},
        {"an offer", false, offer, 3, 1},
        {"another hand", true, [this] { beginHand(); }, 5, 0},
    };
    for (const auto& row : rows)
        for (const bool shown : {false, true}) {  // A strike that is only due is over before it is seen.
            SCOPED_TRACE(row.what);
            beginHand();
            nextTile();
            if (!row.tileFalls) game->mintCurRow = noRow;
            game->mblnLightningDue = true;
            if (shown) game->msDrawLightning();
            thunders = 0;
            listen();
            row.action();
            EXPECT_FALSE(game->mblnLightningDue || game->mblnLightningShown) << shown;
            EXPECT_EQ(game->mintCurCol, row.column) << shown;
            EXPECT_EQ(thunders, row.thunders) << shown;
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
