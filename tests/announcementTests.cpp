// What a screen reader is given to say while a hand is played.

#include "platform/sim/simulation.h"
#include "play/frmChooseTiles.h"
#include "play/tileNames.h"
#include "tests/gameFixture.h"

namespace {

using namespace platform::key;

class Announcements : public GameFixture {
  protected:
    /// Begins a hand and lets a tile come in as the first one.
    void letEnter(const std::string& name) {
        beginHand();
        int16_t tile = 1;
        while (game->TileKindOf[tile] != kindOf(name)) ++tile;
        game->TileOrder[1] = tile;
        sim::runFor(500);
    }
};

TEST_F(Announcements, EachKindHasItsName) {
    const struct {
        const char *tile, *name;
    } rows[] = {
        {"c1", "1 of Circles"},    {"c9", "9 of Circles"},    {"b1", "1 of Bamboo"}, {"b9", "9 of Bamboo"},
        {"w1", "1 of Characters"}, {"w9", "9 of Characters"}, {"E", "East Wind"},    {"S", "South Wind"},
        {"W", "West Wind"},        {"N", "North Wind"},       {"R", "Red Dragon"},   {"G", "Green Dragon"},
        {"B", "Blue Dragon"},      {"s1", "Spring"},          {"s2", "Summer"},      {"s3", "Autumn"},
        {"s4", "Winter"},          {"f1", "Plum Blossom"},    {"f2", "Orchid"},      {"f3", "Chrysanthemum"},
        {"f4", "Bamboo Flower"},
    };
    for (const auto& row : rows) EXPECT_EQ(gstrfKindName(kindOf(row.tile)), row.name);
}

TEST_F(Announcements, TheFallingTileIsNamedAsItEnters) {
    sim::setScreenReader(true);
    letEnter("b3");
    EXPECT_EQ(sim::announcements(), std::vector<std::string>{"3 of Bamboo"});
    sim::runFor(2000);
    sim::pressKey(Left);
    EXPECT_EQ(sim::announcements().size(), 1u) << "once, however it falls";
}

TEST_F(Announcements, AnOfferIsToldWithItsHighlight) {
    const struct {
        const char *board, *tile;
        int column;
        std::vector<int> keys;
        std::vector<std::string> said;
    } rows[] = {
        {"c1 c1 . . . . . . .",
         "c1",
         3,
         {Right, Right, Right, Up, Left},
         {"Select tiles: a pair of 1 of Circles; three 1 of Circles; Pass. Highlighted: a pair of 1 of Circles",
          "three 1 of Circles", "Pass", "a pair of 1 of Circles", "Pass"}},
        {"w9 w8 . . . . . . .",
         "w7",
         3,
         {Space},
         {"Select tiles: 9, 8 and 7 of Characters; Pass. Highlighted: 9, 8 and 7 of Characters"}},
        {". . . . . . . . .", "f1", 3, {}, {"Select tiles: Plum Blossom; Pass. Highlighted: Plum Blossom"}},
    };
    for (const auto& row : rows) {
        sim::setScreenReader(true);
        beginHand();
        setBoard({row.board});
        const size_t before = sim::announcements().size();
        land(row.tile, row.column, [&] {
            for (const int key : row.keys) sim::pressKey(key);
            while (gfrmChooseTiles->mintCurEntry != gfrmChooseTiles->mintNumEntries) {
                sim::setScreenReader(false);
                sim::pressKey(Right);
            }
            sim::pressKey(Enter);
        });
        std::vector<std::string> said = {"Left and Right choose, Enter takes"};
        said.insert(said.end(), row.said.begin(), row.said.end());
        EXPECT_EQ(std::vector<std::string>(sim::announcements().begin() + static_cast<int>(before),
                                           sim::announcements().end()),
                  said);
    }
}

}  // namespace
