#include "presentation/commands.h"

#include "forms/frmAbout.h"
#include "forms/frmOrder.h"
#include "frmMain.h"
#include "hiscores/frmHiScore.h"
#include "match/frmChooseSeat.h"
#include "match/frmRoundsSetting.h"
#include "platform/help.h"
#include "presentation/helpPictures.h"
#include "presentation/hints.h"
#include "product.h"

namespace {

/// Stops the fall of a running match while a dialog is open.
void holdFall(frmMain& m) {
    if (m.mblnGameRunning) m.Timer1.setEnabled(false);
}

/// Lets the fall of a running match go on, also if the player had stopped it before the dialog.
void resumeFall(frmMain& m) {
    if (!m.mblnGameRunning) return;
    m.Timer1.setEnabled(true);
    m.msShowHint(hint::none);
}

}  // namespace

void command::startAnew(frmMain& m) {
    m.Timer1.setEnabled(false);
    m.msShowHint(hint::none);
    gfrmChooseSeat.showModal();
    m.mlngSeat = gfrmChooseSeat->mprpSeat();
    gfrmChooseSeat.clear();
    m.mlngHouse = 1;
    m.mlngRoundWind = 1;
    m.mlngScore = 0;
    m.mintHouseMoves = 0;
    m.mintRoundsPlayed = 0;
    m.mintGamesPlayed = 0;
    m.mintGamesWon = 0;
    m.msInitNewGame();
    m.msToggleMusic();
}

void command::chooseLevel(frmMain& m) {
    m.mnuLevel.popUp();
    m.msShowToolTip(Button::Level);
}

void command::toggleBreakDown(frmMain& m) {
    m.mblnBreakDown = !m.mblnBreakDown;
    m.msShowToolTip(Button::BreakDown);
}

void command::toggleMusicOn(frmMain& m) {
    m.mblnMusicOn = !m.mblnMusicOn;
    m.msShowToolTip(Button::Music);
    m.msToggleMusic();
}

void command::showHighScores(frmMain& m) {
    holdFall(m);
    gfrmHiScore.showModal();
    resumeFall(m);
}

void command::setRounds(frmMain& /*m*/) { gfrmRoundsSetting.showModal(); }

void command::toggleRoundLanguage(frmMain& m) {
    m.mblnRoundInChinese = !m.mblnRoundInChinese;
    m.msShowToolTip(Button::Round);
    m.msDrawRound();
    m.msDrawHouseIndicator();
}

void command::togglePeek(frmMain& m) {
    m.mblnPeek = !m.mblnPeek;
    m.msShowToolTip(Button::Peek);
    m.msDrawNexTile();
}

void command::pause(frmMain& m) {
    if (!m.mblnGameRunning) return;  // No hand to hold before the first match and after the last.
    m.Timer1.setEnabled(!m.Timer1.enabled());
    m.msShowHint(m.Timer1.enabled() ? hint::none : hint::paused);
}

void command::stop(frmMain& m) {
    m.Timer1.setEnabled(false);
    m.msMusicStop();
    if (m.mblnGameRunning) m.msShowHint(hint::stopped);
}

void command::showOrder(frmMain& m) {
    holdFall(m);
    gfrmOrder.showModal();
    resumeFall(m);
}

void command::showAbout(frmMain& m) {
    holdFall(m);
    gfrmAbout.showModal();
    resumeFall(m);
}

void command::showHelp(frmMain& m) {
    platform::makeHelpPicture = gudtfHelpPicture;
    platform::WinHelpA(m.form, productFile::help, platform::HELP_INDEX, 0);
}

void command::exit(frmMain& m) { m.form.unload(); }

void frmMain::mnuLevelItem_Click(int item) {
    mlngLevel = item;
    mnuLevel.checkedItem = item;
}
