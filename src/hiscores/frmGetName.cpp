#include "hiscores/frmGetName.h"

#include "hiscores/scoreFile.h"
#include "toolkit/input.h"
#include "toolkit/modScreen.h"
#include "toolkit/panelLooks.h"

namespace {

constexpr platform::Place outerPlace{0, 0, 297, 159};
const platform::Font textFont{romanFont, 11.25, true};
constexpr const char* nameCharacters = R"(~!@#$%^&*()_+`-={}|[]\:";'<>?,./ 1234567890ABCDEFGHIJKLMNOPQRSTUVWXYZ)";

/// Takes the height of its text, from its top downward.
constexpr platform::PanelLook wrappedLook() {
    platform::PanelLook look = raisedLook(black);
    look.fit = platform::Fit::Height;
    return look;
}

}  // namespace

frmGetName::frmGetName()
    : SSPanel1(form, outerPlace),
      sspCongratulations(SSPanel1, {24, 16, 249, 20}),
      sspEnterName(SSPanel1, {24, 72, 249, 69}),
      txtName(sspEnterName, {133, 24, 97, 25}) {
    form.setCaption("High score");
    form.onLoad = [this] { Form_Load(); };
    form.onKeyPress = [this](int& keyAscii) { Form_KeyPress(keyAscii); };
    SSPanel1.setLook(outerLook);
    sspCongratulations.setLook(wrappedLook());
    sspCongratulations.setFont(textFont);
    sspEnterName.setLook(insetLook(black, platform::Align::Left));
    sspEnterName.setFont(textFont);
    sspEnterName.setCaption(" Enter Your Name");
    txtName.setFont(textFont);
    txtName.setAccessibleName("Your name");
    txtName.onGotFocus = [this] { txtName_GotFocus(); };
    txtName.onKeyPress = [this](int& keyAscii) { txtName_KeyPress(keyAscii); };
}

void frmGetName::Form_Load() {
    gsFitDialog(form, outerPlace.width, outerPlace.height);
    txtName.setMaxLength(hiScoreNameLength);
    txtName.setText("");  // The box is new at each showing; what was accepted stays.
    sspCongratulations.setCaption("Congratulations!  You Have A High Score Of " + std::to_string(mlngHiScore) + "!");
}

void frmGetName::Form_KeyPress(int keyAscii) {
    if (keyAscii == platform::key::Enter && !txtName.hasFocus()) msAcceptName();
}

void frmGetName::txtName_GotFocus() { txtName.selectAll(); }

void frmGetName::txtName_KeyPress(int& keyAscii) {
    const bool enter = keyAscii == platform::key::Enter;
    gsProcessKey(keyAscii, nameCharacters, true);
    if (enter) msAcceptName();
}

void frmGetName::msAcceptName() {
    mstrName = txtName.text();
    form.unload();
}
