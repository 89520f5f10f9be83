#include <algorithm>
#include <array>
#include <numeric>
#include <optional>
#include <random>
#include <set>
#include <stdexcept>

#include "hiscores/frmGetName.h"
#include "hiscores/frmHiScore.h"
#include "match/frmChooseSeat.h"
#include "match/frmGameSummary.h"
#include "match/frmRoundsSetting.h"
#include "play/frmChooseTiles.h"
#include "scoring/frmBreakDown.h"
#include "scoring/scoringItems.h"
#include "tests/gameFixture.h"
#include "tools/selfplay/sitting.h"

namespace {

TEST(SelfPlay, TheRefereeAgreesAtEveryLevelAndMatchesEndWithTheirRounds) {
    constexpr int handsALevel = 200;
    const Unseen unseen;
    for (int level = 1; level <= levelCount; ++level) {
        SCOPED_TRACE(levels[level - 1].caption);
        const int rounds = level % 2 + 1;
        selfplay::Sitting sitting(static_cast<uint32_t>(level), true);
        sitting.setLevel(level);
        sitting.setRounds(rounds);
        int matches = 0;
        for (bool over = false; sitting.hands() < handsALevel; matches += over ? 1 : 0) {
            ASSERT_NO_THROW(over = sitting.playMatch(handsALevel - sitting.hands()));
            EXPECT_EQ(gfrmMain->mintRoundsPlayed == rounds && gfrmMain->mintGamesPlayed >= 4 * rounds, over);
            EXPECT_NE(gfrmMain->Timer1.enabled(), over);
            EXPECT_EQ(over ? sim::modalDepth() : 0, 0) << "the summary stayed open";
        }
        EXPECT_GT(matches, 0);
        EXPECT_GE(sitting.won() * 3, sitting.hands()) << "the player is too weak to reach what follows a won hand";
    }
}

std::vector<int> kindsFrom(std::initializer_list<std::pair<int, int>> runs) {
    std::vector<int> kinds;
    for (const auto& [first, last] : runs)
        for (int kind = first; kind <= last; ++kind) kinds.push_back(kind);
    return kinds;
}

/// Kinds that a random hand is built from, so that rare hands come often.
const std::vector<int> palettes[] = {
    kindsFrom({{1, 34}}),           // anything
    kindsFrom({{1, 27}}),           // no honours
    kindsFrom({{10, 18}}),          // one suit
    kindsFrom({{19, 34}}),          // one suit and honours
    kindsFrom({{28, 34}}),          // honours only
    kindsFrom({{28, 32}}),          // winds and Red
    kindsFrom({{32, 34}, {1, 3}}),  // dragons and a little
    {1, 9, 10, 18, 19, 27},         // ones and nines
};

/// Deals finished hands at random.
class HandWorth : public GameFixture {
  protected:
    int below(int count) { return static_cast<int>(random() % static_cast<uint32_t>(count)); }

    /// A hand as its text, sets in the order of taking with the pair among them; also as sets of kinds.
    std::string deal(selfplay::WonHand& hand) {
        const std::vector<int>& kinds = palettes[below(std::size(palettes))];
        const auto anyKind = [&] { return kinds[below(static_cast<int>(kinds.size()))]; };
        const bool hasRuns = below(3) > 0;
        left.fill(4);
        std::vector<std::string> sets;
        while (sets.size() < 4) {
            const int kind = anyKind();
            const int step = hasRuns && kind <= 27 && (kind - 1) % 9 <= 6 && below(3) > 0 ? 1 : 0;
            if (!take({kind, kind + step, kind + 2 * step})) continue;
            hand.sets[sets.size()] = {kind, step == 0};
            const int first = below(2) * 2 * step;  // some run downward
            sets.push_back(tileName(kind + first) + ' ' + tileName(kind + step) + ' ' +
                           tileName(kind + 2 * step - first) + ' ');
        }
        do hand.pairKind = anyKind();
        while (!take({hand.pairKind, hand.pairKind}));
        const std::string pair = tileName(hand.pairKind);
        sets.insert(sets.begin() + below(5), '*' + pair + ' ' + pair + ' ');
        hand.bonusKinds = kindsFrom({{35, 42}});
        std::shuffle(hand.bonusKinds.begin(), hand.bonusKinds.end(), random);
        hand.bonusKinds.resize(below(3) == 0 ? 8 - below(2) : below(7));
        std::string text = std::accumulate(sets.begin(), sets.end(), std::string()) + '|';
        for (const int kind : hand.bonusKinds) text += ' ' + tileName(kind);
        return text;
    }

