#include "frmMain.h"

#include "forms/frmAbout.h"
#include "forms/frmOrder.h"
#include "hiscores/frmGetName.h"
#include "hiscores/frmHiScore.h"
#include "match/frmChooseSeat.h"
#include "match/frmGameSummary.h"
#include "match/frmRoundsSetting.h"
#include "platform/desktop.h"
#include "platform/help.h"
#include "play/frmChooseTiles.h"
#include "presentation/boardView.h"
#include "presentation/frmBitmaps.h"
#include "presentation/layout.h"
#include "product.h"
#include "scoring/frmBreakDown.h"
#include "toolkit/failures.h"
#include "toolkit/modScreen.h"

namespace {

constexpr const char* tablePicture = "101";
constexpr int clientRight = 794;    // pixels
constexpr int clientBottom = 560;   // pixels; the sizing adds a menu bar's 20
constexpr int toolbarHeight = 28;   // pixels
constexpr int firstInterval = 500;  // milliseconds
constexpr int16_t startRounds = 4;

/// Loads the table's picture, which is the window's background too, and keeps what lies under the lightning.
void loadTable(frmMain& m) {
    gsLoadPicture(m.picWork, tablePicture);
    m.msCaptureLightningGround();
    m.form.setPicture(m.picWork.background());
}

}  // namespace

frmMain::frmMain() : tbrZQT(form, toolbarHeight, toolbarButtons, ImageList1()) {
    form.onLoad = [this] { Form_Load(); };
    form.onActivate = [this] { Form_Activate(); };
    form.onUnload = [this] { Form_Unload(); };
    form.onKeyDown = [this](int& keyCode) { Form_KeyDown(keyCode); };
    tbrZQT.onButtonClick = [this](int button) { tbrZQT_ButtonClick(button); };
    mnuLevel.onClick = [this](int item) { mnuLevelItem_Click(item); };
    Timer1.setInterval(firstInterval);
    Timer1.onTick = [this] { Timer1_Timer(); };
    mmcZQT.onStatusUpdate = [this] { msMusicStatus(); };
}

void frmMain::Form_Load() {
    guarded("Form_Load", [&] {
        form.setCaption(PRODUCT_NAME);
        loadTable(*this);
        gsSetClientSize(0, 0, clientRight, clientBottom, form);
        msSetUpToolbar();
        gsCenterForm(form);
        gsKeepNextTileGround(*this);
        msAssignSeatPsns();
        mblnMusicReady = gblnfInitMCI(mmcZQT, true, false, 0, platform::programFile(productFile::music), "Sequencer");
        msInitVar();
        mblnMusicOn = true;
        mblnBreakDown = true;
        mlngLevel = 1;
        mblnRoundInChinese = true;
        gintNumRounds = startRounds;
        msSetToolTipText();
        msSetUpHint();
    });
}

void frmMain::Form_Unload() { msExitProgram(); }

void gsClearAllForms() {
    gsClearObjects(gfrmAbout, gfrmBitmaps, gfrmBreakDown, gfrmChooseSeat, gfrmChooseTiles, gfrmGameSummary, gfrmGetName,
                   gfrmHiScore, gfrmOrder, gfrmRoundsSetting, gfrmMain);
}

void frmMain::msExitProgram() {
    // No step may keep the program from its end.
    unreported([this] {
        if (mmcZQT.mode() == platform::modeOpen) mmcZQT.setCommand("Close");
    });
    unreported(gsClearAllForms);
    unreported([this] { platform::WinHelpA(form, productFile::help, platform::HELP_QUIT, 0); });
    platform::endProcess();
}
