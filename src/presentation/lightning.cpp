#include <cmath>

#include "frmMain.h"
#include "platform/desktop.h"
#include "presentation/frmBitmaps.h"
#include "presentation/layout.h"
#include "toolkit/failures.h"

namespace {

constexpr int32_t quietSeconds = 60;  // from the start of a hand, or from the painting of a strike
constexpr double oneStrikeIn = 10;    // ticks, as a rule, once those seconds are over

int32_t mlngfSecondOfDay() { return narrow32(std::nearbyint(platform::secondsOfDay())); }

}  // namespace

void frmMain::msCaptureLightningGround() {
    platform::Surface& picGround = gfrmBitmaps->picBlankLightning;
    mintLightningWidth = narrow16(picGround.width());
    mintLightningHeight = narrow16(picGround.height());
    platform::BitBlt(picGround, 0, 0, mintLightningWidth, mintLightningHeight, picWork, lightningPlace.X,
                     lightningPlace.Y, platform::SRCCOPY);
}

void frmMain::msResetLightning() {
    mblnLightningDue = false;
    mblnLightningShown = false;
    mlngLastLightning = mlngfSecondOfDay();
}

void frmMain::msGenerateLightning() {
    guarded("msGenerateLightning", [&] {
        if (platform::secondsOfDay() < mlngLastLightning + quietSeconds || mblnLightningDue) return;
        if (std::floor(oneStrikeIn * platform::random()) == 0) mblnLightningDue = true;
    });
}

void frmMain::msDrawLightning() {
    guarded("msDrawLightning", [&] {
        if (mblnLightningDue) {
            mblnLightningDue = false;
            mblnLightningShown = true;
            mlngLastLightning = mlngfSecondOfDay();
            gsPaintMasked(picWork, {lightningPlace.X, lightningPlace.Y, mintLightningWidth, mintLightningHeight},
                          {gfrmBitmaps->picLightningMask, 0, 0}, {gfrmBitmaps->picLightning, 0, 0});
            msShowLightning();
        } else if (mblnLightningShown) {
            mblnLightningShown = false;
            platform::BitBlt(picWork, lightningPlace.X, lightningPlace.Y, mintLightningWidth, mintLightningHeight,
                             gfrmBitmaps->picBlankLightning, 0, 0, platform::SRCCOPY);
            msShowLightning();
        }
    });
}

void frmMain::msShowLightning() {
    msDrawEarnedTiles();
    platform::BitBlt(form.surface(), lightningPlace.X, lightningPlace.Y, mintLightningWidth, mintLightningHeight,
                     picWork, lightningPlace.X, lightningPlace.Y, platform::SRCCOPY);
    form.refresh();
}

void frmMain::msEndLightning() {
    msDrawLightning();
    msDrawLightning();
}
