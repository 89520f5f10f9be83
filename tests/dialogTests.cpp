// What each dialog shows and where, what the keys and the pointer do in it, and what closes it.

#include <tuple>

#include "forms/frmAbout.h"
#include "hiscores/frmHiScore.h"
#include "match/frmChooseSeat.h"
#include "match/frmGameSummary.h"
#include "match/frmRoundsSetting.h"
#include "play/frmChooseTiles.h"
#include "scoring/frmBreakDown.h"
#include "tests/tableFixture.h"

namespace {

using namespace platform::key;

using Dialogs = TableFixture;

/// These keys leave the dialog open.
void expectDeaf(std::initializer_list<int> keys) {
    for (const int key : keys) {
        sim::pressKey(key);
        EXPECT_EQ(sim::modalDepth(), 1) << "key " << key;
    }
}

/// A frame round tiles; each is 45 pixels high and has a border of 3.
void expectFrame(const platform::Shape& frame, int left, int top, int width, platform::Color color) {
    const auto& [place, borderWidth, borderColor, visible] = frame.look();
    EXPECT_TRUE(visible);
    EXPECT_EQ(std::tuple(place.left, place.top, place.width, place.height), std::tuple(left, top, width, 45));
    EXPECT_EQ(std::tuple(borderWidth, borderColor), std::tuple(3, color));
}

TEST_F(Dialogs, AnOfferStandsOnTheTableUntilEnterAndTheFallWithIt) {
    dealHand("c3", 4);
    setBoard("c1 c2 / b9");
    game->msDrawPlayArea();
    game->msDrawRound();
    game->msDrawSeats();
    nextTile();
    press(Left, 2);
    const auto expected = [] { return ExpectedTable().seats(4, 1, 1).board("c1 c2 c3 / b9"); };
    double answered = 0;
    const auto look = [&] {
        EXPECT_TRUE(expected().offer(1, 1, "c1 c2 c3").pass(2).isSeenOn(shown));
        for (const int x : {10, 150, 390}) sim::clickAt(x, 20);
        expectFrame(gfrmChooseTiles->Shape1, 3, 3, 96, 0x0000FF);
        expectFrame(gfrmChooseTiles->shpOnBoard, 37, 489, 96, 0x0000FF);
        expectDeaf({Escape, Space, Tab, Up, Down, Pad8, Pad2, 'P', '1'});
        sim::pressKey(Right);
        expectFrame(gfrmChooseTiles->Shape1, 101, 3, 96, 0x0000FF);
        EXPECT_FALSE(gfrmChooseTiles->shpOnBoard.look().visible) << "Pass lies nowhere";
        sim::postAfter(5000, [&] {
            sim::clickToolButton(Button::StartAnew);  // refused while the dialog is open
            EXPECT_EQ(sim::modalDepth(), 1);
            answered = sim::now();
            sim::pressKey(Enter);
        });
    };
    inDialog([this] { ticks(12); }, look);
    EXPECT_TRUE(expected().isSeenOn(shown));
    EXPECT_EQ(game->mintTilesDropped, 1);
    nextTile();
    const double entered = sim::now();
    EXPECT_DOUBLE_EQ(entered - answered, 400) << "the next tile doesn't come out of the dialog at once";
    while (game->mintCurRow == 1) sim::step();
    EXPECT_DOUBLE_EQ(sim::now() - entered, 400) << "and stands in its first row as long as in any";
}

TEST_F(Dialogs, TheHighlightRunsRoundTheEntries) {
    struct {
        int entries, from, key, to;
    } const cases[] = {
        {2, 1, Left, 2},   {2, 2, Right, 1},  {2, 1, Down, 1},    {2, 1, Up, 1},    {2, 1, Pad6, 2},   {2, 1, Pad4, 2},
        {8, 6, Down, 2},   {8, 2, Up, 6},     {6, 3, Down, 3},    {6, 1, Down, 5},  {6, 5, Down, 1},   {6, 5, Up, 1},
        {10, 3, Up, 7},    {10, 1, Up, 9},    {10, 9, Down, 1},   {10, 5, Down, 9}, {10, 7, Down, 3},  {10, 9, Up, 5},
        {12, 4, Pad8, 12}, {12, 8, Pad2, 12}, {12, 12, Right, 1}, {5, 3, Space, 3}, {5, 3, Escape, 3}, {5, 3, 'X', 3},
    };
    for (const auto& row : cases) {
        frmChooseTiles form;
        form.maintRows.resize(11);
        form.maintCols.resize(11);
        form.mintNumEntries = narrow16(row.entries);
        form.mintCurEntry = narrow16(row.from);
        form.Form_KeyDown(row.key);
        EXPECT_EQ(form.mintCurEntry, row.to) << row.entries << " entries, from " << row.from << ", key " << row.key;
    }
}

TEST_F(Dialogs, ElevenOffersAndPassFillThreeLines) {
    static const struct {
        const char* names;
        int column, left, top, width;  // of the tiles on the board; of the highlight
    } entries[] = {
        {"c1 c2 c3", 1, 3, 3, 96},  {"R R", 4, 101, 3, 66},  {"f1", 9, 199, 3, 36},   {"b7 b8 b9", 3, 297, 3, 96},
        {"w1 w1 w1", 5, 3, 48, 96}, {"s4", 5, 101, 48, 36},  {"E E", 6, 199, 48, 66}, {"c9 c8 c7", 7, 297, 48, 96},
        {"N N N", 2, 3, 93, 96},    {"G G", 8, 101, 93, 66}, {"f4", 4, 199, 93, 36},  {"", 0, 297, 93, 96},
    };
    dealHand("c1", 4);
    nextTile();
    DynamicTable<int16_t> rows, columns;
    rows.resize(11);
    columns.resize(11);
    auto expected = ExpectedTable().seats(4, 1, 1).score("0").tile(5, 1, "c1").pass(12);
    for (int i = 1; i <= 11; ++i) {
        columns[i] = narrow16(entries[i - 1].column);
        expected.offer(i, entries[i - 1].column, entries[i - 1].names);
        int tile = 0;
        for (const std::string& name : words(entries[i - 1].names))
            PossibleTiles[i][++tile].fill(game->TileKinds[kindOf(name)]);
    }
    gfrmChooseTiles->msLoadFormVariables(rows, columns);
    const auto look = [&] {
        EXPECT_TRUE(expected.isSeenOn(shown));
        for (const auto& entry : entries) {
            SCOPED_TRACE(entry.names);
            expectFrame(gfrmChooseTiles->Shape1, entry.left, entry.top, entry.width, 0x0000FF);
            sim::pressKey(Right);
        }
        sim::pressKey(Enter);
    };
    game->Timer1.setEnabled(false);
    inDialog([] { gfrmChooseTiles.showModal(); }, look);
    gfrmChooseTiles.clear();
}

TEST_F(Dialogs, TheSeatDrawTurnsItsTilesOver) {
    const auto dialog = [] { return ExpectedTable().dialog("103", 270, 163); };
    const int lefts[] = {50, 92, 134, 176};
    inDialog(Button::StartAnew, [&] {
        auto faceDown = dialog();
        for (const int left : lefts) faceDown.tileBack(270 + left, 163 + 108);
        EXPECT_TRUE(faceDown.isSeenOn(shown));
        for (const int key : {Right, Pad6}) {
            for (const int left : lefts) {
                expectFrame(gfrmChooseSeat->shpSeat, left - 3, 105, 36, 0xFF00FF);
                sim::pressKey(key);
            }
        }
        expectDeaf({Escape, Space, Tab, Up, Down, 'S', '1'});
        int32_t kind = 32;
        for (int32_t& tile : gfrmChooseSeat->malngSeatTiles) tile = --kind;  // North, West, South, East
        sim::postAfter(1999, [&] {
            auto open = dialog();
            for (int i = 0; i < 4; ++i) open.straightTile(270 + lefts[i], 163 + 108, std::string(1, "NWSE"[i]));
            EXPECT_TRUE(open.isSeenOn(shown));
            expectDeaf({Enter, Escape, Right});
            expectFrame(gfrmChooseSeat->shpSeat, 173, 105, 36, 0xFF00FF);
        });
        for (const int key : {Left, Pad4, Right}) sim::pressKey(key);
        const double turned = sim::now();
        sim::pressKey(Enter);
        EXPECT_NEAR(sim::now() - turned, 2000, 50);
    });
    EXPECT_EQ(game->mlngSeat, 1) << "East lay under the frame";
}

TEST_F(Dialogs, AClickDrawsTheTileUnderIt) {
    const int lefts[] = {47, 89, 131, 173};  // of the frames, 36 wide and 45 high from 105
    for (int tile = 1; tile <= 4; ++tile) {
        int expected = 0;
        inDialog(Button::StartAnew, [&] {
            const int left = lefts[tile - 1];
            const std::pair<int, int> beside[] = {{left - 1, 120}, {left + 36, 120}, {left, 104}, {left, 150}};
            for (const auto& [x, y] : beside) sim::clickAt(x, y);
            ASSERT_FALSE(gfrmChooseSeat->mblnDrawn);
            EXPECT_EQ(gfrmChooseSeat->mintSelTile, 1);
            sim::movePointer(left + 35, 149);
            EXPECT_EQ(gfrmChooseSeat->mintSelTile, tile);
            EXPECT_EQ(gfrmChooseSeat->shpSeat.look().place.left, left);
            expected = gfrmChooseSeat->malngSeatTiles[tile] - 27;
            sim::postAfter(1000, [&] {
                sim::clickAt(lefts[tile % 4], 120);
                EXPECT_EQ(gfrmChooseSeat->mintSelTile, tile) << "the tiles have been turned over";
            });
            sim::clickAt(left, 105);
        });
        EXPECT_EQ(game->mlngSeat, expected);
    }
}

TEST_F(Dialogs, TheBreakDownListsItsItemsOnTheTable) {
    const char* const items[] = {"Own Season Tile", "Own Flower Tile",      "Four Seasons Set",  "Own Wind Trio",
                                 "Pure Suit Hand",  "Three-Of-A-Kind Hand", "Green Dragon Trio", "Mixed Hand"};
    const char* const doubles[] = {"1 Double",  "1 Double",  "2 Doubles", "1 Double",
                                   "6 Doubles", "3 Doubles", "1 Double",  "0 Double"};
    dealHand("c1", 1);
    nextTile();
    gstrScoreDesc.clear();
    for (const char* const item : items) gstrScoreDesc += (gstrScoreDesc.empty() ? "" : ",") + std::string(item);
    glngHandPoints = 1638400;
    auto expected =
        ExpectedTable().seats(1, 1, 1).score("0").tile(5, 1, "c1").dialog("102", 64, 222).repeatRow(64, 550, 667);
    const auto printPair = [&](int x, int y, const std::string& left, int rightX, const std::string& right) {
        for (const int shadow : {1, 0}) {
            const platform::Font font = {"Wonton ICG", 11, true};
            const platform::Color color = shadow == 1 ? 0x404040 : 0x00FFFF;
            expected.text({left, 64 + x - shadow, 222 + y - shadow, font, color});
            expected.text({right, 64 + rightX, 222 + y - shadow, font, color});
        }
    };
    for (int i = 0; i < 8; ++i) printPair(i < 6 ? 38 : 354, 55 + 38 * (i % 6), items[i], i < 6 ? 249 : 566, doubles[i]);
    printPair(208, 284, "15", 520, "1638400");
    game->Timer1.setEnabled(false);
    const auto look = [&] {
        EXPECT_TRUE(expected.isSeenOn(shown));
        sim::pressKey(Enter);
    };
    inDialog([] { gfrmBreakDown.showModal(); }, look);
    EXPECT_TRUE(ExpectedTable().seats(1, 1, 1).score("0").tile(5, 1, "c1").isSeenOn(sim::screen()));
}

TEST_F(Dialogs, TheRoundsSettingShowsEachChange) {
    gintNumRounds = 2;
    const auto spin = [](int times, const std::string& rounds) {
        for (int i = 0; i < std::abs(times); ++i)
            (times > 0 ? gfrmRoundsSetting->SpinButton1.onSpinUp : gfrmRoundsSetting->SpinButton1.onSpinDown)();
        EXPECT_EQ(gfrmRoundsSetting->sspNumRounds.caption(), rounds);
    };
    inDialog(Button::RoundsSetting, [&] {
        spin(0, "2");
        spin(-1, "1");
        spin(-1, "1");
        spin(1, "2");
        expectDeaf({'1', 'O', Left, Right});
        spin(97, "99");
        spin(1, "100");
        spin(1, "100");
        sim::press(gfrmRoundsSetting->cmdCancel);
    });
    EXPECT_EQ(gintNumRounds, 2);
    inDialog(Button::RoundsSetting, [&] {
        spin(1, "3");
        sim::press(gfrmRoundsSetting->cmdOK);
    });
    EXPECT_EQ(gintNumRounds, 3);
}

TEST_F(Dialogs, TheNumberOfRoundsCountsAtOnce) {
    struct {
        int played, from, less;
        platform::CommandButton frmRoundsSetting::*button;
        int rounds;
        bool ends;
    } const cases[] = {
        {2, 4, 2, &frmRoundsSetting::cmdOK, 2, true},
        {2, 4, 4, &frmRoundsSetting::cmdOK, 1, false},
        {2, 4, 2, &frmRoundsSetting::cmdCancel, 4, false},
    };
    for (const auto& row : cases) {
        startMatch();
        game->mintRoundsPlayed = narrow16(row.played);
        gintNumRounds = narrow16(row.from);
        int summaries = 0;
        sim::post([&] {
            frmRoundsSetting& setting = *gfrmRoundsSetting.hold();
            for (int i = 0; i < row.less; ++i) setting.SpinButton1.onSpinDown();
            sim::press(setting.*row.button);
            sim::setHands([&] {
                if (!gfrmGameSummary.isOpen()) return;
                ++summaries;
                sim::pressKey(Enter);
            });
        });
        sim::clickToolButton(Button::RoundsSetting);
        sim::runFor(1000);
        EXPECT_EQ(gintNumRounds, row.rounds) << row.less;
        EXPECT_EQ(summaries, row.ends ? 1 : 0) << row.less;
        sim::setHands({});
    }
}

TEST_F(Dialogs, TheSummaryGivesThePercentageInItsShortestForm) {
    struct {
        int won, games;
        const char* text;
    } const cases[] = {{0, 4, "0%"},     {1, 4, "25%"},     {7, 9, "77.78%"}, {1, 3, "33.33%"},
                       {1, 8, "12.5%"},  {4, 4, "100%"},    {1, 32, "3.12%"}, {3, 32, "9.38%"},
                       {1, 7, "14.29%"}, {1, 1000, "0.1%"}, {2, 3, "66.67%"}};
    for (const auto& row : cases) {
        frmGameSummary summary;
        summary.msLoadFormVariables(1, narrow16(row.games), narrow16(row.won));
        EXPECT_EQ(summary.mstrfPercentage(), row.text);
    }
}

TEST_F(Dialogs, EnterEscapeOrAClickClosesWhatOnlyTells) {
    struct {
        const char* what;
        void (*show)();
        int width, height;
    } const rows[] = {
        {"the about box", [] { gfrmAbout.showModal(); }, 273, 153},
        {"the high scores", [] { gfrmHiScore.showModal(); }, 500, 351},
        {"the break-down", [] { gfrmBreakDown.showModal(); }, 667, 330},
        {"the summary", [] { gfrmGameSummary->msLoadFormVariables(4, 17, 5), gfrmGameSummary.showModal(); }, 353, 279},
    };
    for (const auto& row : rows) {
        const std::function<void()> closings[] = {[] { sim::pressKey(Enter); }, [] { sim::pressKey(Escape); },
                                                  [] { sim::clickAt(0, 0); }, [] { sim::clickAt(100, 90); },
                                                  [&] { sim::clickAt(row.width - 1, row.height - 1); }};
        for (const auto& close : closings) {
            SCOPED_TRACE(row.what);
            inDialog(row.show, [&] {
                expectDeaf({Space, Tab, Left, Right, Up, Down, 'B'});
                sim::clickAt(row.width, 90);
                sim::clickAt(100, row.height);
                EXPECT_EQ(sim::modalDepth(), 1);
                close();
                EXPECT_EQ(sim::modalDepth(), 0);
            });
        }
    }
}

}  // namespace
