#include "match/frmRoundsSetting.h"

#include "modZQT.h"
#include "toolkit/failures.h"
#include "toolkit/modScreen.h"
#include "toolkit/panelLooks.h"

namespace {

constexpr platform::Place outerPlace{0, 0, 257, 137};
constexpr platform::Color darkBlue = 0xC00000;
constexpr int16_t leastRounds = 1, mostRounds = 100;
const platform::Font panelFont{scriptFont, 14.25, false};
const platform::Font buttonFont{scriptFont, 12, false};

}  // namespace

frmRoundsSetting::frmRoundsSetting()
    : SSPanel1(form, outerPlace),
      sspRoundsCaption(SSPanel1, {24, 24, 177, 49}),
      sspNumRounds(sspRoundsCaption, {120, 12, 41, 25}),
      SpinButton1(SSPanel1, {208, 28, 25, 41}),
      cmdOK(SSPanel1, {48, 88, 73, 25}),
      cmdCancel(SSPanel1, {136, 88, 73, 25}) {
    form.setCaption("Rounds Setting");
    form.onLoad = [this] { Form_Load(); };
    form.onUnload = [this] { Form_Unload(); };
    SSPanel1.setLook(outerLook);
    sspRoundsCaption.setLook(insetLook(darkBlue, platform::Align::Left));
    sspRoundsCaption.setFont(panelFont);
    sspRoundsCaption.setCaption(" # of Rounds");
    sspNumRounds.setLook(insetLook(panelOrange));
    sspNumRounds.setFont(panelFont);
    SpinButton1.onSpinUp = [this] { SpinButton1_SpinUp(); };
    SpinButton1.onSpinDown = [this] { SpinButton1_SpinDown(); };
    cmdOK.setFont(buttonFont);
    cmdOK.setCaption("OK");
    cmdOK.makeDefault();
    cmdOK.onClick = [this] { cmdOK_Click(); };
    cmdCancel.setFont(buttonFont);
    cmdCancel.setCaption("Cancel");
    cmdCancel.makeCancel();
    cmdCancel.onClick = [this] { cmdCancel_Click(); };
}

void frmRoundsSetting::Form_Load() {
    guarded("Form_Load", [&] {
        gsFitDialog(form, outerPlace.width, outerPlace.height);
        mintNewRounds = gintNumRounds;
        msShowRounds();
    });
}

void frmRoundsSetting::Form_Unload() { gsClearObjects(gfrmRoundsSetting); }

void frmRoundsSetting::SpinButton1_SpinUp() {
    if (mintNewRounds < mostRounds) ++mintNewRounds;
    msShowRounds();
}

void frmRoundsSetting::SpinButton1_SpinDown() {
    if (mintNewRounds > leastRounds) --mintNewRounds;
    msShowRounds();
}

void frmRoundsSetting::cmdOK_Click() {
    gintNumRounds = mintNewRounds;
    form.unload();
}

void frmRoundsSetting::cmdCancel_Click() { form.unload(); }

void frmRoundsSetting::msShowRounds() { sspNumRounds.setCaption(std::to_string(mintNewRounds)); }
