// The dialogs as a person meets them: keys, focus, and what they leave.

#include "platform/sim/simulation.h"
#include "play/frmChooseTiles.h"
#include "tests/gameFixture.h"

namespace {

using namespace platform::key;

class Dialogs : public GameFixture {
  protected:
    /// A chooser with so many entries, Pass among them, that isn't shown.
    std::unique_ptr<frmChooseTiles> chooser(int entries) {
        game->msInitTileSet(PossibleTiles);
        auto form = std::make_unique<frmChooseTiles>();
        form->maintRows.resize(entries - 1);
        form->maintCols.resize(entries - 1);
        for (int i = 1; i < entries; ++i) {
            PossibleTiles[i][1].fill(game->TileKinds[1]);
            PossibleTiles[i][2].fill(game->TileKinds[1]);
            form->maintRows[i] = narrow16(i);
            form->maintCols[i] = 1;
        }
        form->mintNumEntries = narrow16(entries);
        return form;
    }
};

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
        const auto form = chooser(row.entries);
        form->mintCurEntry = narrow16(row.from);
        form->Form_KeyDown(row.key);
        EXPECT_EQ(form->mintCurEntry, row.to) << row.entries << " entries, from " << row.from << ", key " << row.key;
    }
}

TEST_F(Dialogs, TheChooserStaysUntilEnterAndTheFallStands) {
    beginHand();
    sim::runFor(500);
    const TileKind& face = game->TileKinds[game->TileKindOf[game->mintCurTile]];
    ASSERT_EQ(face.Bonus, 0) << "the seed's first tile pairs";
    game->CellTable[12][4].fill(face);
    bool asked = false;
    double answered = 0;
    sim::setHands([&] {
        if (sim::modalDepth() == 0 || asked) return;
        asked = true;
        for (const int key : {int{Escape}, int{Space}, int{'Q'}}) sim::pressKey(key);
        for (const int x : {365, 470, 560}) sim::clickAt(x, 460);
        EXPECT_EQ(sim::modalDepth(), 1);
        EXPECT_EQ(gfrmChooseTiles->mintCurEntry, 1);
        sim::postAfter(5000, [&] {
            EXPECT_EQ(game->mintTilesDropped, 1);
            sim::clickToolButton(Button::StartAnew);  // refused while the dialog is open
            EXPECT_EQ(sim::modalDepth(), 1);
            sim::pressKey(Left);
            answered = sim::now();
            sim::pressKey(Enter);
        });
    });
    while (game->mintTilesDropped == 1) sim::step();
    EXPECT_TRUE(asked);
    EXPECT_EQ(sim::modalDepth(), 0);
    EXPECT_EQ(game->mintHandCount, 0);
    const double entered = sim::now();
    EXPECT_DOUBLE_EQ(entered - answered, 400) << "the next tile doesn't come out of the dialog at once";
    while (game->mintCurRow == 1) sim::step();
    EXPECT_DOUBLE_EQ(sim::now() - entered, 400) << "the next tile stands in its first row as long as in any";
}

}  // namespace
