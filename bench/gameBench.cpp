// What the game's own work costs, each beside a bound in plain copies of the whole picture, which this run measures
// too. With --table the answer is the README's table, and the exit code is 1 if something costs more than its bound.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "frmMain.h"
#include "platform/desktop.h"
#include "platform/sim/simulation.h"
#include "tools/selfplay/sitting.h"

namespace {

/// The game in the first hand of a match, its first tile on the way.
/// Lays the pictures of the density, which lie beside this program, beside the simulated one.
void layPictures() {
    const std::string file = "pictures-x" + std::to_string(platform::density()) + ".bin";
    const auto own = std::filesystem::read_symlink("/proc/self/exe").replace_filename(file);
    if (std::filesystem::exists(own)) std::filesystem::create_symlink(own, platform::programFile(file));
}

class Game {
  public:
    Game() {
        sim::switchOn(1);
        layPictures();
        main->form.show();
        main->mlngSeat = main->mlngHouse = main->mlngRoundWind = 1;
        main->msInitNewGame();
        main->Timer1_Timer();
    }
    ~Game() {
        main.reset();
        gsClearAllForms();
    }
    frmMain* operator->() const { return main.get(); }

    void fillBoard(int rows) const {
        for (int row = bottomRow; row > bottomRow - rows; --row)
            for (int col = 1; col <= columnCount; ++col)
                main->CellTable[row][col].fill(
                    main->TileKinds[28 + (row + 2 * col) % 7]);  // No two winds side by side.
    }
    void fillSlots(int count) const {
        for (int slot = 1; slot <= count; ++slot) main->EarnedTiles[slot].fill(main->TileKinds[slot]);
    }

  private:
    std::shared_ptr<frmMain> main = gfrmMain.hold();
};

void plainCopy(benchmark::State& state) {
    const Game game;
    const platform::Surface& picture = game->picWork;
    const int dense = platform::density();
    std::vector<uint32_t> copy(static_cast<size_t>(picture.width() * dense) * picture.height() * dense);
    for (auto _ : state) {
        std::memcpy(copy.data(), picture.row(0), copy.size() * sizeof(uint32_t));
        benchmark::ClobberMemory();
    }
}

/// Steps a tile down an empty board, again and again.
void stepWith(benchmark::State& state, int slots) {
    const Game game;
    game.fillSlots(slots);
    for (auto _ : state) {
        if (game->mintCurRow == bottomRow) {
            game->msEraseTile();
            game->mintCurRow = 1;
            game->msDrawTile();
        }
        game->Timer1_Timer();
    }
}

void step(benchmark::State& state) { stepWith(state, 0); }
void stepWithSlots(benchmark::State& state) { stepWith(state, slotCount); }

/// Paints all that a taken set changes, over a board that is half full.
void repaint(benchmark::State& state) {
    const Game game;
    game.fillBoard(bottomRow / 2);
    game.fillSlots(slotCount);
    for (auto _ : state) {
        game->msDrawPlayArea();
        game->msDrawEarnedTiles();
        game->msDrawNexTile();
        game->msPrintScore();
        game->msDrawRound();
        game->msDrawSeats();
        game->msShowPicture();
    }
}

/// Lands a tile on a half full board and finds nothing to offer.
void search(benchmark::State& state) {
    const Game game;
    game.fillBoard(bottomRow / 2);
    game->mintCurRow = bottomRow / 2;
    for (auto _ : state) game->msMarkCellTable();
    if (game->mintEarnedCount != 0) state.SkipWithError("a set was found");
}

/// Values a won hand: sequences of one suit, a trio of dragons, a pair, and all flowers and seasons.
void tally(benchmark::State& state) {
    const Game game;
    const int kinds[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 32, 32, 32, 5, 5, 35, 36, 37, 38, 39, 40, 41, 42};
    int slot = 1;
    for (const int kind : kinds) game->EarnedTiles[slot++].fill(game->TileKinds[kind]);
    for (auto _ : state) {
        game->msClearScoreDesc();
        game->mintDoubles = 0;
        game->mlngScore = 0;
        game->mintPairSlot = 13;
        game->msTallyScore();
    }
    if (glngHandPoints == 0) state.SkipWithError("the hand is worth nothing");
}

/// A bolt, and the table under it again.
void strike(benchmark::State& state) {
    const Game game;
    for (auto _ : state) {
        game->mblnLightningDue = true;
        game->msEndLightning();
    }
}

/// A hand by the built-in player, with nothing painted.
void selfPlay(benchmark::State& state) {
    platform::Surface::keepsPixels = false;
    {
        selfplay::Sitting sitting(1, false);
        sitting.setRounds(100);
        for (auto _ : state) sitting.playMatch(1);
    }
    platform::Surface::keepsPixels = true;
}

struct Row {
    const char* name;
    void (*function)(benchmark::State& state);
    double bound;  // plain copies
    const char* words;
};

constexpr Row rows[] = {
    {"plainCopy", plainCopy, 1, "one plain copy of the picture"},
    {"step", step, 0.25, "a step of the falling tile, with its show"},
    {"stepWithSlots", stepWithSlots, 0.5, "the same with 22 earned tiles"},
    {"repaint", repaint, 8, "everything painted anew, after a set was taken"},
    {"search", search, 0.05, "a landing's search"},
    {"tally", tally, 0.05, "the tally of a won hand"},
    {"strike", strike, 1, "a strike of lightning, on and off"},
    {"selfPlay", selfPlay, 15, "a whole hand by the built-in player, unpainted"},
};

/// Shows the runs as usual, and keeps the median of each.
class Reporter : public benchmark::ConsoleReporter {
  public:
    std::map<std::string, double> medians;  ///< Nanoseconds of processor time.

    void ReportRuns(const std::vector<Run>& reports) override {
        for (const Run& run : reports)
            if (run.aggregate_name == "median") medians[run.run_name.function_name] = run.GetAdjustedCPUTime();
        if (!table) ConsoleReporter::ReportRuns(reports);
    }
    bool ReportContext(const Context& context) override { return table || ConsoleReporter::ReportContext(context); }

    bool table = false;
};

/// Prints the table; true if nothing costs more than its bound.
bool printTable(std::map<std::string, double>& medians) {
    bool kept = true;
    std::printf("| | Microseconds | Plain copies | At most |\n|---|---|---|---|\n");
    for (const Row& row : rows) {
        const double copies = medians[row.name] / medians["plainCopy"];
        kept = kept && copies <= row.bound;
        std::printf("| %s | %.2f | %.3f | %g |\n", row.words, medians[row.name] / 1000, copies, row.bound);
    }
    return kept;
}

}  // namespace

int main(int argc, char** argv) {
    Reporter reporter;
    if (argc > 1 && std::strcmp(argv[1], "--table") == 0) {
        reporter.table = true;
        --argc;
    } else if (argc > 2 && std::strcmp(argv[1], "--density") == 0) {  // Of all surfaces: 1 to 4.
        platform::setDensity(std::atoi(argv[2]));
        argc -= 2;
        argv += 2;
    }
    benchmark::Initialize(&argc, argv);
    for (const Row& row : rows) benchmark::RegisterBenchmark(row.name, row.function)->Repetitions(5)->MinTime(0.2);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return reporter.table && !printTable(reporter.medians) ? 1 : 0;
}
