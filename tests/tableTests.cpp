// The whole window as a player sees it, moment by moment.

#include "play/frmChooseTiles.h"
#include "tests/tableFixture.h"

namespace {

using namespace platform::key;

using Table = TableFixture;

TEST_F(Table, IsBareUntilTheFirstTileComes) {
    EXPECT_TRUE(ExpectedTable().isSeenOn(shown)) << "as it opens";
    for (const int button : {Button::Peek, Button::Round}) sim::clickToolButton(button);
    game->msShowPicture();
    EXPECT_TRUE(ExpectedTable().isSeenOn(shown)) << "there is no next tile yet, and no wind";
    for (const int button : {Button::Peek, Button::Round}) sim::clickToolButton(button);
    dealHand("c1 E", 3);
    EXPECT_TRUE(ExpectedTable().isSeenOn(shown)) << "a hand has begun, and no tile has come";
    nextTile();
    EXPECT_TRUE(ExpectedTable().seats(3, 1, 1).score("0").tile(5, 1, "c1").isSeenOn(shown));
}

TEST_F(Table, ATileFallsByRowsAndGoesAsideByColumns) {
    dealHand("c1 E", 3);
    nextTile();
    const auto go = [&](int key, int column, int row) {
        key != 0 ? sim::pressKey(key) : ticks(1);
        EXPECT_TRUE(ExpectedTable().seats(3, 1, 1).score("0").tile(column, row, "c1").isSeenOn(shown))
            << "column " << column << ", row " << row;
    };
    go(0, 5, 2);
    for (int column = 4; column >= 1; --column) go(Left, column, 2);
    go(0, 1, 3);
    for (int column = 2; column <= 9; ++column) go(Right, column, 3);
    for (int row = 4; row <= 12; ++row) go(0, 9, row);
    go(0, 9, 12);  // It lies.
}

TEST_F(Table, EveryFaceIsTheOneOfItsKindAndAFullBoardIsSeenToItsEdges) {
    std::string sides;
    for (int row = 1; row <= bottomRow; ++row) sides += "c1 . . . E . . . w9 / ";
    for (const std::string& rows :
         {std::string("c1 c2 c3 c4 c5 c6 c7 c8 c9 / b1 b2 b3 b4 b5 b6 b7 b8 b9 / w1 w2 w3 w4 w5 w6 w7 w8 w9 / "
                      "E S W N R G B s1 s2 / s3 s4 f1 f2 f3 f4"),
          sides}) {
        beginHand(2);
        setBoard(rows);
        game->msDrawPlayArea();
        game->msShowPicture();
        EXPECT_TRUE(ExpectedTable().board(rows).isSeenOn(shown)) << rows;
    }
}

TEST_F(Table, TheNextTileShowsWithPeekFromTheNextShowOn) {
    dealHand("c1 E f2", 3);
    nextTile();
    sim::clickToolButton(Button::Peek);
    const auto falling = [](int row) { return ExpectedTable().seats(3, 1, 1).score("0").tile(5, row, "c1"); };
    EXPECT_TRUE(falling(1).isSeenOn(shown)) << "nothing changes before a show";
    press(Left, 1);
    EXPECT_TRUE(ExpectedTable().seats(3, 1, 1).score("0").tile(4, 1, "c1").nextTile("E").isSeenOn(shown)) << "by a key";
    press(Right, 1);
    ticks(1);
    EXPECT_TRUE(falling(2).nextTile("E").isSeenOn(shown));
    drop();
    nextTile();
    EXPECT_TRUE(falling(12).tile(5, 1, "E").nextTile("f2").isSeenOn(shown));
    game->mintTilesDropped = tileCount;
    ticks(1);
    EXPECT_TRUE(falling(12).tile(5, 2, "E").nextTile("f2").isSeenOn(shown)) << "none is left: what stands there stays";
    sim::clickToolButton(Button::Peek);
    ticks(1);
    EXPECT_TRUE(falling(12).tile(5, 3, "E").isSeenOn(shown));
}

TEST_F(Table, ATakenSetLeavesTheBoardAndStandsAmongTheEarned) {
    dealHand("c3 w9 b1", 2, 3, 4);
    setBoard("c1 c2 . R . . . . N / b9 . . f1 / b7 W . . . . . . s1");
    sim::clickToolButton(Button::Peek);
    nextTile();
    press(Left, 2);
    press(Down, 1);
    answers = "1";
    sim::setHands([this] {
        if (gfrmChooseTiles.isOpen()) sim::pressKey(Enter);
    });
    ticks(12, 5);
    const std::string left = "b9 . . R . . . . N / b7 W . f1 / . . . . . . . . s1";
    const auto table = [&] { return ExpectedTable().score("2").seats(2, 3, 4).board(left).earned("c1 c2 c3"); };
    EXPECT_TRUE(table().nextTile("w9").isSeenOn(shown)) << "at once";
    sim::runFor(400);
    EXPECT_TRUE(table().nextTile("b1").tile(5, 1, "w9").isSeenOn(shown)) << "with the next tile";
}

TEST_F(Table, AStrikeStandsUnderTheEarnedTilesAndNothingElseIsShownWithIt) {
    dealHand("c1", 1);
    setHand("c1 c2 c3 c4 c5 c6 R R R b1 b1 b1 *E E | s1 s2 s3 s4 f1 f2 f3 f4");
    nextTile();
    const auto table = [] { return ExpectedTable().seats(1, 1, 1).score("0").tile(5, 1, "c1"); };
    const std::string earned = "c1 c2 c3 c4 c5 c6 R R R b1 b1 b1 E E | s1 s2 s3 s4 f1 f2 f3 f4";
    platform::BitBlt(game->picWork, 300, 240, 290, 360, platform::Surface(290, 360), 0, 0, platform::SRCCOPY);
    game->mblnLightningDue = true;
    game->msDrawLightning();
    EXPECT_TRUE(table().strike().earned(earned).isSeenOn(shown));
    game->msDrawLightning();
    EXPECT_TRUE(table().earned(earned).isSeenOn(shown));
}

TEST_F(Table, SeatHouseAndWindAreThoseOfTheHandInBothLanguages) {
    for (int seat = 1; seat <= 4; ++seat)
        for (int house = 1; house <= 4; ++house) {
            const int wind = (seat + house) % 4 + 1;
            game->mlngScore = 1000 * seat + house;
            dealHand("E", seat, house, wind);
            for (const bool inChinese : {true, false, true}) {
                SCOPED_TRACE(testing::Message() << "seat " << seat << " House " << house << " Chinese " << inChinese);
                game->mintCurRow == noRow ? nextTile() : ticks(1);
                EXPECT_TRUE(ExpectedTable()
                                .seats(seat, house, wind, inChinese)
                                .score(std::to_string(1000 * seat + house))
                                .tile(5, game->mintCurRow, "E")
                                .isSeenOn(shown));
                sim::clickToolButton(Button::Round);
            }
            sim::clickToolButton(Button::Round);
        }
}

TEST_F(Table, AHandShowsFromItsFirstTickToTheNext) {
    dealHand("c1 E", 2, 4, 1);
    game->mintHouseMoves = 3;
    setHand("c1 c2 c3 *R R | f2");
    setBoard("b1 b2");
    sim::clickToolButton(Button::Peek);
    nextTile();
    const auto before =
        ExpectedTable().seats(2, 4, 1).score("0").tile(5, 1, "c1").nextTile("E").earned("c1 c2 c3 R R | f2");
    EXPECT_TRUE(before.isSeenOn(shown));
    game->mlngScore = 31;
    game->mintCurRow = noRow;
    game->mintTilesDropped = 143;
    sim::runFor(400);
    EXPECT_EQ(game->mintTilesDropped, 0);
    EXPECT_TRUE(before.isSeenOn(shown)) << "the hand has ended, and with it the round";
    game->TileOrder[1] = 144;  // the last flower
    game->TileOrder[2] = 1;
    sim::runFor(400);
    const auto second = ExpectedTable().seats(2, 1, 2).score("31").tile(5, 1, "f4").nextTile("c1");
    EXPECT_TRUE(second.isSeenOn(shown));

    gintNumRounds = game->mintRoundsPlayed;
    game->mintCurRow = noRow;
    sim::setHands([] {
        if (sim::modalDepth() > 0) sim::pressKey(Enter);
    });
    sim::runFor(2000);
    EXPECT_FALSE(game->mblnGameRunning);
    EXPECT_TRUE(second.isSeenOn(shown)) << "the last picture stays after a match";
}

TEST_F(Table, TheTicksComeAsLevelAndHandSay) {
    const char* const paces[] = {"44444444444444", "44444444444333", "44444444333333", "33333333333333",
                                 "33333333222222"};  // hundreds of milliseconds, for hands of 0 to 13 tiles
    for (game->mlngLevel = 1; game->mlngLevel <= levelCount; ++game->mlngLevel)
        for (int handCount = 0; handCount < handTiles; ++handCount) {
            beginHand();
            game->mintHandCount = narrow16(handCount);
            nextTile();
            EXPECT_EQ(game->Timer1.interval(), (paces[game->mlngLevel - 1][handCount] - '0') * 100)
                << "Level " << game->mlngLevel << ", " << handCount << " tiles";
        }
}

}  // namespace
