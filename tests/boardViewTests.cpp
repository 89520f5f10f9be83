// What stands on the picture and when the window shows it.

#include "platform/pictures.h"
#include "platform/sim/simulation.h"
#include "presentation/frmBitmaps.h"
#include "tests/gameFixture.h"

namespace {

using platform::Surface;

class BoardView : public GameFixture {
  protected:
    void SetUp() override {
        GameFixture::SetUp();
        beginHand(3);
        bare.setPicture(platform::pictureByNumber(101));
    }

    /// True if the rectangle of one surface looks like that of another.
    static bool same(const Surface& left, int leftX, int leftY, const Surface& right, int rightX, int rightY,
                     int width = tileWidth, int height = tileHeight) {
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                if (left.point(leftX + x, leftY + y) != right.point(rightX + x, rightY + y)) return false;
        return true;
    }

    /// What a face looks like at a place of the bare table.
    Surface painted(int x, int y, const char* name, int view) const {
        Surface result(tileWidth, tileHeight);
        platform::BitBlt(result, 0, 0, tileWidth, tileHeight, bare, x, y, platform::SRCCOPY);
        platform::BitBlt(result, 0, 0, tileWidth, tileHeight, gfrmBitmaps->picTileBackMask, 0, view, platform::SRCAND);
        platform::BitBlt(result, 0, 0, tileWidth, tileHeight, gfrmBitmaps->picAllTiles, (kindOf(name) - 1) * tileWidth,
                         view, platform::SRCPAINT);
        return result;
    }

    bool shows(const char* name, int x, int y, int view) const {
        return same(game->picWork, x, y, painted(x, y, name, view), 0, 0);
    }

    bool isBare(int x, int y) const { return same(game->picWork, x, y, bare, x, y); }

