// What each dialog shows and where, what changes its captions, and which keys close it.

#include <functional>

#include "forms/frmAbout.h"
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

    /// Where the form stands on the main window, in twips, and its size in pixels.
    void expectPlace(const platform::Form& form, double left, double top, int width, int height) {
        EXPECT_DOUBLE_EQ(form.left() - game->form.left(), left);
        EXPECT_DOUBLE_EQ(form.top() - game->form.top(), top);
        EXPECT_EQ(form.scaleWidth(), width);
        EXPECT_EQ(form.scaleHeight(), height);
    }

    /// The panels and controls of the dialog, those that only group others included.
    static void expectLayout(const std::vector<std::string>& lines) { EXPECT_EQ(sim::layout(), lines); }

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
    EXPECT_TRUE(frame.visible());
    EXPECT_EQ(frame.borderWidth(), border);
    EXPECT_EQ(frame.borderColor(), color);
    const platform::Place place = frame.place();
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
        expectPlace(gfrmChooseTiles->form, 353 * 15, 436 * 15, 400, 141);
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
        EXPECT_FALSE(gfrmChooseTiles->shpOnBoard.visible()) << "Pass lies nowhere";
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
        expectPlace(gfrmChooseSeat->form, 4042.5, 2437.5, 256, 256);
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
    for (const int closing : {Enter, Escape}) {
        whenOpen([&] {
            expectPlace(gfrmBreakDown->form, 64 * 15, 3322.5, 667, 330);
            EXPECT_TRUE(expected.isSeenOn(shown));
            expectDeaf({Space, Tab, Left, Right, Up, Down, 'B'});
            sim::pressKey(closing);
        });
        game->Timer1.setEnabled(false);
        gfrmBreakDown.showModal();
        EXPECT_TRUE(looked);
        EXPECT_TRUE(ExpectedTable().seats(1, 1, 1).score("0").tile(5, 1, "c1").isSeenOn(sim::screen()));
    }
}

TEST_F(DialogViews, TheRoundsSettingShowsEachChange) {
    gintNumRounds = 2;
    const auto shows = [](const std::string& rounds) { EXPECT_EQ(gfrmRoundsSetting->sspNumRounds.caption(), rounds); };
    whenOpen([&] {
        expectPlace(gfrmRoundsSetting->form, 269 * 15, 222 * 15, 257, 137);
        shows("2");
        expectLayout({"0,0 257x137 '' Times New Roman 8 centre raised inset 2 000000 on C0C0C0",
                      "24,24 177x49 ' # of Rounds' Wonton ICG 14.25 left inset flat 1 C00000 on C0C0C0",
                      "120,12 41x25 '2' Wonton ICG 14.25 centre inset flat 1 0040C0 on C0C0C0",
                      "208,28 25x41 '' Times New Roman 8", "48,88 73x25 'OK' Wonton ICG 12",
                      "136,88 73x25 'Cancel' Wonton ICG 12"});
        sim::clickSpinDown();
        shows("1");
        sim::clickSpinDown();
        shows("1");
        sim::clickSpinUp();
        shows("2");
        expectDeaf({'1', 'O', Left, Right});
        for (int click = 0; click < 98; ++click) sim::clickSpinUp();
        shows("100");
        sim::clickSpinUp();
        shows("100");
        sim::clickButton("Cancel");
    });
    sim::clickToolButton(Button::RoundsSetting);
    EXPECT_TRUE(looked);
    EXPECT_EQ(gintNumRounds, 2);
    whenOpen([&] {
        shows("2");
        sim::clickSpinUp();
        shows("3");
        sim::clickButton("OK");
    });
    sim::clickToolButton(Button::RoundsSetting);
    EXPECT_EQ(gintNumRounds, 3);
}

TEST_F(DialogViews, TheSummaryTellsTheMatch) {
    beginHand();
    for (const int closing : {Enter, Escape}) {
        gfrmGameSummary->msLoadFormVariables(4, 17, 5);
        whenOpen([&] {
            expectPlace(gfrmGameSummary->form, 221 * 15, 151 * 15, 353, 279);
            expectLayout(
                {"0,0 353x279 '' Times New Roman 14.25 bold centre raised inset 2 000000 on C0C0C0",
                 "120,16 110x17 'Game Over...' Times New Roman 14.25 bold centre flat flat 1 000000 on C0C0C0",
                 "24,40 305x217 '' Times New Roman 14.25 bold centre raised flat 1 000000 on C0C0C0",
                 "46,13 208x17 '+++ Game Summary +++' Times New Roman 14.25 bold centre flat flat 1 FF0000 on C0C0C0",
                 "24,32 255x161 '' Times New Roman 12 bold centre inset flat 1 000000 on C0C0C0",
                 "24,16 145x25 '# Of Rounds Played' Times New Roman 12 bold left flat flat 1 0040C0 on C0C0C0",
                 "176,16 57x25 '4' Times New Roman 12 bold centre inset flat 1 0080FF on C0C0C0",
                 "24,48 137x25 '# Of Games Played' Times New Roman 12 bold left flat flat 1 0040C0 on C0C0C0",
                 "176,48 57x25 '17' Times New Roman 12 bold centre inset flat 1 0080FF on C0C0C0",
                 "24,80 137x25 '# Of Games Won' Times New Roman 12 bold left flat flat 1 0040C0 on C0C0C0",
                 "176,80 57x25 '5' Times New Roman 12 bold centre inset flat 1 0080FF on C0C0C0",
                 "24,112 145x25 'Winning Percentage' Times New Roman 12 bold left flat flat 1 0040C0 on C0C0C0",
                 "176,112 57x25 '29.41%' Times New Roman 12 bold centre inset flat 1 0080FF on C0C0C0"});
            expectDeaf({Space, Tab, Left, Down, 'G'});
            sim::pressKey(closing);
        });
        game->Timer1.setEnabled(false);
        gfrmGameSummary.showModal();
        EXPECT_TRUE(looked);
        EXPECT_EQ(sim::modalDepth(), 0);
    }
}

TEST_F(DialogViews, TheAboutBoxTellsTheVersionAndHoldsTheFall) {
    for (const int closing : {Enter, Escape}) {
        beginHand();
        whenOpen([&] {
            expectPlace(gfrmAbout->form, 261 * 15, 214 * 15, 273, 153);
            expectLayout({"0,0 273x153 '' Times New Roman 8 centre raised inset 2 000000 on C0C0C0",
                          "40,24 193x25 'Velmora v1.0' Times New Roman 9.75 bold centre raised flat 1 000000 on C0C0C0",
                          "48,64 97x17 'Programmed By:' Times New Roman 9.75 bold left flat flat 1 000000 on C0C0C0",
                          "152,64 97x17 'Tavin Orlec' Times New Roman 9.75 bold left flat flat 1 000000 on C0C0C0",
                          "48,88 97x17 'Graphics By:' Times New Roman 9.75 bold left flat flat 1 000000 on C0C0C0",
                          "152,88 97x17 'Tavin Orlec' Times New Roman 9.75 bold left flat flat 1 000000 on C0C0C0"});
            EXPECT_FALSE(game->Timer1.enabled());
            expectDeaf({Space, Tab, Left, Down, 'V'});
            sim::pressKey(closing);
        });
        sim::clickToolButton(Button::About);
        EXPECT_TRUE(looked);
        EXPECT_TRUE(gfrmAbout.empty());
        EXPECT_TRUE(game->Timer1.enabled());
    }
}

}  // namespace
