#include "tests/gameFixture.h"

#include <algorithm>
#include <sstream>
#include <utility>

#include "play/frmChooseTiles.h"

namespace {

/// By kind; an empty place comes first.
const std::vector<std::string>& tileNames() {
    static const auto names = words(
        ". c1 c2 c3 c4 c5 c6 c7 c8 c9 b1 b2 b3 b4 b5 b6 b7 b8 b9 w1 w2 w3 w4 w5 w6 w7 w8 w9 "
        "E S W N R G B s1 s2 s3 s4 f1 f2 f3 f4");
    return names;
}

/// Names with a blank between them, without those of empty places at the end.
template <class Places>
std::string namesOf(const Places& places) {
    std::string text;
    for (const CellInfo& place : places) text += tileName(place.Filled ? place.Tile.KindIdx : 0) + ' ';
    return text.substr(0, text.find_last_not_of(". ") + 1);
}

}  // namespace

int16_t kindOf(const std::string& name) {
    const auto found = std::ranges::find(tileNames(), name);
    EXPECT_NE(found, tileNames().end()) << "no tile is called " << name;
    return narrow16(found - tileNames().begin());
}

std::string tileName(int kind) { return tileNames().at(static_cast<size_t>(kind)); }

std::vector<std::string> words(const std::string& text) {
    std::istringstream in(text);
    return {std::istream_iterator<std::string>(in), {}};
}

std::vector<OfferedSet> offeredSets() {
    std::vector<OfferedSet> sets;
    for (int i = 1; i < gfrmChooseTiles->mintNumEntries; ++i)
        sets.push_back({namesOf(PossibleTiles[i]), gfrmChooseTiles->maintRows[i], gfrmChooseTiles->maintCols[i]});
    return sets;
}

void GameFixture::startProgram(double secondOfDay) {
    TearDown();
    sim::switchOn(1, secondOfDay);
    game = gfrmMain.hold();
    game->form.show();
}

void GameFixture::TearDown() {
    sim::setHands({});
    sim::setLog({});
    game.reset();
    gsClearAllForms();
}

void GameFixture::dealHand(const std::string& firstTiles, int seat, int house, int wind) {
    game->mlngSeat = seat;
    game->mlngHouse = house;
    game->mlngRoundWind = wind;
    game->msInitNewGame();
    auto next = game->TileOrder.begin();
    for (const std::string& name : words(firstTiles)) {
        const auto tile = std::find_if(next, game->TileOrder.end(),
                                       [&](int16_t each) { return game->TileKindOf[each] == kindOf(name); });
        ASSERT_NE(tile, game->TileOrder.end()) << "there is no further tile " << name;
        std::iter_swap(next++, tile);
    }
}

void GameFixture::setBoard(const std::string& rowsFromBottom) {
    std::istringstream rows(rowsFromBottom);
    int row = bottomRow;
    for (std::string names; std::getline(rows, names, '/'); --row) {
        int column = 1;
        for (const std::string& name : words(names)) {
            if (name != ".") game->CellTable[row][column].fill(game->TileKinds[kindOf(name)]);
            ++column;
        }
    }
}

std::string GameFixture::board() const {
    std::string text;
    for (int row = bottomRow; !namesOf(game->CellTable[row]).empty(); --row)
        text += (text.empty() ? "" : " / ") + namesOf(game->CellTable[row]);
    return text;
}

std::string GameFixture::earned() const { return namesOf(game->EarnedTiles); }

void GameFixture::land(const std::string& name, int column, const std::function<void()>& whileAsked) {
    sim::setHands([&] {
        if (!gfrmChooseTiles.isOpen()) return;
        whileAsked ? whileAsked() : answer();
    });
    const auto tile = std::ranges::find(game->TileKindOf, kindOf(name));
    game->mintCurTile = narrow16(tile - game->TileKindOf.begin() + 1);
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
    const auto number = static_cast<size_t>(std::ranges::count(offers, ';'));
    std::string offer;
    for (const OfferedSet& set : offeredSets())
        offer +=
            (offer.empty() ? "" : ", ") + set.tiles + ' ' + std::to_string(set.row) + '/' + std::to_string(set.column);
    offers += offer + ';';
    const int entry = number < answers.size() ? answers[number] - '0' : gfrmChooseTiles->mintNumEntries;
    while (gfrmChooseTiles->mintCurEntry != entry) sim::pressKey(platform::key::Right);
    sim::pressKey(platform::key::Enter);
}

void GameFixture::nextTile() {
    const int dropped = game->mintTilesDropped;
    while (game->mintTilesDropped == dropped) sim::step();
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
    for (std::string name : words(text)) {
        if (name == "|") {
            slot = handTiles + 1;
            continue;
        }
        if (name.front() == '*') {  // the pair's first tile
            game->mintPairSlot = narrow16(slot);
            name.erase(0, 1);
        }
        game->EarnedTiles[slot++].fill(game->TileKinds[kindOf(name)]);
    }
}

void GameFixture::tally(const std::string& hand, int seat, int house, int wind) {
    beginHand(seat, house, wind);
    setHand(hand);
    game->mlngScore = 0;
    game->mintHandCount = handTiles;
    game->msTallyScore();
}
