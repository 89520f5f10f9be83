#include "frmMain.h"
#include "hiscores/frmHiScore.h"
#include "match/frmGameSummary.h"
#include "platform/desktop.h"
#include "platform/form.h"
#include "play/tileNames.h"
#include "presentation/hints.h"
#include "scoring/frmBreakDown.h"
#include "toolkit/failures.h"

/// A tick isn't always over before the next one is due: the tile chooser and the break-down are open inside it, and it
/// serves events once while a tile falls. The ticks that come meanwhile must not move the game on, so they return at
/// once as long as `mblnInTimerTick` is set. A new hand clears it, also if it begins inside a tick; that tick finds out
/// by the hand's number and leaves the new hand alone.
void frmMain::Timer1_Timer() {
    if (mblnInTimerTick) return;
    mblnInTimerTick = true;
    if (mintRoundsPlayed == gintNumRounds) {
        msEndMatch();
        return;  // The guard stays set: the next match's first hand clears it.
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
    const bool won = mintHandCount == handTiles;
    if (mintCurRow != 1 || won || mintTilesDropped == tileCount) {
        msEndHand(won);
        return false;
    }
    form.announce([this] { return gstrfKindName(TileKindOf[mintCurTile]); });
    return true;
}

bool frmMain::mblnfTileFalls() {
    if (!mblnfDropOK()) {
        msMarkCellTable();
        mintCurRow = noRow;
        return false;
    }
    const uint32_t thisHand = mlngHandNumber;
    platform::doEvents();
    // What was served just now can have changed what this tick was about to do. Start Anew has begun another hand: its
    // first tile enters at a tick of its own. Pause or Stop has held the game: the tile stays in its row. A sideways
    // key has put the tile over a place that is taken: it lands there at the next tick.
    if (thisHand != mlngHandNumber || !Timer1.enabled() || !mblnfDropOK()) return false;
    msEraseTile();
    ++mintCurRow;
    return true;
}

void frmMain::msRestartTimer() {
    if (!Timer1.enabled()) return;
    Timer1.setEnabled(false);
    Timer1.setEnabled(true);
}

void frmMain::msEndHand(bool won) {
    msCountHand(won);
    msUpdateHouse(won);
    msUpdateRound();
    if (won && mblnBreakDown) {
        Timer1.setEnabled(false);
        gfrmBreakDown.showModal();
    }
    const bool entryTaken = mintCurRow != 1;
    msInitNewGame();
    if (!won) msShowHintBriefly(entryTaken ? hint::lostAtEntry : hint::lostAtLastTile);
}

void frmMain::msCountHand(bool won) {
    // The common error path lets a match go on whose hands are too many to be counted.
    guarded("msCountHand", [&] {
        mintGamesPlayed = narrow16(mintGamesPlayed + 1);
        if (won) mintGamesWon = narrow16(mintGamesWon + 1);
    });
}

void frmMain::msEndMatch() {
    Timer1.setEnabled(false);
    mblnGameRunning = false;
    msMusicStop();
    gfrmGameSummary->msLoadFormVariables(mintRoundsPlayed, mintGamesPlayed, mintGamesWon);
    gfrmGameSummary.showModal();
    if (mlngScore != 0 && mblnfHiScore()) gfrmHiScore.showModal();
}

void frmMain::Form_KeyDown(int keyCode) {
    guarded("Form_KeyDown", [&] {
        if (Timer1.enabled()) msEndLightning();
        if (mintCurRow == noRow || Timer1.interval() == dropInterval || !Timer1.enabled()) return;
        switch (keyCode) {
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

void frmMain::msMoveSideways(int16_t step) {
    const int column = mintCurCol + step;
    if (column < 1 || column > columnCount || CellTable[mintCurRow][column].Filled) return;
    msEraseTile();
    mintCurCol = narrow16(column);
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
