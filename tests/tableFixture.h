#pragma once

#include "tests/expectedTable.h"
#include "tests/gameFixture.h"

/// The game with an eye on its window: `shown` is what stands in it, and changes only when a form shows its surface,
/// opens or closes.
class TableFixture : public GameFixture {
  protected:
    void SetUp() override {
        GameFixture::SetUp();
        shown = sim::screen();
        sim::setLog([this](const std::string& line) {
            for (const char* const event : {" show", " form opens", " form closes"})
                if (line.ends_with(event)) shown = sim::screen();
        });
    }

    /// Lets the tile fall by so many rows.
    void ticks(int count, int interval = 400) { sim::runFor(count * interval); }
    /// Drops the tile, which lands; the next one hasn't come in yet.
    void drop() {
        sim::pressKey(platform::key::Down);
        while (game->mintCurRow != noRow) sim::step();
    }
    void press(int keyCode, int times) {
        for (int i = 0; i < times; ++i) sim::pressKey(keyCode);
    }

    platform::Surface shown;
};
