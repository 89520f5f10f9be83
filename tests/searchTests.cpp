// What a landing offers, and what taking a set leaves.

#include "platform/sim/simulation.h"
#include "tests/gameFixture.h"

namespace {

class Search : public GameFixture {};

TEST_F(Search, WhatALandedTileOffers) {
    struct {
        const char* what;
        std::vector<std::string> board;
        const char* tile;
        int column;
        int handCount;
        bool pairTaken;
        std::vector<Candidate> expected;
    } const cases[] = {
        {"two overlapping trios with their pairs",
         {"c5 c5 . c5 . . . . ."},
         "c5",
         3,
         0,
         false,
         {{12, 2, 2}, {12, 3, 2}, {12, 1, 3}, {12, 2, 3}}},
        {"the same with the pair taken", {"c5 c5 . c5 . . . . ."}, "c5", 3, 2, true, {{12, 1, 3}, {12, 2, 3}}},
        {"a pair", {". . . . R . . . ."}, "R", 6, 0, false, {{12, 5, 2}}},
        {"a pair when one was taken", {". . . . R . . . ."}, "R", 6, 2, true, {}},
        {"one number in two suits", {". . . . c4 . . . ."}, "b4", 6, 0, false, {}},
        {"a trio of an honour, its pair first",
         {". . . W . W . . ."},
         "W",
         5,
         2,
         false,
         {{12, 4, 2}, {12, 5, 2}, {12, 4, 3}}},
        {"three dragons", {". . . R . B . . ."}, "G", 5, 0, false, {}},
        {"one number in three suits", {"c4 b4 . . . . . . ."}, "w4", 3, 0, false, {}},
        {"a sequence up", {"c7 c8 . . . . . . ."}, "c9", 3, 0, false, {{12, 1, 3}}},
        {"a sequence down", {"c9 c8 . . . . . . ."}, "c7", 3, 0, false, {{12, 1, 3}}},
        {"a sequence into its gap", {". b3 . b5 . . . . ."}, "b4", 3, 0, false, {{12, 2, 3}}},
        {"a sequence out of order", {"c4 c3 . . . . . . ."}, "c5", 3, 0, false, {}},
        {"a sequence round the end", {"c8 c9 . . . . . . ."}, "c1", 3, 0, false, {}},
        {"a sequence over two suits", {"c7 c8 . . . . . . ."}, "b9", 3, 0, false, {}},
        {"winds in their order", {"E S . . . . . . ."}, "W", 3, 0, false, {}},
        {"flowers and seasons side by side", {"s1 s2 . . . . . . ."}, "s3", 3, 0, false, {{12, 3, 1}}},
        {"a flower above the bottom", {"c1 . . . . . . . ."}, "f1", 1, 0, false, {}},
        {"a set left of the new tile only", {"b1 b2 b3 . . . . . ."}, "R", 4, 0, false, {}},
        {"the left wall", {". c2 c3 . . . . . ."}, "c1", 1, 0, false, {{12, 1, 3}}},
        {"the right wall", {". . . . . . c7 c8 ."}, "c9", 9, 0, false, {{12, 7, 3}}},
        {"a trio after four sets", {"c5 c5 . . . . . . ."}, "c5", 3, 12, false, {{12, 2, 2}}},
        {"a trio after three sets and the pair", {"c5 c5 . . . . . . ."}, "c5", 3, 11, true, {{12, 1, 3}}},
        {"the row of the tile only", {"N N c1 . . . . . .", "c2 c3 . . . . . . ."}, "c4", 3, 0, false, {{11, 1, 3}}},
    };
    for (const auto& row : cases) {
        beginHand();
        setBoard(row.board);
        game->mintHandCount = narrow16(row.handCount);
        game->mblnPairTaken = row.pairTaken;
        offers.clear();
        answers.clear();
        land(row.tile, row.column);
        const auto expected = row.expected.empty() ? std::vector<std::vector<Candidate>>{}
                                                   : std::vector<std::vector<Candidate>>{row.expected};
        EXPECT_EQ(offers, expected) << row.what;
        EXPECT_EQ(game->mintPossibleCount, 0) << row.what;
        EXPECT_FALSE(PossibleTiles[1][1].Filled) << row.what;
    }
}

TEST_F(Search, TakingASetClosesTheGapAndSearchesAroundIt) {
    struct {
        const char* what;
        std::vector<std::string> board;
        const char* tile;
        int column;
        std::vector<int> answers;
        std::vector<std::vector<Candidate>> offers;
        std::vector<std::string> left;
        const char* earned;
    } const cases[] = {
        {"only its own columns drop",
         {"c1 c2 . R . . . . .", "N S . W . . . . ."},
         "c3",
         3,
         {1},
         {{{12, 1, 3}}},
         {"N S . R . . . . .", ". . . W . . . . ."},
         "c1 c2 c3"},
        {"a flower comes down to the bottom",
         {"c1 c1 . . . . . . .", "f2 . . . . . . . ."},
         "c1",
         3,
         {2, 1},
         {{{12, 2, 2}, {12, 1, 3}}, {{12, 1, 1}}},
         {},
         "c1 c1 c1 | f2"},
        {"what dropped is a pair",
         {"c1 c2 . w2 . . . . .", "b5 b5 . . . . . . ."},
         "c3",
         3,
         {1, 1},
         {{{12, 1, 3}}, {{12, 1, 2}}},
         {". . . w2 . . . . ."},
         "c1 c2 c3 b5 b5"},
        {"a pair left of a sequence, pair first",
         {". . N . c2 c1 w8 w9 .", ". . . . w7 w7 . . ."},
         "c3",
         4,
         {1, 3},
         {{{12, 4, 3}}, {{12, 5, 2}, {12, 6, 3}}},
         {". . N . w7 w7 w8 w9 ."},
         "c3 c2 c1"},
        {"all rows that moved, from the lowest up",
         {"c1 c2 . . . . . . .", "N N . . . . . . .", "b1 b1 . . . . . . ."},
         "c3",
         3,
         {1, 3},
         {{{12, 1, 3}}, {{12, 1, 2}, {11, 1, 2}}},
         {"N N . . . . . . .", "b1 b1 . . . . . . ."},
         "c1 c2 c3"},
        {"pass keeps all", {"c1 c2 . . . . . . ."}, "c3", 3, {2}, {{{12, 1, 3}}}, {"c1 c2 c3 . . . . . ."}, ""},
    };
    for (const auto& row : cases) {
        beginHand();
        setBoard(row.board);
        offers.clear();
        answers = row.answers;
        land(row.tile, row.column);
        EXPECT_EQ(offers, row.offers) << row.what;
        EXPECT_EQ(board(), row.left) << row.what;
        int slot = 1;
        for (const std::string& name : words(row.earned)) {
            if (name == "|")
                slot = handTiles + 1;
            else
                EXPECT_EQ(game->EarnedTiles[slot++].Tile.KindIdx, kindOf(name)) << row.what;
        }
    }
}

TEST_F(Search, TheFourteenthTileEndsTheLanding) {
    beginHand();
    setBoard({"c1 c2 . . . . . . .", "f1 . . . . . . . ."});  // The flower would be offered if it went on.
    game->mintHandCount = game->mintEarnedCount = 11;
    game->mblnPairTaken = true;
    game->mintPairSlot = 1;
    answers = {1, 1};
    land("c3", 3);
    EXPECT_EQ(offers.size(), 1u);
    EXPECT_EQ(game->mintHandCount, handTiles);
}

TEST_F(Search, AWideSearchKeepsAPlaceForPass) {
    beginHand();
    std::vector<std::string> rows(bottomRow, ". N N N . . . . .");
    rows[0] = ". c2 c3 N . . . . .";
    setBoard(rows);
    answers = {1, candidatePlaces};
    land("c1", 1);
    ASSERT_EQ(offers.size(), 2u);
    EXPECT_EQ(offers[1].size(), static_cast<size_t>(candidateLimit));
    EXPECT_EQ(offers[1][10], (Candidate{7, 2, 2}));
    EXPECT_TRUE(sim::messages().empty());
}

}  // namespace
