// What a screen reader is given to say while a hand is played.

#include "play/frmChooseTiles.h"
#include "play/tileNames.h"
#include "tests/seenText.h"
#include "tests/tableFixture.h"

namespace {

using namespace platform::key;
using Announcements = TableFixture;

TEST_F(Announcements, EachKindHasItsName) {
    std::string names;
    for (int16_t kind = 1; kind <= kindCount; ++kind) names += gstrfKindName(kind) + '\n';
    EXPECT_EQ(names, seenText("kinds"));
}

TEST_F(Announcements, TheFallingTileIsNamedAsItEnters) {
    sim::setScreenReader(true);
    dealHand("b3", 1);
    nextTile();
    ticks(5);
    press(Left, 1);
    inDialog(Button::About, [] { sim::pressKey(Escape); });
    EXPECT_EQ(sim::announcements(), std::vector<std::string>{"3 of Bamboo"}) << "once, however it falls";
}

TEST_F(Announcements, AnOfferIsToldWithItsHighlight) {
    const struct {
        const char *board, *tile;
        std::vector<int> keys;
        std::string said;
    } rows[] = {
        {"c1 c1 . . . . . . .",
         "c1",
         {Right, Right, Right, Up, Left},
         "Select tiles: a pair of 1 of Circles; three 1 of Circles; Pass. Highlighted: a pair of 1 of Circles\n"
         "three 1 of Circles\nPass\na pair of 1 of Circles\nPass\n"},
        {"w9 w8 . . . . . . .",
         "w7",
         {Space},
         "Select tiles: 9, 8 and 7 of Characters; Pass. Highlighted: 9, 8 and 7 of Characters\n"},
        {". . . . . . . . .", "f1", {}, "Select tiles: Plum Blossom; Pass. Highlighted: Plum Blossom\n"},
    };
    for (const auto& row : rows) {
        sim::setScreenReader(true);
        beginHand();
        setBoard(row.board);
        const size_t before = sim::announcements().size();
        land(row.tile, 3, [&] {
            for (const int key : row.keys) sim::pressKey(key);
            sim::setScreenReader(false);
            while (gfrmChooseTiles->mintCurEntry != gfrmChooseTiles->mintNumEntries) sim::pressKey(Right);
            sim::pressKey(Enter);
        });
        std::string said;
        for (size_t i = before; i < sim::announcements().size(); ++i) said += sim::announcements()[i] + '\n';
        EXPECT_EQ(said, "Left and Right choose, Enter takes\n" + row.said);
    }
}

}  // namespace
