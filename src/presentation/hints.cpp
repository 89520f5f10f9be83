#include "presentation/hints.h"

#include "frmMain.h"
#include "toolkit/modScreen.h"

namespace {

constexpr double hintSize = 11;      // points
constexpr int briefInterval = 2000;  // milliseconds

}  // namespace

void frmMain::msSetUpHint() {
    lblHint.setLook({romanFont, hintSize, true}, white);
    tmrHint.setInterval(briefInterval);
    tmrHint.onTick = [this] { msShowHint(hint::none); };
    lblHint.setText(hint::startAnew);
}

void frmMain::Form_Activate() {
    if (mlngRoundWind == 0) form.announce([] { return hint::startAnew; });
}

void frmMain::msShowHint(const std::string& hint) {
    tmrHint.setEnabled(false);
    if (hint == lblHint.text()) return;
    lblHint.setText(hint);
    if (!hint.empty()) form.announce([hint] { return hint; });
}

void frmMain::msShowHintBriefly(const std::string& hint) {
    msShowHint(hint);
    tmrHint.setEnabled(true);
}