    /// Whether there are enough copies of these kinds.
    bool take(std::initializer_list<int> kinds) {
        auto after = left;
        for (const int kind : kinds)
            if (--after[kind] < 0) return false;
        left = after;
        return true;
    }

    std::mt19937 random{20};
    std::array<int, kindCount + 1> left{};
    const Unseen unseen;
};

TEST_F(HandWorth, IsWhatTheTallySaysForAnyHand) {
    std::set<std::string> itemsSeen;
    selfplay::WonHand hand{};
    for (int hands = 0; hands < 6400; ++hands) {
        for (int* const each : {&hand.house, &hand.seat, &hand.wind}) *each = below(seatCount) + 1;
        game->mlngLevel = hand.level = below(levelCount) + 1;
        const std::string text = deal(hand);
        tally(text, hand.seat, hand.house, hand.wind);
        const selfplay::HandWorth worth = handWorth(hand);
        std::string items;
        for (const auto& item : worth.items) {
            items += (items.empty() ? "" : ",") + std::string(item.text);
            itemsSeen.emplace(item.text);
        }
        SCOPED_TRACE(testing::Message() << text << ", House " << hand.house << " seat " << hand.seat << " wind "
                                        << hand.wind);
        ASSERT_EQ(gstrScoreDesc, items);
        ASSERT_EQ(game->mintDoubles, worth.doubles);
        ASSERT_EQ(glngHandPoints, worth.points);
        ASSERT_EQ(game->mlngScore, worth.points);
    }
    for (const ScoringItemRow& item : scoringItems)
        EXPECT_TRUE(itemsSeen.count(item.text)) << "no hand had " << item.text;
}

/// Hands that press and click at random, in some hours among the keys of a player who wins, beside a referee.
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

    void watch() {
        try {
            referee->check();
        } catch (const std::logic_error& error) {
            if (objection.empty()) objection = error.what();
        }
    }

    void play(int events, std::function<void()> act) {
        sim::setHands([this, act = std::move(act)] {
            watch();
            act();
        });
        for (int i = 0; i < events && objection.empty(); ++i) sim::step();
        EXPECT_EQ(objection, "");
    }

    void pressAnything() {
        for (Sight& sight : sights) sight.looks += sight.isThere() ? 1 : 0;
        sim::chooseMenuItem(below(levelCount + 1));
        constexpr int anHour = 2000;
        if (++turns / anHour % 2 == 0 && below(30) != 0) {
            player.act();
            return;
        }
        const bool dialog = sim::modalDepth() > 0;
        const int seldom = game->Timer1.enabled() ? 100 : 5;  // so that hands grow old, but seldom stand still
        if (!dialog && below(seldom) == 0) return clickSomething();
        if (!dialog && below(3) == 0) return;  // lets the tile fall
        if (below(4) == 0) later(&AnyKeys::pressSomething);
        if (below(100) == 0) later(&AnyKeys::clickSomething);
        pressSomething();
    }

    /// Often just when the next tick comes, so that it is served inside that tick.
    void later(void (AnyKeys::*something)()) {
        sim::postAfter(below(3) == 0 ? below(400) : game->Timer1.interval(), [this, something] {
            watch();
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

    int below(int count) { return static_cast<int>(random() % static_cast<uint32_t>(count)); }

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

    const Unseen unseen;
    std::optional<selfplay::Referee> referee;
    std::string objection;
    std::mt19937 random{3};
    selfplay::SimHands hands;
    selfplay::Player player{hands, 3};
    int turns = 0;
};

TEST_F(AnyKeys, AtAnyTimeLeaveASoundGame) {
    play(100000, [this] { pressAnything(); });
    for (const Sight& sight : sights) EXPECT_GT(sight.looks, 0) << "the keys never come to " << sight.what;
    play(2000, [] {  // Whatever is open is left, and nothing that was begun is under way any more.
        sim::chooseMenuItem(0);
        if (sim::modalDepth() > 0) sim::pressKey(platform::key::Enter);
    });
    const int before = referee->handsWon();
    sim::post([this] { player.startMatch(); });
    play(10000, [this] { player.act(); });
    EXPECT_GT(referee->handsWon(), before) << "the game can't be played any more";
    EXPECT_TRUE(sim::messages().empty()) << sim::messages().front();
}

}  // namespace
