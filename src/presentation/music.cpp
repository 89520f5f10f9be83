#include "frmMain.h"
#include "toolkit/failures.h"

namespace {

constexpr int statusInterval = 55;  // milliseconds

}  // namespace

void frmMain::msToggleMusic() {
    guarded("msToggleMusic", [&] {
        if (mlngRoundWind == 0 || !mblnMusicReady) return;
        mblnMusicOn ? msMusicPlay() : msMusicStop();
    });
}

void frmMain::msMusicPlay() { mmcZQT.setUpdateInterval(statusInterval); }

void frmMain::msMusicStatus() {
    if (mmcZQT.mode() != platform::modeStopped) return;
    mmcZQT.setCommand("Next");
    mmcZQT.setCommand("Play");
}

void frmMain::msMusicStop() {
    mmcZQT.setUpdateInterval(0);
    mmcZQT.setCommand("Stop");
    mmcZQT.setCommand("Prev");
}
