#include <algorithm>
#include <array>
#include <functional>
#include <optional>
#include <random>
#include <set>
#include <sstream>
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
#include "scoring/scoringItems.h"
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

/// Kinds that a random hand is built from, so that rare hands come often.
struct Palette {
    std::vector<int> kinds;
    bool sequences;
};

std::vector<int> kindsFrom(std::initializer_list<std::pair<int, int>> runs) {
    std::vector<int> kinds;
    for (const auto& [first, last] : runs)
        for (int kind = first; kind <= last; ++kind) kinds.push_back(kind);
    return kinds;
}

const Palette palettes[] = {
    {kindsFrom({{1, 34}}), true},                     // anything
    {kindsFrom({{1, 34}}), false},                    // trios of anything
    {kindsFrom({{10, 18}}), true},                    // one suit
    {kindsFrom({{19, 34}}), true},                    // one suit and honours
    {kindsFrom({{28, 34}}), false},                   // honours only
    {kindsFrom({{28, 31}, {32, 32}}), false},         // winds and Red
    {kindsFrom({{32, 34}, {1, 3}}), true},            // dragons and a little
    {{1, 9, 10, 18, 19, 27}, false},                  // ones and nines
    {kindsFrom({{1, 9}, {10, 18}, {19, 27}}), true},  // no honours
};

/// A random finished hand: sets in the order of taking with the pair among them, then bonus tiles.
struct RandomHand {
    std::vector<std::vector<int>> sets;
    std::vector<int> bonusKinds;
};

class Dealer {
  public:
    explicit Dealer(uint32_t seed) : random_(seed) {}

    int below(int count) { return static_cast<int>(random_() % static_cast<uint32_t>(count)); }

    RandomHand deal() {
        const Palette& palette = palettes[below(std::size(palettes))];
        left_.fill(4);
        RandomHand hand;
        while (hand.sets.size() < 4) tryToAdd(hand.sets, setFrom(palette));
        while (hand.sets.size() < 5) {
            const int kind = palette.kinds[below(static_cast<int>(palette.kinds.size()))];
            tryToAdd(hand.sets, {kind, kind});
        }
        std::rotate(hand.sets.begin() + below(5), hand.sets.end() - 1, hand.sets.end());
        std::vector<int> bonus = kindsFrom({{35, 42}});
        std::shuffle(bonus.begin(), bonus.end(), random_);
        bonus.resize(below(3) == 0 ? 8 - below(2) : below(7));
        hand.bonusKinds = bonus;
        return hand;
    }

  private:
    std::vector<int> setFrom(const Palette& palette) {
        const int kind = palette.kinds[below(static_cast<int>(palette.kinds.size()))];
        const bool startsRun = kind <= 27 && (kind - 1) % 9 <= 6;
        if (!palette.sequences || !startsRun || below(3) == 0) return {kind, kind, kind};
        return below(2) == 0 ? std::vector{kind, kind + 1, kind + 2} : std::vector{kind + 2, kind + 1, kind};
    }

    /// Adds the set if there are enough copies of its kinds.
    void tryToAdd(std::vector<std::vector<int>>& sets, const std::vector<int>& kinds) {
        auto left = left_;
        for (const int kind : kinds)
            if (--left[kind] < 0) return;
        left_ = left;
        sets.push_back(kinds);
    }

    std::mt19937 random_;
    std::array<int, kindCount + 1> left_{};
};

class HandWorth : public GameFixture {
  protected:
    const Unseen unseen;

    /// Puts the hand into the earned slots as play leaves it, and has the game tally it.
    void tally(const RandomHand& hand) {
        for (CellInfo& slot : game->EarnedTiles) slot.empty();
        int slot = 0;
        for (const auto& set : hand.sets) {
            if (set.size() == 2) game->mintPairSlot = narrow16(slot + 1);
            for (const int kind : set) game->EarnedTiles[++slot].fill(game->TileKinds[kind]);
        }
        for (const int kind : hand.bonusKinds) game->EarnedTiles[++slot].fill(game->TileKinds[kind]);
        game->mintDoubles = 0;
        game->mlngScore = 0;
        game->msClearScoreDesc();
        game->msTallyScore();
    }

    selfplay::WonHand wonHand(const RandomHand& hand) const {
        selfplay::WonHand won{
            {}, 0, hand.bonusKinds, game->mlngHouse, game->mlngSeat, game->mlngRoundWind, game->mlngLevel};
        auto next = won.sets.begin();
        for (const auto& set : hand.sets) {
            if (set.size() == 2)
                won.pairKind = set[0];
            else
                *next++ = {*std::min_element(set.begin(), set.end()), set[0] == set[1]};
        }
        return won;
    }

    void compare(const RandomHand& hand) {
        tally(hand);
        const selfplay::HandWorth worth = handWorth(wonHand(hand));
        std::ostringstream list;
        for (const auto& item : worth.items) {
            list << (list.tellp() > 0 ? "," : "") << item.text;
            itemsSeen.emplace(item.text);
        }
        std::ostringstream what;
        for (const auto& set : hand.sets)
            for (const int kind : set) what << kind << ' ';
        what << "House " << game->mlngHouse << " seat " << game->mlngSeat << " wind " << game->mlngRoundWind;
        ASSERT_EQ(gstrScoreDesc, list.str()) << what.str();
        ASSERT_EQ(game->mintDoubles, worth.doubles) << what.str();
        ASSERT_EQ(glngHandPoints, worth.points) << what.str();
        ASSERT_EQ(game->mlngScore, worth.points) << what.str();
    }

    std::set<std::string> itemsSeen;
};

TEST_F(HandWorth, IsWhatTheTallySaysForAnyHand) {
    constexpr int handsAtATable = 100;
    Dealer dealer(20);
    for (int table = 0; table < 64; ++table) {
        game->mlngHouse = table % 4 + 1;
        game->mlngSeat = table / 4 % 4 + 1;
        game->mlngRoundWind = table / 16 + 1;
        for (int i = 0; i < handsAtATable; ++i) {
            game->mlngLevel = dealer.below(levelCount) + 1;
            compare(dealer.deal());
            if (HasFatalFailure()) return;
        }
    }
    for (const ScoringItemRow& item : scoringItems)
        EXPECT_TRUE(itemsSeen.count(item.text)) << "no hand had " << item.text;
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
        if (!gfrmRoundsSetting.isOpen()) return;
        const frmRoundsSetting& setting = *gfrmRoundsSetting.hold();
        if (below(10) == 0) setting.SpinButton1.onSpinUp();
        if (below(3) == 0) setting.SpinButton1.onSpinDown();
        if (below(20) == 0) sim::press(below(2) == 0 ? setting.cmdOK : setting.cmdCancel);
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
