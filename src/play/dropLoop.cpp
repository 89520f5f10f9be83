#include "frmMain.h"
#include "match/frmGameSummary.h"
#include "platform/desktop.h"
#include "platform/form.h"
#include "scoring/frmBreakDown.h"
#include "toolkit/failures.h"

void frmMain::Timer1_Timer() {
    if (mblnInTimerTick) return;
    mblnInTimerTick = true;
    if (mintRoundsPlayed == gintNumRounds) {
        msEndMatch();  // The guard stays set until the next match.
        return;
    }
    msGenerateLightning();
    if (mintCurRow == noRow ? mblnfTileEnters() : mblnfTileFalls()) {
        msDrawLightning();
        msDrawNexTile();
        msDrawEarnedTiles();
        msDrawTile();
    }
    mblnInTimerTick = false;
}

bool frmMain::mblnfTileEnters() {
    Timer1.setInterval(mintfSetTimeInterval());
    ++mintTilesDropped;
    mintCurTile = TileOrder[mintTilesDropped];
    mintCurCol = entryColumn;
    if (mblnfDropOK()) {
        mintCurRow = 0;
        if (mblnfDropOK()) mintCurRow = 1;
    }
    const bool blnWon = mintHandCount == handTiles;
    if (mintCurRow == 1 && !blnWon && mintTilesDropped != tileCount) return true;
    msEndHand(blnWon);
    return false;
}

bool frmMain::mblnfTileFalls() {
    if (!mblnfDropOK()) {
        msMarkCellTable();
        mintCurRow = noRow;
        return false;
    }
    const uint32_t lngThisHand = mlngHandNumber;
    platform::doEvents();
    // A command served just now can have begun another hand or held the game, and a key can have put the tile over a
    // taken place, where it lands at the next tick.
    if (lngThisHand != mlngHandNumber || mintCurRow == noRow || !Timer1.enabled() || !mblnfDropOK()) return false;
    msEraseTile();
    ++mintCurRow;
    return true;
}

void frmMain::msRestartTimer() {
    if (!Timer1.enabled()) return;
    Timer1.setEnabled(false);
    Timer1.setEnabled(true);
}

void frmMain::msEndHand(bool blnWon) {
    guarded("msEndHand", [&] {
        mintGamesPlayed = narrow16(mintGamesPlayed + 1);
        if (blnWon) mintGamesWon = narrow16(mintGamesWon + 1);
    });
    msUpdateHouse(blnWon);
    msUpdateRound();
    if (blnWon && mblnBreakDown) {
        Timer1.setEnabled(false);
        gfrmBreakDown.showModal();
    }
    msInitNewGame();
}

void frmMain::msEndMatch() {
    Timer1.setEnabled(false);
    mblnGameRunning = false;
    gfrmGameSummary->msLoadFormVariables(mintRoundsPlayed, mintGamesPlayed, mintGamesWon);
    gfrmGameSummary.showModal();
}

void frmMain::Form_KeyDown(int intKeyCode) {
    guarded("Form_KeyDown", [&] {
        if (Timer1.enabled()) msEndLightning();
        if (mintCurRow == noRow || Timer1.interval() == dropInterval || !Timer1.enabled()) return;
        switch (intKeyCode) {
            case platform::key::Left:
            case platform::key::Pad4:
                msMoveSideways(-1);
                break;
            case platform::key::Right:
            case platform::key::Pad6:
                msMoveSideways(1);
                break;
            case platform::key::Down:
            case platform::key::Pad2:
                if (form.keyRepeats()) break;  // A key still held for the tile before doesn't drop this one too.
                Timer1.setInterval(dropInterval);
                mblnDropKeyUsed = true;
                break;
            default:
                break;
        }
    });
}

void frmMain::msMoveSideways(int16_t intStep) {
    const int intCol = mintCurCol + intStep;
    if (intCol < 1 || intCol > columnCount || CellTable[mintCurRow][intCol].Filled) return;
    msEraseTile();
    mintCurCol = narrow16(intCol);
    msDrawTile();
}

bool frmMain::mblnfDropOK() {
    return guarded("mblnfDropOK",
                   [&] { return mintCurRow != bottomRow && !CellTable[mintCurRow + 1][mintCurCol].Filled; });
}

int16_t frmMain::mintfSetTimeInterval() {
    return guarded("mintfSetTimeInterval", [&] {
        const LevelRow& level = rowOf(levels, mlngLevel);
        return mintHandCount < level.threshold ? level.interval : level.intervalFromThen;
    });
}

void frmMain::msEraseTile() {
    guarded("msEraseTile", [&] {
        if (mintCurRow == 0) return;
        const CellInfo& place = CellTable[mintCurRow][mintCurCol];
        platform::BitBlt(picWork, place.X, place.Y, tileWidth, tileHeight, picBlank, 0, 0, platform::SRCCOPY);
    });
}
