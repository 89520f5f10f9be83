#include "tests/gameFixture.h"

#include <ostream>
#include <sstream>
#include <utility>

#include "platform/sim/simulation.h"
#include "play/frmChooseTiles.h"

std::vector<std::string> words(const std::string& text) {
    std::istringstream in(text);
    std::vector<std::string> result;
    for (std::string word; in >> word;) result.push_back(word);
    return result;
}

namespace {

const std::vector<std::string>& kindNames() {
    static const auto names = words(
        "c1 c2 c3 c4 c5 c6 c7 c8 c9 b1 b2 b3 b4 b5 b6 b7 b8 b9 w1 w2 w3 w4 w5 w6 w7 w8 w9 "
        "E S W N R G B s1 s2 s3 s4 f1 f2 f3 f4");
    return names;
}

int16_t firstTileOf(const frmMain& game, int16_t kind) {
    for (int16_t tile = 1; tile <= tileCount; ++tile)
        if (game.TileKindOf[tile] == kind) return tile;
    return 0;
}

}  // namespace

int16_t kindOf(const std::string& name) {
    const auto found = std::ranges::find(kindNames(), name);
    EXPECT_NE(found, kindNames().end()) << "no tile is called " << name;
    return narrow16(static_cast<int>(found - kindNames().begin()) + 1);
}

std::string tileName(const CellInfo& place) { return place.Filled ? kindNames().at(place.Tile.KindIdx - 1) : "."; }

std::ostream& operator<<(std::ostream& out, const Candidate& candidate) {
    return out << candidate.tiles << " at row " << candidate.row << " column " << candidate.column;
}

void GameFixture::SetUp() {
    sim::switchOn(1);
    game = gfrmMain.hold();
    game->form.show();
}

void GameFixture::TearDown() {
    game.reset();
    gsClearAllForms();
}

void GameFixture::beginHand(int seat, int house, int wind) {
    game->mlngSeat = seat;
    game->mlngHouse = house;
    game->mlngRoundWind = wind;
    game->msInitNewGame();
}

void GameFixture::setBoard(const std::vector<std::string>& rowsFromBottom) {
    int row = bottomRow;
    for (const std::string& text : rowsFromBottom) {
        const auto names = words(text);
        ASSERT_EQ(names.size(), static_cast<size_t>(columnCount)) << text;
        for (int column = 1; column <= columnCount; ++column)
            if (names[column - 1] != ".") game->CellTable[row][column].fill(game->TileKinds[kindOf(names[column - 1])]);
        --row;
    }
}

std::vector<std::string> GameFixture::board() const {
    std::vector<std::string> rows;
    for (int row = bottomRow; row >= 1; --row) {
        std::string text;
        bool any = false;
        for (const CellInfo& place : game->CellTable[row]) {
            if (!text.empty()) text += ' ';
            text += tileName(place);
            any = any || place.Filled;
        }
        if (!any) break;
        rows.push_back(text);
    }
    return rows;
}

void GameFixture::land(const std::string& name, int column, const std::function<void()>& whileAsked) {
    sim::setHands([&] {
        if (!gfrmChooseTiles.isOpen()) return;
        whileAsked ? whileAsked() : answer();
    });
    game->mintCurTile = firstTileOf(*game, kindOf(name));
    game->mintCurCol = narrow16(column);
    game->mintCurRow = bottomRow;
    while (game->CellTable[game->mintCurRow][column].Filled) --game->mintCurRow;
    game->mblnInTimerTick = true;  // as the tick that lands a tile has it
    game->msMarkCellTable();
    game->mblnInTimerTick = false;
    game->mintCurRow = noRow;
    sim::setHands({});
}

/// Notes the offer and takes the entry that the test wants.
void GameFixture::answer() {
    std::vector<Candidate> offer;
    for (int i = 1; i < gfrmChooseTiles->mintNumEntries; ++i) {
        int tiles = 0;
        for (const CellInfo& place : PossibleTiles[i]) tiles += place.Filled ? 1 : 0;
        offer.push_back({gfrmChooseTiles->maintRows[i], gfrmChooseTiles->maintCols[i], tiles});
    }
    const size_t number = offers.size();
    offers.push_back(offer);
    const int entry = number < answers.size() ? answers[number] : gfrmChooseTiles->mintNumEntries;
    while (gfrmChooseTiles->mintCurEntry != entry) sim::pressKey(platform::key::Right);
    sim::pressKey(platform::key::Enter);
}

void GameFixture::inDialog(const std::function<void()>& open, const std::function<void()>& action) {
    bool done = false;
    sim::setHands([&] {
        if (sim::modalDepth() > 0 && !std::exchange(done, true)) action();
    });
    open();
    sim::setHands({});
    EXPECT_TRUE(done) << "no dialog has opened";
    EXPECT_EQ(sim::modalDepth(), 0);
}

void GameFixture::inDialog(int button, const std::function<void()>& action) {
    inDialog([button] { sim::clickToolButton(button); }, action);
}

void GameFixture::startMatch() {
    inDialog(Button::StartAnew, [] { sim::pressKey(platform::key::Enter); });
}

void GameFixture::setHand(const std::string& text) {
    for (CellInfo& slot : game->EarnedTiles) slot.empty();
    game->mintPairSlot = 0;
    int slot = 1;
    for (const std::string& name : words(text)) {
        if (name == "|") {
            slot = handTiles + 1;
            continue;
        }
        if (slot == handTiles + 1 && game->mintPairSlot == 0) FAIL() << "no pair marked in " << text;
        std::string tile = name;
        if (tile.front() == '*') {  // the pair's first tile
            game->mintPairSlot = narrow16(slot);
            tile.erase(0, 1);
        }
        game->EarnedTiles[slot++].fill(game->TileKinds[kindOf(tile)]);
    }
}
