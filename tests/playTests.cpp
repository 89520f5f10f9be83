#include <functional>
#include <optional>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "hiscores/frmGetName.h"
#include "hiscores/frmHiScore.h"
#include "match/frmChooseSeat.h"
#include "match/frmGameSummary.h"
#include "match/frmRoundsSetting.h"
#include "platform/sim/simulation.h"
#include "play/frmChooseTiles.h"
#include "scoring/frmBreakDown.h"
#include "tests/gameFixture.h"
#include "tools/selfplay/sitting.h"

namespace {

TEST(SelfPlay, TheRefereeAgreesAtEveryLevel) {
    constexpr int handsALevel = 200;
    const Unseen unseen;
    for (int level = 1; level <= levelCount; ++level) {
        SCOPED_TRACE(levels[level - 1].caption);
        selfplay::Sitting sitting(static_cast<uint32_t>(level), true);
        sitting.setLevel(level);
        while (sitting.hands() < handsALevel) ASSERT_NO_THROW(sitting.playMatch(handsALevel - sitting.hands()));
        EXPECT_GE(sitting.won() * 3, sitting.hands()) << "the player is too weak to reach what follows a won hand";
    }
}

TEST(SelfPlay, WholeMatchesEndWithTheirRounds) {
    const Unseen unseen;
    for (const int rounds : {1, 2}) {
        SCOPED_TRACE(rounds);
        selfplay::Sitting sitting(7, true);
        sitting.setRounds(rounds);
        for (int match = 1; match <= 2; ++match) {
            ASSERT_NO_THROW(EXPECT_TRUE(sitting.playMatch(1000)));
            EXPECT_EQ(gfrmMain->mintRoundsPlayed, rounds);
            EXPECT_GE(gfrmMain->mintGamesPlayed, 4 * rounds);
            EXPECT_EQ(sim::modalDepth(), 0) << "the summary stayed open";
            EXPECT_FALSE(gfrmMain->Timer1.enabled());
        }
        EXPECT_TRUE(sim::messages().empty());
    }
}

/// Hands that press and click at random, in some hours among the keys of a player who wins; they note where they have
/// been.
class WildHands {
  public:
    /// The look comes before each thing that happens at a time of its own.
    WildHands(uint32_t seed, std::function<void()> look)
        : look_(std::move(look)), random_(seed), player_(hands_, seed) {}

    void act() {
        for (Sight& sight : sights) sight.looks += sight.isThere() ? 1 : 0;
        sim::chooseMenuItem(below(levelCount + 1));
        constexpr int anHour = 2000;
        if (++turns_ / anHour % 2 == 0 && below(30) != 0) {
            player_.act();
            return;
        }
        const bool dialog = sim::modalDepth() > 0;
        const int seldom = gfrmMain->Timer1.enabled() ? 100 : 5;  // so that hands grow old, but seldom stand still
        if (!dialog && below(seldom) == 0) return clickSomething();
        if (!dialog && below(3) == 0) return;  // lets the tile fall
        if (below(4) == 0) later(soon(), &WildHands::pressSomething);
        if (below(100) == 0) later(soon(), &WildHands::clickSomething);
        pressSomething();
    }

    /// What they should come upon, and how often they have looked at it.
    struct Sight {
        const char* what;
        bool (*isThere)();
        int looks = 0;
    };
    std::vector<Sight> sights = {
        {"an offer", [] { return gfrmChooseTiles.isOpen(); }},
        {"a summary", [] { return gfrmGameSummary.isOpen(); }},
        {"a break-down", [] { return gfrmBreakDown.isOpen(); }},
        {"the name dialog", [] { return gfrmGetName.isOpen(); }},
        {"the table", [] { return gfrmHiScore.isOpen(); }},
        {"the rounds", [] { return gfrmRoundsSetting.isOpen(); }},
        {"the draw of the seat", [] { return gfrmChooseSeat.isOpen(); }},
        {"a full board", [] { return gfrmMain->CellTable[1][entryColumn].Filled; }},
    };

  private:
    int below(int count) { return static_cast<int>(random_() % static_cast<uint32_t>(count)); }

    /// In milliseconds; often just when the next tick comes, so that it is served inside that tick.
    int soon() { return below(3) == 0 ? below(400) : gfrmMain->Timer1.interval(); }

    void later(int milliseconds, void (WildHands::*something)()) {
        sim::postAfter(milliseconds, [this, something] {
            look_();
            (this->*something)();
        });
    }

    void pressSomething() {
        namespace key = platform::key;
        static constexpr int keys[] = {key::Left,  key::Right, key::Left,  key::Right,  key::Down, key::Down,
                                       key::Pad2,  key::Pad4,  key::Pad6,  key::Pad8,   key::Up,   key::Enter,
                                       key::Enter, key::Tab,   key::Space, key::Escape, 'A'};
        const int code = keys[below(std::size(keys))];
        below(8) == 0 ? sim::keyDown(code) : sim::pressKey(code);
        if (sim::modalDepth() == 0) return;
        if (below(10) == 0) sim::clickSpinUp();
        if (below(3) == 0) sim::clickSpinDown();
        if (below(20) == 0) sim::clickButton(below(2) == 0 ? "OK" : "Cancel");
    }

    void clickSomething() { sim::clickToolButton(below(Button::Help) + 1); }

    std::function<void()> look_;
    std::mt19937 random_;
    selfplay::SimHands hands_;
    selfplay::Player player_;
    int turns_ = 0;
};

class AnyKeys : public GameFixture {
  protected:
    void SetUp() override {
        GameFixture::SetUp();
        referee.emplace(*game);
        // Ticks go on below an open dialog, so that a look after each step would miss some.
        game->Timer1.onTick = [this] {
            watch();
            game->Timer1_Timer();
            watch();
        };
    }

    void TearDown() override {
        sim::setHands({});
        GameFixture::TearDown();
    }

    void watch() {
        try {
            referee->check();
        } catch (const std::logic_error& error) {
            if (objection.empty()) objection = error.what();
        }
    }

    void setHands(std::function<void()> hands) {
        sim::setHands([this, hands = std::move(hands)] {
            watch();
            hands();
        });
    }

    void play(int events) {
        for (int i = 0; i < events && objection.empty(); ++i) sim::step();
    }

    /// Leaves whatever opens, until nothing that was begun is under way any more.
    void calmDown() {
        setHands([] {
            sim::chooseMenuItem(0);
            if (sim::modalDepth() > 0) sim::pressKey(platform::key::Enter);
        });
        bool calm = false;
        sim::postAfter(1000, [&] { calm = true; });
        while (!calm) sim::step();
    }

    const Unseen unseen;
    std::optional<selfplay::Referee> referee;
    std::string objection;
};

TEST_F(AnyKeys, AtAnyTimeLeaveASoundGame) {
    WildHands wild(3, [this] { watch(); });
    setHands([&] { wild.act(); });
    play(100000);
    EXPECT_EQ(objection, "");
    for (const auto& sight : wild.sights) EXPECT_GT(sight.looks, 0) << "the keys never come to " << sight.what;
    calmDown();

    const selfplay::SimHands hands;
    selfplay::Player player(hands, 3);
    setHands([&] { player.act(); });
    player.startMatch();
    const int before = referee->handsWon();
    play(10000);
    EXPECT_EQ(objection, "");
    EXPECT_GT(referee->handsWon(), before) << "the game can't be played any more";
    EXPECT_TRUE(sim::messages().empty()) << sim::messages().front();
}

}  // namespace
