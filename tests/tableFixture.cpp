#include "tests/tableFixture.h"

#include <algorithm>

void TableFixture::SetUp() {
    GameFixture::SetUp();
    shown = sim::screen();
    sim::setLog([this](const std::string& line) {
        for (const char* const event : {" show", " form opens", " form closes"})
            if (line.ends_with(event)) shown = sim::screen();
    });
}

void TableFixture::TearDown() {
    sim::setHands({});
    sim::setLog({});
    GameFixture::TearDown();
}

void TableFixture::dealHand(const std::string& names, int seat, int house, int wind) {
    beginHand(seat, house, wind);
    auto next = game->TileOrder.begin();
    for (const std::string& name : words(names)) {
        const auto tile = std::find_if(next, game->TileOrder.end(),
                                       [&](int16_t each) { return game->TileKindOf[each] == kindOf(name); });
        ASSERT_NE(tile, game->TileOrder.end()) << "there is no further tile " << name;
        std::iter_swap(next++, tile);
    }
}

void TableFixture::nextTile() {
    const int dropped = game->mintTilesDropped;
    while (game->mintTilesDropped == dropped) sim::step();
}

void TableFixture::drop() {
    sim::pressKey(platform::key::Down);
    while (game->mintCurRow != noRow) sim::step();
}
