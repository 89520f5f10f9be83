// What a landing offers, and what taking a set leaves.

#include "tests/gameFixture.h"

namespace {

class Search : public GameFixture {};

TEST_F(Search, WhatALandedTileOffers) {
    struct {
        const char* what;
        const char* board;
        const char* tile;
        int column;
        const char* offer = "";
        int handCount = 0;
        bool pairTaken = false;
    } const cases[] = {
        {"two overlapping trios with their pairs", "c5 c5 . c5", "c5", 3,
         "c5 c5 12/2, c5 c5 12/3, c5 c5 c5 12/1, c5 c5 c5 12/2;"},
        {"the same with the pair taken", "c5 c5 . c5", "c5", 3, "c5 c5 c5 12/1, c5 c5 c5 12/2;", 2, true},
        {"a pair", ". . . . R", "R", 6, "R R 12/5;"},
        {"a pair when one was taken", ". . . . R", "R", 6, "", 2, true},
        {"one number in two suits", ". . . . c4", "b4", 6},
        {"a trio of an honour, its pair first", ". . . W . W", "W", 5, "W W 12/4, W W 12/5, W W W 12/4;", 2},
        {"three dragons", ". . . R . B", "G", 5},
        {"one number in three suits", "c4 b4", "w4", 3},
        {"a sequence up", "c7 c8", "c9", 3, "c7 c8 c9 12/1;"},
        {"a sequence down", "c9 c8", "c7", 3, "c9 c8 c7 12/1;"},
        {"a sequence into its gap", ". b3 . b5", "b4", 3, "b3 b4 b5 12/2;"},
        {"a sequence out of order", "c4 c3", "c5", 3},
        {"a sequence round the end", "c8 c9", "c1", 3},
        {"a sequence over two suits", "c7 c8", "b9", 3},
        {"winds in their order", "E S", "W", 3},
        {"flowers and seasons side by side", "s1 s2", "s3", 3, "s3 12/3;"},
        {"a flower above the bottom", "c1", "f1", 1},
        {"a set left of the new tile only", "b1 b2 b3", "R", 4},
        {"the left wall", ". c2 c3", "c1", 1, "c1 c2 c3 12/1;"},
        {"the right wall", ". . . . . . c7 c8", "c9", 9, "c7 c8 c9 12/7;"},
        {"a trio after four sets", "c5 c5", "c5", 3, "c5 c5 12/2;", 12},
        {"a trio after three sets and the pair", "c5 c5", "c5", 3, "c5 c5 c5 12/1;", 11, true},
        {"the row of the tile only", "N N c1 / c2 c3", "c4", 3, "c2 c3 c4 11/1;"},
    };
    for (const auto& row : cases) {
        beginHand();
        setBoard(row.board);
        game->mintHandCount = narrow16(row.handCount);
        game->mblnPairTaken = row.pairTaken;
        offers.clear();
        land(row.tile, row.column);
        EXPECT_EQ(offers, row.offer) << row.what;
        EXPECT_EQ(game->mintPossibleCount, 0) << row.what;
        EXPECT_FALSE(PossibleTiles[1][1].Filled) << row.what;
    }
}

TEST_F(Search, TakingASetClosesTheGapAndSearchesAroundIt) {
    struct {
        const char *what, *board, *tile;
        int column;
        const char *answers, *offers, *left, *earned;
    } const cases[] = {
        {"only its own columns drop", "c1 c2 . R / N S . W", "c3", 3, "1", "c1 c2 c3 12/1;", "N S . R / . . . W",
         "c1 c2 c3"},
        {"a flower comes down to the bottom", "c1 c1 / f2", "c1", 3, "21", "c1 c1 12/2, c1 c1 c1 12/1;f2 12/1;", "",
         "c1 c1 c1 . . . . . . . . . . . f2"},
        {"what dropped is a pair", "c1 c2 . w2 / b5 b5", "c3", 3, "11", "c1 c2 c3 12/1;b5 b5 12/1;", ". . . w2",
         "c1 c2 c3 b5 b5"},
        {"a pair left of a sequence, pair first", ". . N . c2 c1 w8 w9 / . . . . w7 w7", "c3", 4, "13",
         "c3 c2 c1 12/4;w7 w7 12/5, w7 w8 w9 12/6;", ". . N . w7 w7 w8 w9", "c3 c2 c1"},
        {"all rows that moved, from the lowest up", "c1 c2 / N N / b1 b1", "c3", 3, "13",
         "c1 c2 c3 12/1;N N 12/1, b1 b1 11/1;", "N N / b1 b1", "c1 c2 c3"},
        {"pass keeps all", "c1 c2", "c3", 3, "2", "c1 c2 c3 12/1;", "c1 c2 c3", ""},
    };
    for (const auto& row : cases) {
        beginHand();
        setBoard(row.board);
        offers.clear();
        answers = row.answers;
        land(row.tile, row.column);
        EXPECT_EQ(offers, row.offers) << row.what;
        EXPECT_EQ(board(), row.left) << row.what;
        EXPECT_EQ(earned(), row.earned) << row.what;
    }
}

TEST_F(Search, TheFourteenthTileEndsTheLanding) {
    beginHand();
    setBoard("c1 c2 / f1");  // The flower would be offered if it went on.
    game->mintHandCount = game->mintEarnedCount = 11;
    game->mblnPairTaken = true;
    game->mintPairSlot = 1;
    answers = "11";
    land("c3", 3);
    EXPECT_EQ(offers, "c1 c2 c3 12/1;");
    EXPECT_EQ(game->mintHandCount, handTiles);
}

TEST_F(Search, AWideSearchKeepsAPlaceForPass) {
    beginHand();
    std::string rows = ". c2 c3 N";
    for (int row = 2; row <= bottomRow; ++row) rows += " / . N N N";
    setBoard(rows);
    answers = "1";
    land("c1", 1);
    EXPECT_EQ(offers,
              "c1 c2 c3 12/1;N N 12/2, N N 12/3, N N 11/2, N N 11/3, N N 10/2, N N 10/3, N N 9/2, N N 9/3, N N 8/2, "
              "N N 8/3, N N 7/2;");
    EXPECT_TRUE(sim::messages().empty());
}

}  // namespace
