#include "frmMain.h"
#include "hiscores/frmHiScore.h"
#include "match/frmGameSummary.h"
#include "platform/desktop.h"
#include "platform/form.h"
#include "play/tileNames.h"
#include "presentation/boardView.h"
#include "presentation/hints.h"
#include "scoring/frmBreakDown.h"
#include "toolkit/failures.h"

namespace {

/// Counts the hand, moves the House, shows the break-down and begins the next hand.
void endHand(frmMain& m, bool won) {
    m.msCountHand(won);
    m.msUpdateHouse(won);
    m.msUpdateRound();
    if (won && m.mblnBreakDown) {
        m.Timer1.setEnabled(false);
        gfrmBreakDown.showModal();
    }
    const bool entryTaken = m.mintCurRow != 1;
    m.msInitNewGame();
    if (!won) m.msShowHintBriefly(entryTaken ? hint::lostAtEntry : hint::lostAtLastTile);
}

/// Brings in the next tile; false if the hand is over instead.
bool tileEnters(frmMain& m) {
    m.Timer1.setInterval(m.mintfSetTimeInterval());
    ++m.mintTilesDropped;
    m.mintCurTile = m.TileOrder[m.mintTilesDropped];
    m.mintCurCol = entryColumn;
    if (m.mblnfDropOK()) {
        m.mintCurRow = 0;
        if (m.mblnfDropOK()) m.mintCurRow = 1;
    }
    const bool won = m.mintHandCount == handTiles;
    if (m.mintCurRow != 1 || won || m.mintTilesDropped == tileCount) {
        endHand(m, won);
        return false;
    }
    m.form.announce([&m] { return gstrfKindName(m.TileKindOf[m.mintCurTile]); });
    return true;
}

/// Moves the tile down by a row, or lands it; true if it is to be painted at a new place.
bool tileFalls(frmMain& m) {
    if (!m.mblnfDropOK()) {
        m.msMarkCellTable();
        m.mintCurRow = noRow;
        return false;
    }
    const uint32_t thisHand = m.mlngHandNumber;
    platform::doEvents();
    // What was served just now can have changed what this tick was about to do. Start Anew has begun another hand: its
    // first tile enters at a tick of its own. Pause or Stop has held the game: the tile stays in its row. A sideways
    // key has put the tile over a place that is taken: it lands there at the next tick.
    if (thisHand != m.mlngHandNumber || !m.Timer1.enabled() || !m.mblnfDropOK()) return false;
    m.msEraseTile();
    ++m.mintCurRow;
    return true;
}

/// Stops the fall and the music, and shows the summary; a high score then enters the table, which is shown. The line on
/// the table tells at last how to play once more.
void endMatch(frmMain& m) {
    m.Timer1.setEnabled(false);
    m.mblnGameRunning = false;
    m.msMusicStop();
    gfrmGameSummary->msLoadFormVariables(m.mintRoundsPlayed, m.mintGamesPlayed, m.mintGamesWon);
    gfrmGameSummary.showModal();
    if (m.mlngScore != 0 && m.mblnfHiScore()) gfrmHiScore.showModal();
    m.msShowHint(hint::startAnew);
}

}  // namespace

/// A tick isn't always over before the next one is due: the tile chooser and the break-down are open inside it, and it
/// serves events once while a tile falls. The ticks that come meanwhile must not move the game on, so they return at
/// once as long as `mblnInTimerTick` is set. A new hand clears it, also if it begins inside a tick; that tick finds out
/// by the hand's number and leaves the new hand alone.
void frmMain::Timer1_Timer() {
    if (mblnInTimerTick) return;
    mblnInTimerTick = true;
    if (mintRoundsPlayed == gintNumRounds) {
        endMatch(*this);
        return;  // The guard stays set: the next match's first hand clears it.
    }
    msGenerateLightning();
    if (mintCurRow == noRow ? tileEnters(*this) : tileFalls(*this)) {
        if (!mblnLightningShown) gsPaintAtNewDensity(*this);
        msDrawLightning();
        msDrawNexTile();
        msDrawEarnedTiles();
        msDrawTile();
    }
    mblnInTimerTick = false;
}

void frmMain::msRestartTimer() {
    if (!Timer1.enabled()) return;
    Timer1.setEnabled(false);
    Timer1.setEnabled(true);
}

void frmMain::msCountHand(bool won) {
    // The common error path lets a match go on whose hands are too many to be counted.
    guarded("msCountHand", [&] {
        mintGamesPlayed = narrow16(mintGamesPlayed + 1);
        if (won) mintGamesWon = narrow16(mintGamesWon + 1);
    });
}

namespace {

/// Moves the tile a column to the left, -1, or right, 1, if the place beside it is free.
void moveSideways(frmMain& m, int16_t step) {
    const int column = m.mintCurCol + step;
    if (column < 1 || column > columnCount || m.CellTable[m.mintCurRow][column].Filled) return;
    m.msEraseTile();
    m.mintCurCol = narrow16(column);
    m.msDrawTile();
}

}  // namespace

void frmMain::Form_KeyDown(int keyCode) {
    guarded("Form_KeyDown", [&] {
        if (Timer1.enabled()) msEndLightning();
        if (mintCurRow == noRow || Timer1.interval() == dropInterval || !Timer1.enabled()) return;
        switch (keyCode) {
            case platform::key::Left:
            case platform::key::Pad4:
                moveSideways(*this, -1);
                break;
            case platform::key::Right:
            case platform::key::Pad6:
                moveSideways(*this, 1);
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
