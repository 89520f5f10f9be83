// The bolt over the table: when it strikes, what it shows and what it leaves.

#include "platform/pictures.h"
#include "platform/sim/simulation.h"
#include "tests/gameFixture.h"

namespace {

using platform::Color;
using platform::Surface;

// The rectangle of a strike on the table.
constexpr int left = 580, width = 200, height = 233;
constexpr double firstSecond = 36000;  // of the day, as the simulated desktop starts

class Lightning : public GameFixture {
  protected:
    void SetUp() override {
        GameFixture::SetUp();
        const Surface table(platform::pictureByNumber(101));
        const Surface bolt(platform::pictureByName("picLightning"));
        // The bolt shines through the table: each colour is that of the bolt, or the table's where the bolt has none.
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                const Color ground = table.point(left + x, y);
                bare.push_back(ground);
                struck.push_back((ground & ~bolt.point(x, y)) | bolt.point(x, y));
            }
        ASSERT_NE(bare, struck);
    }

    static std::vector<Color> rectangle(const Surface& surface) {
        std::vector<Color> pixels;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) pixels.push_back(surface.point(left + x, y));
        return pixels;
    }

    /// What the window shows in the rectangle: "bare", "struck" or something else.
    std::string seen() const { return nameOf(rectangle(game->form.surface())); }

    std::string nameOf(const std::vector<Color>& pixels) const {
        return pixels == bare ? "bare" : pixels == struck ? "struck" : "neither";
    }

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
        EXPECT_EQ(seen(), "bare");
        while (!game->mblnLightningShown) ASSERT_TRUE(sim::step());
        ASSERT_EQ(seen(), "struck");
    }

    static double second() { return firstSecond + sim::now() / 1000; }

    std::vector<Color> bare, struck;
    int thunders = 0;
};

TEST_F(Lightning, StrikesAMinuteAfterTheLastForOneTickAndLeavesTheTableAsItWas) {
    beginLongHand();
    double last = second();
    for (int strike = 1; strike <= 6; ++strike) {
        SCOPED_TRACE(strike);
        waitForStrike();
        EXPECT_EQ(nameOf(rectangle(game->picWork)), "struck");
        EXPECT_GE(second() - last, 59.5) << "whole seconds count";
        EXPECT_LT(second() - last, 60 + 40);
        last = second();
        while (game->mblnLightningShown) ASSERT_TRUE(sim::step());
        EXPECT_EQ(seen(), "bare");
        EXPECT_EQ(nameOf(rectangle(game->picWork)), "bare");
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

TEST_F(Lightning, AHandAndAStrikeNoteTheWholeSecond) {
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
}

TEST_F(Lightning, AnyKeyEndsItAndStillWorks) {
    for (const int key : {int{platform::key::Left}, int{platform::key::Up}, int{'Q'}}) {
        beginLongHand();
        waitForStrike();
        const int column = game->mintCurCol;
        sim::pressKey(key);
        EXPECT_EQ(seen(), "bare") << key;
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
            EXPECT_EQ(seen(), "bare") << row;
            EXPECT_FALSE(game->mblnLightningDue || game->mblnLightningShown) << row;
        }
}

TEST_F(Lightning, AnOfferEndsIt) {
    for (const bool shown : {false, true}) {
        SCOPED_TRACE(shown ? "shown" : "due");
        beginHand();
        setBoard({"c1 c2 . . . . . . ."});
        game->mblnLightningDue = true;
        if (shown) game->msDrawLightning();
        bool looked = false;
        land("c3", 3, [&] {
            looked = true;
            EXPECT_FALSE(game->mblnLightningDue || game->mblnLightningShown);
            EXPECT_EQ(seen(), "bare");
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
    EXPECT_EQ(seen(), "struck");
    sim::clickToolButton(9);
    sim::runFor(game->Timer1.interval() - 1);
    EXPECT_EQ(seen(), "struck");
    game->mblnLightningDue = true;  // The minute is over: another may fall due before the first is taken off.
    game->msDrawLightning();
    EXPECT_EQ(seen(), "struck");
    EXPECT_TRUE(game->mblnLightningShown);
    EXPECT_FALSE(game->mblnLightningDue);
    sim::pressKey(platform::key::Left);
    EXPECT_EQ(seen(), "bare");
}

TEST_F(Lightning, NoneAfterMidnightUntilTheNextHand) {
    game.reset();
    gsClearAllForms();
    sim::switchOn(1, 86400 - 100);
    game = gfrmMain.hold();
    game->form.show();
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

TEST_F(Lightning, ANewHandWipesIt) {
    beginHand();
    game->mblnLightningDue = true;
    game->msDrawLightning();
    game->mblnLightningDue = true;
    game->Timer1.setEnabled(false);
    sim::runFor(5000);
    listen();
    beginHand();
    EXPECT_FALSE(game->mblnLightningDue || game->mblnLightningShown);
    EXPECT_EQ(game->mlngLastLightning, 36005);
    EXPECT_EQ(thunders, 0);
    EXPECT_EQ(nameOf(rectangle(game->picWork)), "bare");
}

}  // namespace
