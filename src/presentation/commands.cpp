#include "frmMain.h"
#include "match/frmChooseSeat.h"
#include "match/frmGameSummary.h"
#include "match/frmRoundsSetting.h"
#include "platform/desktop.h"
#include "platform/pictures.h"
#include "play/frmChooseTiles.h"
#include "presentation/frmBitmaps.h"
#include "scoring/frmBreakDown.h"
#include "toolkit/failures.h"
#include "toolkit/modScreen.h"

namespace {

constexpr int imageWidth = 16;                   // pixels
constexpr platform::Color imageMask = 0xC0C0C0;  // lets the button show through
constexpr int gapButton = 14;                    // takes up the free width

using State = std::string (*)(const frmMain&);
using Command = void (frmMain::*)();

std::string mstrfOnOff(bool blnOn) { return blnOn ? "On" : "Off"; }

struct ButtonRow {
    const char* toolTip;
    int image;    // in ImageList1, 0 for none
    State state;  // what the tool-tip says behind its text
    Command command;
};

constexpr State noState = nullptr;
constexpr State levelState = [](const frmMain& m) { return m.mnuLevel.caption(m.mlngLevel); };
constexpr State breakDownState = [](const frmMain& m) { return mstrfOnOff(m.mblnBreakDown); };
constexpr State musicState = [](const frmMain& m) { return mstrfOnOff(m.mblnMusicOn); };
constexpr State peekState = [](const frmMain& m) { return mstrfOnOff(m.mblnPeek); };
constexpr State roundState = [](const frmMain& m) {
    return std::string(m.mblnRoundInChinese ? "(In Chinese)" : "(In English)");
};

constexpr ButtonRow buttons[] = {
    {"Start Anew", 1, noState, &frmMain::msStartAnew},
    {"Level:", 2, levelState, &frmMain::msChooseLevel},
    {"Break Down:", 3, breakDownState, &frmMain::msToggleBreakDown},
    {"Music:", 4, musicState, &frmMain::msToggleMusicOn},
    {"High Scores", 5, noState, &frmMain::msHoldForDialog},
    {"Rounds Setting", 6, noState, &frmMain::msSetRounds},
    {"Round:", 7, roundState, &frmMain::msToggleRoundLanguage},
    {"Peek:", 8, peekState, &frmMain::msTogglePeek},
    {"Pause", 9, noState, &frmMain::msPause},
    {"Stop", 10, noState, &frmMain::msStop},
    {"Order", 11, noState, &frmMain::msHoldForDialog},
    {"About Velmora...", 12, noState, &frmMain::msHoldForDialog},
    {"Help", 13, noState, nullptr},
    {"", 0, noState, nullptr},
    {"Exit", 14, noState, &frmMain::msExit},
};
static_assert(std::size(buttons) == toolbarButtons);

enum Button { levelButton = 2, breakDownButton = 3, musicButton = 4, roundButton = 7, peekButton = 8 };

}  // namespace

void gsClearAllForms() {
    gsClearObjects(gfrmBitmaps, gfrmBreakDown, gfrmChooseSeat, gfrmChooseTiles, gfrmGameSummary, gfrmRoundsSetting,
                   gfrmMain);
}

platform::ImageList ImageList1() {
    const auto strip = guarded("ImageList1", [] { return platform::pictureByName("ImageList1"); });
    return {strip, imageWidth, imageMask};
}

void frmMain::msSetUpToolbar() {
    for (const LevelRow& level : levels) mnuLevel.addItem(level.caption);
    mnuLevel.setChecked(1, true);
    for (int button = 1; button <= tbrZQT.buttonCount(); ++button)
        tbrZQT.setButtonImage(button, rowOf(buttons, button).image);
    tbrZQT.setWidth(form.scaleWidth());
    const int count = tbrZQT.buttonCount();
    tbrZQT.setButtonWidth(gapButton, tbrZQT.width() - (count - 1) * tbrZQT.buttonWidth(count));
}

void frmMain::msSetToolTipText() {
    guarded("msSetToolTipText", [&] {
        for (int button = 1; button <= tbrZQT.buttonCount(); ++button) {
            mastrToolTip[button] = rowOf(buttons, button).toolTip;
            msShowToolTip(button);
        }
    });
}

void frmMain::msShowToolTip(int intButton) {
    const State state = rowOf(buttons, intButton).state;
    tbrZQT.setToolTip(intButton, mastrToolTip[intButton] + (state != noState ? state(*this) : ""));
}

void frmMain::tbrZQT_ButtonClick(int intButton) {
    guarded("tbrZQT_ButtonClick", [&] {
        const Command command = rowOf(buttons, intButton).command;
        if (command != nullptr) (this->*command)();
    });
}

void frmMain::msStartAnew() {
    Timer1.setEnabled(false);
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
}

void frmMain::msChooseLevel() {
    mnuLevel.popUp();
    msShowToolTip(levelButton);
}

void frmMain::msToggleBreakDown() {
    mblnBreakDown = !mblnBreakDown;
    msShowToolTip(breakDownButton);
}

void frmMain::msToggleMusicOn() {
    mblnMusicOn = !mblnMusicOn;
    msShowToolTip(musicButton);
}

void frmMain::msHoldForDialog() {
    if (!mblnGameRunning) return;
    Timer1.setEnabled(false);
    Timer1.setEnabled(true);
}

void frmMain::msSetRounds() { gfrmRoundsSetting.showModal(); }

void frmMain::msToggleRoundLanguage() {
    mblnRoundInChinese = !mblnRoundInChinese;
    msShowToolTip(roundButton);
    msDrawRound();
    msDrawHouseIndicator();
}

void frmMain::msTogglePeek() {
    mblnPeek = !mblnPeek;
    msShowToolTip(peekButton);
    msDrawNexTile();
}

void frmMain::msPause() {
    if (!mblnGameRunning) return;  // No hand to hold before the first match and after the last.
    Timer1.setEnabled(!Timer1.enabled());
}

void frmMain::msStop() { Timer1.setEnabled(false); }

void frmMain::msExit() { form.unload(); }

void frmMain::mnuLevelItem_Click(int intItem) {
    mlngLevel = intItem;
    for (int item = 1; item <= mnuLevel.itemCount(); ++item) mnuLevel.setChecked(item, item == intItem);
}

void frmMain::Form_Unload() { msExitProgram(); }

void frmMain::msExitProgram() {
    gsClearAllForms();
    platform::endProcess();
}
