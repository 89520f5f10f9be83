// What each dialog shows and where, what changes its captions, and which keys close it.

#include <functional>

#include "match/frmChooseSeat.h"
#include "match/frmGameSummary.h"
#include "match/frmRoundsSetting.h"
#include "play/frmChooseTiles.h"
#include "scoring/frmBreakDown.h"
#include "tests/tableFixture.h"

namespace {

using namespace platform::key;

class DialogViews : public TableFixture {
  protected:
    /// Looks once at the dialog that opens next; it has to be closed there.
    void whenOpen(std::function<void()> look) {
        looked = false;
        sim::setHands([this, look = std::move(look)] {
            if (sim::modalDepth() == 0 || looked) return;
            looked = true;
            look();
        });
    }

    /// These keys leave the dialog open.
    void expectDeaf(std::initializer_list<int> keys) {
        for (const int key : keys) {
            sim::pressKey(key);
            EXPECT_EQ(sim::modalDepth(), 1) << "key " << key;
        }
    }

    bool looked = false;
};

void expectFrame(const platform::Shape& frame, int left, int top, int width, int height, int border,
                 platform::Color color) {
    EXPECT_TRUE(frame.look().visible);
    EXPECT_EQ(frame.look().borderWidth, border);
    EXPECT_EQ(frame.look().borderColor, color);
    const platform::Place place = frame.look().place;
    EXPECT_EQ(place.left, left);
    EXPECT_EQ(place.top, top);
    EXPECT_EQ(place.width, width);
    EXPECT_EQ(place.height, height);
}

TEST_F(DialogViews, AnOfferStandsOnTheTable) {
    dealHand("c3", 4);
    setBoard({"c1 c2 . . . . . . .", "b9 . . . . . . . ."});
    game->msDrawPlayArea();
    game->msDrawRound();
    game->msDrawSeats();
    nextTile();
    press(Left, 2);
    press(Down, 1);
    whenOpen([this] {
        EXPECT_TRUE(ExpectedTable()
                        .seats(4, 1, 1)
                        .board({"c1 c2 c3 . . . . . .", "b9 . . . . . . . ."})
                        .offer(1, 1, "c1 c2 c3")
                        .pass(2)
                        .isSeenOn(shown));
        expectFrame(gfrmChooseTiles->Shape1, 3, 3, 96, 45, 3, 0x0000FF);
        expectFrame(gfrmChooseTiles->shpOnBoard, 37, 489, 96, 45, 3, 0x0000FF);
        expectDeaf({Escape, Space, Tab, Up, Down, Pad8, Pad2, 'P', '1'});
        sim::pressKey(Right);
        expectFrame(gfrmChooseTiles->Shape1, 101, 3, 96, 45, 3, 0x0000FF);
        EXPECT_FALSE(gfrmChooseTiles->shpOnBoard.look().visible) << "Pass lies nowhere";
        sim::pressKey(Enter);
    });
    ticks(12, 5);
    EXPECT_TRUE(looked);
    EXPECT_TRUE(ExpectedTable().seats(4, 1, 1).board({"c1 c2 c3 . . . . . .", "b9 . . . . . . . ."}).isSeenOn(shown));
}

TEST_F(DialogViews, ElevenOffersAndPassFillThreeLines) {
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
    whenOpen([&] {
        EXPECT_TRUE(expected.isSeenOn(shown));
        for (const auto& entry : entries) {
            SCOPED_TRACE(entry.names);
            expectFrame(gfrmChooseTiles->Shape1, entry.left, entry.top, entry.width, 45, 3, 0x0000FF);
            sim::pressKey(Right);
        }
        sim::pressKey(Enter);
    });
    game->Timer1.setEnabled(false);
    gfrmChooseTiles.showModal();
    gfrmChooseTiles.clear();
    EXPECT_TRUE(looked);
}

TEST_F(DialogViews, TheSeatDrawTurnsItsTilesOver) {
    const auto dialog = [] { return ExpectedTable().dialog("103", 270, 163); };
    const int lefts[] = {50, 92, 134, 176};
    whenOpen([&] {
        auto faceDown = dialog();
        for (const int left : lefts) faceDown.tileBack(270 + left, 163 + 108);
        EXPECT_TRUE(faceDown.isSeenOn(shown));
        for (const int key : {Right, Pad6}) {
            for (const int left : lefts) {
                expectFrame(gfrmChooseSeat->shpSeat, left - 3, 105, 36, 45, 3, 0xFF00FF);
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
            expectFrame(gfrmChooseSeat->shpSeat, 173, 105, 36, 45, 3, 0xFF00FF);
        });
        for (const int key : {Left, Pad4, Right}) sim::pressKey(key);
        const double turned = sim::now();
        sim::pressKey(Enter);
        EXPECT_NEAR(sim::now() - turned, 2000, 50);
    });
    sim::clickToolButton(Button::StartAnew);
    EXPECT_TRUE(looked);
    EXPECT_EQ(game->mlngSeat, 1) << "East lay under the frame";
}

TEST_F(DialogViews, TheBreakDownListsItsItemsOnTheTable) {
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
    const auto print = [&](int x, int y, int shadowX, const std::string& text, bool shadow) {
        expected.text({text,
                       64 + (shadow ? shadowX : x),
                       222 + y - (shadow ? 1 : 0),
                       {"Wonton ICG", 11, true},
                       shadow ? 0x404040u : 0x00FFFFu});
    };
    const auto printPair = [&](int x, int y, const std::string& left, int rightX, const std::string& right) {
        for (const bool shadow : {true, false}) {
            print(x, y, x - 1, left, shadow);
            print(rightX, y, rightX, right, shadow);
        }
    };
    for (int i = 0; i < 8; ++i) printPair(i < 6 ? 38 : 354, 55 + 38 * (i % 6), items[i], i < 6 ? 249 : 566, doubles[i]);
    printPair(208, 284, "15", 520, "1638400");
    whenOpen([&] {
        EXPECT_TRUE(expected.isSeenOn(shown));
        sim::pressKey(Enter);
    });
    game->Timer1.setEnabled(false);
    gfrmBreakDown.showModal();
    EXPECT_TRUE(looked);
    EXPECT_TRUE(ExpectedTable().seats(1, 1, 1).score("0").tile(5, 1, "c1").isSeenOn(sim::screen()));
}

TEST_F(DialogViews, TheRoundsSettingShowsEachChange) {
    gintNumRounds = 2;
    const auto shows = [](const std::string& rounds) { EXPECT_EQ(gfrmRoundsSetting->sspNumRounds.caption(), rounds); };
    whenOpen([&] {
        shows("2");
        gfrmRoundsSetting->SpinButton1.onSpinDown();
        shows("1");
        gfrmRoundsSetting->SpinButton1.onSpinDown();
        shows("1");
        gfrmRoundsSetting->SpinButton1.onSpinUp();
        shows("2");
        expectDeaf({'1', 'O', Left, Right});
        for (int click = 0; click < 98; ++click) gfrmRoundsSetting->SpinButton1.onSpinUp();
        shows("100");
        gfrmRoundsSetting->SpinButton1.onSpinUp();
        shows("100");
        sim::press(gfrmRoundsSetting->cmdCancel);
    });
    sim::clickToolButton(Button::RoundsSetting);
    EXPECT_TRUE(looked);
    EXPECT_EQ(gintNumRounds, 2);
    whenOpen([&] {
        shows("2");
        gfrmRoundsSetting->SpinButton1.onSpinUp();
        shows("3");
        sim::press(gfrmRoundsSetting->cmdOK);
    });
    sim::clickToolButton(Button::RoundsSetting);
    EXPECT_EQ(gintNumRounds, 3);
}

TEST_F(DialogViews, EnterOrEscapeClosesWhatOnlyTells) {
    struct {
        const char* what;
        std::function<void()> show;
    } const rows[] = {
        {"the about box", [] { sim::clickToolButton(Button::About); }},
        {"the high scores", [] { sim::clickToolButton(Button::HighScores); }},
        {"the break-down", [] { gfrmBreakDown.showModal(); }},
        {"the summary", [] { gfrmGameSummary->msLoadFormVariables(4, 17, 5), gfrmGameSummary.showModal(); }},
    };
    for (const auto& row : rows)
        for (const int closing : {Enter, Escape}) {
            SCOPED_TRACE(row.what);
            whenOpen([&] {
                expectDeaf({Space, Tab, Left, Right, Up, Down, 'B'});
                sim::pressKey(closing);
            });
            row.show();
            EXPECT_TRUE(looked);
            EXPECT_EQ(sim::modalDepth(), 0);
        }
}

}  // namespace
