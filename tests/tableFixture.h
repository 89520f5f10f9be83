#pragma once

#include "platform/sim/simulation.h"
#include "tests/expectedTable.h"
#include "tests/gameFixture.h"

/// The game with an eye on its window: `shown` is what stands in it, and changes only when a form shows its surface,
/// opens or closes.
class TableFixture : public GameFixture {
  protected:
    void SetUp() override;
    void TearDown() override;

    /// Begins a hand in which these tiles fall first.
    void dealHand(const std::string& names, int seat, int house = 1, int wind = 1);
    /// Lets time pass until the next tile has come in.
    void nextTile();
    /// Lets the tile fall by so many rows.
    void ticks(int count, int interval = 400) { sim::runFor(count * interval); }
    /// Drops the tile, which lands; the next one hasn't come in yet.
    void drop();
    void press(int keyCode, int times) {
        for (int i = 0; i < times; ++i) sim::pressKey(keyCode);
    }

    platform::Surface shown;
};
