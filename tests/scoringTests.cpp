// What a finished hand is worth.

#include "tests/gameFixture.h"

namespace {

class Tally : public GameFixture {};

TEST_F(Tally, EachHandHasItsItemsAndDoubles) {
    struct {
        const char* what;
        const char* hand;
        int seat, house, wind;
        const char* items;
        int doubles;
    } const cases[] = {
        {"the worked hand", "S S S R R R G G G c1 c2 c3 *B B | s2 f3", 3, 2, 2,
         "Own Season Tile,Two Dragons Set,Prevailing Wind Trio,Own Wind Trio,Semi-Pure Suit Hand,Mixed Hand", 9},
        {"nothing", "c1 c2 c3 b4 b4 b4 w5 w5 w5 c9 c9 c9 *b2 b2", 1, 1, 1, "Mixed Hand", 0},

        // The hand as a whole.
        {"trios of one suit", "c1 c1 c1 c2 c2 c2 c3 c3 c3 c4 c4 c4 *c5 c5", 1, 1, 1,
         "Pure Suit Hand,Three-Of-A-Kind Hand", 9},
        {"sequences of one suit, some downward", "c1 c2 c3 c7 c6 c5 c9 c8 c7 c2 c3 c4 *c5 c5", 1, 1, 1,
         "Pure Suit Hand,Sequence Hand", 7},
        {"one suit, mixed", "c1 c2 c3 c7 c7 c7 c9 c8 c7 c2 c3 c4 *c5 c5", 1, 1, 1, "Pure Suit Hand,Mixed Hand", 6},
        {"sequences of one suit and an honour pair", "b1 b2 b3 b7 b6 b5 b9 b8 b7 b2 b3 b4 *N N", 1, 1, 1,
         "Semi-Pure Suit Hand,Sequence Hand", 4},
        {"trios of one suit and of honours", "b1 b1 b1 W W W b3 b3 b3 b4 b4 b4 *b5 b5", 1, 1, 1,
         "Semi-Pure Suit Hand,Three-Of-A-Kind Hand", 6},
        {"one suit and a pair of another", "b1 b1 b1 b2 b2 b2 b3 b3 b3 b4 b4 b4 *c5 c5", 1, 1, 1,
         "Three-Of-A-Kind Hand", 3},
        {"an honour trio among two suits", "b1 b1 b1 W W W c3 c3 c3 b4 b4 b4 *b5 b5", 1, 1, 1, "Three-Of-A-Kind Hand",
         3},
        {"ones and nines", "c1 c1 c1 b9 b9 b9 w1 w1 w1 c9 c9 c9 *w9 w9", 1, 1, 1,
         "Three-Of-A-Kind Hand,Ones-Nines-Only Hand", 9},
        {"ones and nines but for the pair", "c1 c1 c1 b9 b9 b9 w1 w1 w1 c9 c9 c9 *N N", 1, 1, 1, "Three-Of-A-Kind Hand",
         3},
        {"ones and nines with an honour trio", "c1 c1 c1 W W W w1 w1 w1 c9 c9 c9 *w9 w9", 1, 1, 1,
         "Three-Of-A-Kind Hand", 3},
        {"sequences of two suits", "c1 c2 c3 b4 b5 b6 b9 b8 b7 c3 c4 c5 *c7 c7", 1, 1, 1, "Sequence Hand", 1},

        // Dragons.
        {"honours only", "S S S R R R G G G N N N *B B", 1, 1, 1,
         "Two Dragons Set,Three-Of-A-Kind Hand,Dragons And Winds Hand", 12},
        {"three dragons in any order, behind another item", "B B B G G G R R R c1 c2 c3 *b5 b5 | f1", 1, 1, 1,
         "Own Flower Tile,Three Dragons Set,Mixed Hand", 5},
        {"three dragons, green first", "G G G c1 c2 c3 R R R B B B *b5 b5", 1, 1, 1, "Three Dragons Set,Mixed Hand", 4},
        {"green and blue with a red pair", "B B B c1 c2 c3 b1 b2 b3 G G G *R R | s1", 1, 1, 1,
         "Own Season Tile,Two Dragons Set,Mixed Hand", 4},
        {"red and blue with a green pair", "B B B c1 c2 c3 b1 b2 b3 R R R *G G", 1, 1, 1, "Two Dragons Set,Mixed Hand",
         3},
        {"two dragons and a pair of winds", "B B B c1 c2 c3 b1 b2 b3 G G G *W W", 1, 1, 1,
         "Blue Dragon Trio,Green Dragon Trio,Mixed Hand", 2},
        {"one dragon and a dragon pair", "B B B c1 c2 c3 b1 b2 b3 w5 w6 w7 *G G", 1, 1, 1,
         "Blue Dragon Trio,Mixed Hand", 1},

        // Winds.
        {"one wind that is both", "E E E c1 c2 c3 b1 b2 b3 w5 w6 w7 *c5 c5", 1, 1, 1,
         "Prevailing Wind Trio,Own Wind Trio,Mixed Hand", 2},
        {"the prevailing wind of another seat", "E E E c1 c2 c3 b1 b2 b3 w5 w6 w7 *c5 c5", 2, 1, 1,
         "Prevailing Wind Trio,Mixed Hand", 1},
        {"a wind of nobody", "N N N c1 c2 c3 b1 b2 b3 w5 w6 w7 *c5 c5", 2, 1, 1, "Mixed Hand", 0},
        {"three winds and a pair of the fourth", "N N N W W W E E E w5 w6 w7 *S S", 2, 1, 1,
         "Prevailing Wind Trio,Three Winds Set,Semi-Pure Suit Hand,Mixed Hand", 7},
        {"two winds and a pair", "N N N W W W b1 b2 b3 w5 w6 w7 *S S", 2, 1, 1, "Mixed Hand", 0},
        {"four winds", "N N N W W W E E E S S S *c1 c1", 2, 1, 1,
         "Prevailing Wind Trio,Own Wind Trio,Four Winds Set,Semi-Pure Suit Hand,Three-Of-A-Kind Hand", 12},

        // Flowers and seasons.
        {"both own tiles, in their order", "c1 c2 c3 b4 b4 b4 w5 w5 w5 c9 c9 c9 *b2 b2 | f2 s2", 2, 1, 1,
         "Own Flower Tile,Own Season Tile,Mixed Hand", 2},
        {"the same the other way round", "c1 c2 c3 b4 b4 b4 w5 w5 w5 c9 c9 c9 *b2 b2 | s2 s3 f2", 2, 1, 1,
         "Own Season Tile,Own Flower Tile,Mixed Hand", 2},
        {"four seasons", "c1 c2 c3 b4 b4 b4 w5 w5 w5 c9 c9 c9 *b2 b2 | s4 s3 s2 s1", 1, 1, 1,
         "Own Season Tile,Four Seasons Set,Mixed Hand", 3},
        {"seven of eight", "c1 c2 c3 b4 b4 b4 w5 w5 w5 c9 c9 c9 *b2 b2 | s4 s3 s2 f4 f3 f2 f1", 1, 1, 1,
         "Own Flower Tile,Four Flowers Set,Seven Flower/Season Combo,Mixed Hand", 6},
        {"six of eight", "c1 c2 c3 b4 b4 b4 w5 w5 w5 c9 c9 c9 *b2 b2 | s4 s3 s2 f4 f3 f2", 1, 1, 1, "Mixed Hand", 0},
        {"the highest hand", "E E E W W W N N N S S S *R R | s1 s2 s3 s4 f1 f2 f3 f4", 1, 1, 2,
         "Own Season Tile,Own Flower Tile,Four Seasons Set,Four Flowers Set,Seven Flower/Season Combo,Own Wind Trio,"
         "Prevailing Wind Trio,Four Winds Set,Three-Of-A-Kind Hand,Dragons And Winds Hand",
         24},
    };
    for (const auto& row : cases) {
        tally(row.hand, row.seat, row.house, row.wind);
        EXPECT_EQ(gstrScoreDesc, row.items) << row.what;
        EXPECT_EQ(game->mintDoubles, row.doubles) << row.what;
        EXPECT_EQ(glngHandPoints, 50 << row.doubles) << row.what;
    }
    EXPECT_EQ(glngHandPoints, 838860800);
    EXPECT_TRUE(sim::messages().empty());
}

TEST_F(Tally, AnOverflowIsReportedAndLeavesTheScore) {
    beginHand();
    game->mlngScore = 2147483640;
    setHand("E E E W W W N N N S S S *R R");
    game->mintHandCount = handTiles;
    game->msUpdateScore(pairOfTiles, true);
    EXPECT_EQ(game->mlngScore, 2147483640);
    game->mlngScore = 2147483647;
    game->msUpdateScore(trioOfTiles, false);
    EXPECT_EQ(game->mlngScore, 2147483647);
    const std::vector<std::string> expected = {"Error In msTallyScore: Error 6 - Overflow",
                                               "Error In msUpdateScore: Error 6 - Overflow"};
    EXPECT_EQ(sim::messages(), expected);
}

}  // namespace
