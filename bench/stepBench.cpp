// What one step of the falling tile costs, with its show, beside one plain copy of the whole picture.

#include <benchmark/benchmark.h>

#include <cstring>
#include <vector>

#include "frmMain.h"
#include "platform/sim/simulation.h"

namespace {

std::shared_ptr<frmMain> beginGame() {
    static const auto game = [] {
        sim::switchOn(1);
        auto made = gfrmMain.hold();
        made->form.show();
        return made;
    }();
    game->mlngSeat = game->mlngHouse = game->mlngRoundWind = 1;
    game->msInitNewGame();
    game->Timer1_Timer();
    return game;
}

void plainCopy(benchmark::State& state) {
    const platform::Surface& picture = beginGame()->picWork;
    std::vector<uint32_t> copy(static_cast<size_t>(picture.width()) * picture.height());
    for (auto _ : state) {
        std::memcpy(copy.data(), picture.row(0), copy.size() * sizeof(uint32_t));
        benchmark::ClobberMemory();
    }
}

/// Steps a tile down an empty board, again and again, with so many earned slots filled.
void step(benchmark::State& state) {
    const auto game = beginGame();
    for (int slot = 1; slot <= state.range(0); ++slot) game->EarnedTiles[slot].fill(game->TileKinds[slot]);
    for (auto _ : state) {
        if (game->mintCurRow == bottomRow) {
            game->msEraseTile();
            game->mintCurRow = 1;
            game->msDrawTile();
        }
        game->Timer1_Timer();
    }
}

BENCHMARK(plainCopy);
BENCHMARK(step)->Arg(0)->Arg(slotCount);

}  // namespace

BENCHMARK_MAIN();
