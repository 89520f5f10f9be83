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

void frmMain::msStartAnew() {
    Timer1.setEnabled(false);
    msShowHint(hint::none);
    gfrmChooseSeat.showModal();
    mlngSeat = gfrmChooseSeat->mprpSeat();
    gfrmChooseSeat.clear();
    mlngHouse = 1;
    mlngRoundWind = 1;
    mlngScore = 0;
    mintHouseMoves = 0;
    mintRoundsPlayed = 0;
    mintGamesPlayed = 0;
    mintGamesWon = 0;
    msInitNewGame();
    msToggleMusic();
}

void frmMain::msChooseLevel() {
    mnuLevel.popUp();
    msShowToolTip(Button::Level);
}

void frmMain::msToggleBreakDown() {
    mblnBreakDown = !mblnBreakDown;
    msShowToolTip(Button::BreakDown);
}

void frmMain::msToggleMusicOn() {
    mblnMusicOn = !mblnMusicOn;
    msShowToolTip(Button::Music);
    msToggleMusic();
}

void frmMain::msShowHighScores() {
    msHoldFall();
    gfrmHiScore.showModal();
    msResumeFall();
}

void frmMain::msSetRounds() { gfrmRoundsSetting.showModal(); }

void frmMain::msToggleRoundLanguage() {
    mblnRoundInChinese = !mblnRoundInChinese;
    msShowToolTip(Button::Round);
    msDrawRound();
    msDrawHouseIndicator();
}

void frmMain::msTogglePeek() {
    mblnPeek = !mblnPeek;
    msShowToolTip(Button::Peek);
    msDrawNexTile();
}

void frmMain::msPause() {
    if (!mblnGameRunning) return;  // No hand to hold before the first match and after the last.
    Timer1.setEnabled(!Timer1.enabled());
    msShowHint(Timer1.enabled() ? hint::none : hint::paused);
}

void frmMain::msStop() {
    Timer1.setEnabled(false);
    msMusicStop();
    if (mblnGameRunning) msShowHint(hint::stopped);
}

void frmMain::msShowOrder() {
    msHoldFall();
    gfrmOrder.showModal();
    msResumeFall();
}

void frmMain::msShowAbout() {
    msHoldFall();
    gfrmAbout.showModal();
    msResumeFall();
}

void frmMain::msShowHelp() {
    platform::setHelpPictures(gudtfHelpPicture);
    platform::WinHelpA(form, productFile::help, platform::HELP_INDEX, 0);
}

void frmMain::msHoldFall() {
    if (mblnGameRunning) Timer1.setEnabled(false);
}

void frmMain::msResumeFall() {
    if (!mblnGameRunning) return;
    Timer1.setEnabled(true);
    msShowHint(hint::none);
}

void frmMain::msExit() { form.unload(); }

void frmMain::mnuLevelItem_Click(int item) {
    mlngLevel = item;
    for (int i = 1; i <= mnuLevel.itemCount(); ++i) mnuLevel.setChecked(i, i == item);
}