    Surface bare;
};

TEST_F(BoardView, TheTileHasTheViewOfItsColumnAndLeavesNothingBehind) {
    game->mintCurTile = 1;  // the circle of 1
    game->mintCurRow = 3;
    struct {
        int column, view;
    } const cases[] = {{1, 39}, {4, 39}, {5, 0}, {6, 78}, {9, 78}};
    for (const auto& row : cases) {
        game->mintCurCol = narrow16(row.column);
        const CellInfo& place = game->CellTable[3][row.column];
        game->msDrawTile();
        EXPECT_TRUE(shows("c1", place.X, place.Y, row.view)) << row.column;
        EXPECT_TRUE(same(game->form.surface(), 0, 0, game->picWork, 0, 0, 795, 581)) << row.column;
        game->msEraseTile();
        EXPECT_TRUE(isBare(place.X, place.Y)) << row.column;
    }
}

TEST_F(BoardView, AClearedBoardShowsTheBareTableAndTheTilesThatLie) {
    setBoard({"c1 . . . N . . . f4"});
    game->msDrawPlayArea();
    EXPECT_TRUE(shows("c1", 40, 492, 39));
    EXPECT_TRUE(shows("N", 160, 492, 0));
    EXPECT_TRUE(shows("f4", 280, 492, 78));
    EXPECT_TRUE(isBare(70, 492));
    for (CellInfo& place : game->CellTable[12]) place.empty();
    game->msDrawPlayArea();
    EXPECT_TRUE(same(game->picWork, 0, 0, bare, 0, 0, 800, 600));
}

TEST_F(BoardView, TheNextTileShowsOnlyWithPeek) {
    game->TileOrder[1] = 109;  // East
    game->TileOrder[2] = 110;  // South
    EXPECT_TRUE(isBare(474, 44));
    sim::clickToolButton(Button::Peek);
    EXPECT_TRUE(shows("E", 474, 44, 0));
    game->mintTilesDropped = 1;
    game->msDrawNexTile();
    EXPECT_TRUE(shows("S", 474, 44, 0));
    game->mintTilesDropped = tileCount;
    game->msDrawNexTile();
    EXPECT_TRUE(shows("S", 474, 44, 0)) << "no next tile: what stands there stays";
    sim::clickToolButton(Button::Peek);
    EXPECT_TRUE(isBare(474, 44));
}

TEST_F(BoardView, EarnedTilesStandStraightHoweverOftenTheyArePainted) {
    setHand("c1 c2 c3 *R R | f2");
    for (int time = 0; time < 3; ++time) {
        game->msDrawEarnedTiles();
        EXPECT_TRUE(shows("c1", 352, 177, 0));
        EXPECT_TRUE(shows("R", 472, 177, 0));
        EXPECT_TRUE(shows("f2", 352, 129, 0));
        EXPECT_TRUE(isBare(502, 177));
    }
}

TEST_F(BoardView, NothingReachesTheWindowBeforeAShow) {
    const Surface before = game->form.surface();
    sim::clickToolButton(Button::Peek);
    setBoard({"c1 c2 . . . . . . ."});
    game->msDrawPlayArea();
    EXPECT_TRUE(same(game->form.surface(), 0, 0, before, 0, 0, 795, 581));
    answers = {1};
    land("c3", 3);
    EXPECT_TRUE(same(game->form.surface(), 0, 0, game->picWork, 0, 0, 795, 581)) << "a taken set shows the picture";
    EXPECT_TRUE(isBare(40, 492));
    EXPECT_TRUE(shows("c1", 352, 177, 0));
}

TEST_F(BoardView, TheMarkersFollowWindHouseAndLanguage) {
    const auto marker = [&](const Surface& sheet, const Surface& mask, int x, int y, int column, int row) {
        const int width = mask.width();
        const int height = mask.height();
        for (int dy = 0; dy < height; ++dy)
            for (int dx = 0; dx < width; ++dx)
                if (mask.point(dx, dy) == 0 &&
                    game->picWork.point(x + dx, y + dy) != sheet.point(column * width + dx, row * height + dy))
                    return false;
        return true;
    };
    struct {
        int house, wind, x, y;
    } const cases[] = {{1, 1, 615, 311}, {2, 2, 599, 328}, {3, 1, 615, 346}, {4, 4, 634, 328}};
    for (const auto& row : cases) {
        beginHand(3, row.house, row.wind);
        for (const int language : {0, 1, 0}) {
            EXPECT_TRUE(marker(gfrmBitmaps->picHouse, gfrmBitmaps->picHouseMask, 428, 306, row.wind - 1, language));
            EXPECT_TRUE(marker(gfrmBitmaps->picSmallHouse, gfrmBitmaps->picSmallHouseMask, row.x, row.y, row.wind - 1,
                               language));
            sim::clickToolButton(Button::Round);
        }
        sim::clickToolButton(Button::Round);
    }
}

TEST_F(BoardView, ThePlayersSeatIsWhiteAndTheOthersBlueEachOverItsShadow) {
    constexpr platform::Color white = 0xFFFFFF, blue = 0xFF0000;
    const struct {
        const char* name;
        int left, top;
    } seats[] = {{"East", 600, 272}, {"South", 526, 320}, {"West", 600, 366}, {"North", 663, 320}};
    for (int player = 1; player <= seatCount; ++player) {
        beginHand(player);
        const auto& texts = game->picWork.texts;
        size_t at = 0;
        for (int seat = 1; seat <= seatCount; ++seat) {
            const auto& expected = seats[seat - 1];
            const bool isPlayer = seat == player;
            for (const int shadow : {1, 0}) {
                ASSERT_LT(at, texts.size());
                const platform::PrintedText& text = texts[at++];
                EXPECT_EQ(text.text, isPlayer ? "Player" : expected.name);
                EXPECT_EQ(text.left, expected.left - shadow) << text.text;
                EXPECT_EQ(text.top, expected.top - shadow) << text.text;
                EXPECT_EQ(text.color, shadow == 1 ? 0 : isPlayer ? white : blue) << text.text;
                EXPECT_EQ(text.font.name, "Wonton ICG");
                EXPECT_EQ(text.font.points, 18);
                EXPECT_FALSE(text.font.bold);
            }
        }
    }
}

}  // namespace
