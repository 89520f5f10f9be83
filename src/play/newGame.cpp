#include <algorithm>

#include "frmMain.h"
#include "platform/desktop.h"
#include "presentation/layout.h"
#include "toolkit/failures.h"

namespace {

void put(CellInfo& cell, const PixelPoint& point) {
    cell.X = point.X;
    cell.Y = point.Y;
}

/// Gives the places of the board, of candidates and of earned tiles their pixels.
void placeCells(frmMain& m) {
    for (int row = 0; row <= bottomRow; ++row)
        for (int col = 1; col <= columnCount; ++col) put(m.CellTable[row][col], cellPoint(row, col));
    for (int i = 1; i <= candidatePlaces; ++i)
        for (int j = 1; j <= setTiles; ++j) put(PossibleTiles[i][j], entryPoint(i, j));
    for (int i = 1; i <= slotCount; ++i) put(m.EarnedTiles[i], slotPoint(i));
}

}  // namespace

void frmMain::msInitVar() {
    guarded("msInitVar", [&] {
        placeCells(*this);
        for (const KindRun& run : kindRuns)
            for (int16_t k = run.firstKind; k <= run.lastKind; ++k) {
                const int32_t step = k - run.firstKind;
                TileKinds[k] = {run.firstNumber > 0 ? run.firstNumber + step : 0, run.suit,
                                run.firstBonus > 0 ? run.firstBonus + step : 0, k};
            }
        msAssignTileBmpIdx();
    });
}

void frmMain::msAssignTileBmpIdx() {
    guarded("msAssignTileBmpIdx", [&] {
        for (const TileRun& run : tileRuns)
            for (int tile = run.firstTile; tile <= run.lastTile; ++tile)
                TileKindOf[tile] = narrow16(run.firstKind + (tile - run.firstTile) % run.kinds);
    });
}

void frmMain::msInitTileSet(Candidates& sets) {
    guarded("msInitTileSet", [&] {
        mintPossibleCount = 0;
        for (auto& set : sets)
            for (CellInfo& cell : set) cell.empty();
    });
}

void frmMain::msShuffleTiles() {
    guarded("msShuffleTiles", [&] {
        platform::seedRandom();
        // Each number goes to one of the positions that are still free, all as likely. The free ones stand in front, in
        // order; those behind the chosen one move up by one, so that it isn't chosen again.
        Table<int16_t, 1, tileCount> free;
        for (int16_t position = 1; position <= tileCount; ++position) free[position] = position;
        for (int16_t n = 1; n <= tileCount; ++n) {
            const int positions = tileCount + 1 - n;
            const int k = static_cast<int>(positions * platform::random()) + 1;
            TileOrder[free[k]] = n;
            std::copy(free.begin() + k, free.begin() + positions, free.begin() + k - 1);
        }
    });
}

void frmMain::msInitNewGame() {
    guarded("msInitNewGame", [&] {
        ++mlngHandNumber;
        for (auto& row : CellTable)
            for (CellInfo& cell : row) cell.empty();
        for (CellInfo& slot : EarnedTiles) slot.empty();
        picWork.clear();
        mblnDropKeyUsed = false;
        mintPairSlot = 0;
        mblnPairTaken = false;
        mintCurRow = noRow;
        mintEarnedCount = 0;
        mintCurTile = 0;
        mintHandCount = 0;
        mintDoubles = 0;
        mintBonusCount = 0;
        msResetLightning();
        mintTilesDropped = 0;
        msInitTileSet(PossibleTiles);
        msClearScoreDesc();
        msDrawRound();
        msDrawSeats();
        msUpdateScore(pairOfTiles, false);
        msShuffleTiles();
        Timer1.setEnabled(true);
        mblnInTimerTick = false;
        mblnGameRunning = true;
    });
}
