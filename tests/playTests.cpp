#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <numeric>
#include <random>
#include <set>
#include <stdexcept>

#include "hiscores/frmGetName.h"
#include "hiscores/frmHiScore.h"
#include "match/frmGameSummary.h"
#include "play/frmChooseTiles.h"
#include "scoring/frmBreakDown.h"
#include "scoring/scoringItems.h"
#include "tests/gameFixture.h"
#include "tools/selfplay/sitting.h"

namespace {

/// Each is a fault that the referee has to see as soon as something else happens.
TEST(SelfPlay, TheRefereeObjectsToWhateverIsWrong) {
    static const struct {
        const char* complaint;
        void (*spoil)(frmMain& game);
    } rows[] = {
        {"rests in row 0", [](frmMain& g) { g.CellTable[0][1].fill(g.TileKinds[1]); }},
        {"place of the board", [](frmMain& g) { g.CellTable[1][9].fill(g.TileKinds[1]); }},
        {"order of the tiles", [](frmMain& g) { std::swap(g.TileOrder[143], g.TileOrder[144]); }},
        {"another row", [](frmMain& g) { --g.mintCurRow; }},
        {"another column", [](frmMain& g) { ++g.mintCurCol; }},
        {"came in are miscounted", [](frmMain& g) { ++g.mintTilesDropped; }},
        {"another speed", [](frmMain& g) { g.Timer1.setInterval(401); }},
        {"should be held", [](frmMain& g) { g.Timer1.setEnabled(false); }},
        {"drop key", [](frmMain& g) { g.mblnDropKeyUsed = !g.mblnDropKeyUsed; }},
        {"keeps the others out", [](frmMain& g) { g.mblnInTimerTick = true; }},
        {"hand begins", [](frmMain& g) { ++g.mlngHandNumber; }},
        {"count of hand tiles", [](frmMain& g) { ++g.mintHandCount; }},
        {"count of earned tiles", [](frmMain& g) { ++g.mintEarnedCount; }},
        {"count of bonus tiles", [](frmMain& g) { ++g.mintBonusCount; }},
        {"the pair is there", [](frmMain& g) { g.mblnPairTaken = !g.mblnPairTaken; }},
        {"pair's slot", [](frmMain& g) { ++g.mintPairSlot; }},
        {"earned tile", [](frmMain& g) { g.EarnedTiles[14].fill(g.TileKinds[1]); }},
        {"flower or season", [](frmMain& g) { g.EarnedTiles[22].fill(g.TileKinds[42]); }},
        {"doubles", [](frmMain& g) { ++g.mintDoubles; }},
        {"hand's points", [](frmMain&) { ++glngHandPoints; }},
        {"too many items", [](frmMain&) { gstrScoreDesc = "Mixed Hand"; }},
        {"a match runs", [](frmMain& g) { g.mblnGameRunning = false; }},
        {"the score", [](frmMain& g) { ++g.mlngScore; }},
        {"another score", [](frmMain& g) { ++g.mlngScore, g.msPrintScore(), --g.mlngScore; }},
        {"seat has changed", [](frmMain& g) { g.mlngSeat = g.mlngSeat % 4 + 1; }},
        {"hands are miscounted", [](frmMain& g) { ++g.mintGamesPlayed; }},
        {"hands won", [](frmMain& g) { ++g.mintGamesWon; }},
        {"on the wrong seat", [](frmMain& g) { g.msMoveHouse(); }},
        {"moves of the House", [](frmMain& g) { ++g.mintHouseMoves; }},
        {"rounds are miscounted", [](frmMain& g) { ++g.mintRoundsPlayed; }},
        {"changed by themselves", [](frmMain&) { ++gintNumRounds; }},
        {"wind of the round", [](frmMain& g) { ++g.mlngRoundWind; }},
        {"Level has changed", [](frmMain& g) { g.mnuLevelItem_Click(2); }},
        {"break-down was", [](frmMain& g) { g.mblnBreakDown = false; }},
        {"music was", [](frmMain& g) { g.mblnMusicOn = false; }},
        {"language", [](frmMain& g) { g.mblnRoundInChinese = false; }},
        {"next tile was", [](frmMain& g) { g.mblnPeek = true; }},
        {"left without an offer", [](frmMain& g) { ++g.mintPossibleCount; }},
        {"too soon", [](frmMain& g) { g.mblnLightningDue = true; }},
        {"the line on the table", [](frmMain& g) { g.lblHint.setText("Paused"); }},
        {"a break-down comes", [](frmMain&) { gfrmBreakDown.showModal(); }},
        {"a summary comes", [](frmMain&) { gfrmGameSummary.showModal(); }},
        {"the name is asked", [](frmMain&) { gfrmGetName.showModal(); }},
        {"offer was made of nothing", [](frmMain&) { gfrmChooseTiles.showModal(); }},
        {"high scores is another", [](frmMain&) { gaudtHiScore[1].lngScore = 1, gfrmHiScore.showModal(); }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.complaint);
        selfplay::Sitting sitting(1, true);
        sitting.onLook = [&] {
            frmMain& game = *gfrmMain.hold();
            if (game.mintTilesDropped < 3) return;
            sitting.onLook = {};
            row.spoil(game);
            int meaningless = 'A';
            game.form.onKeyDown(meaningless);
        };
        std::string complaint;
        try {
            sitting.playMatch(1);
        } catch (const std::logic_error& error) {
            complaint = error.what();
        }
        EXPECT_THAT(complaint, testing::HasSubstr(row.complaint));
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

}  // namespace
