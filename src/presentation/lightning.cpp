#include <cmath>

#include "frmMain.h"
#include "platform/desktop.h"
#include "platform/sound.h"
#include "presentation/frmBitmaps.h"
#include "presentation/layout.h"
#include "product.h"
#include "toolkit/failures.h"

namespace {

constexpr int32_t quietSeconds = 60;  // from the start of a hand, or from the painting of a strike
constexpr double oneStrikeIn = 10;    // ticks, as a rule, once those seconds are over

int32_t secondOfDay() { return narrow32(std::nearbyint(platform::secondsOfDay())); }

}  // namespace

void frmMain::msCaptureLightningGround() {
    platform::Surface& ground = gfrmBitmaps->picBlankLightning;
    mintLightningWidth = narrow16(ground.width());
    mintLightningHeight = narrow16(ground.height());
    platform::BitBlt(ground, 0, 0, mintLightningWidth, mintLightningHeight, picWork, lightningPlace.left,
                     lightningPlace.top, platform::SRCCOPY);
}

void frmMain::msResetLightning() {
    mblnLightningDue = false;
    mblnLightningShown = false;
    mlngLastLightning = secondOfDay();
}

void frmMain::msGenerateLightning() {
    guarded("msGenerateLightning", [&] {
        if (platform::secondsOfDay() < mlngLastLightning + quietSeconds || mblnLightningDue) return;
        if (std::floor(oneStrikeIn * platform::random()) == 0) mblnLightningDue = true;
    });
}

namespace {

/// Puts the earned tiles over the rectangle of the strikes and shows it.
void showLightning(frmMain& m) {
    m.msDrawEarnedTiles();
    platform::BitBlt(m.form.surface(), lightningPlace.left, lightningPlace.top, m.mintLightningWidth,
                     m.mintLightningHeight, m.picWork, lightningPlace.left, lightningPlace.top, platform::SRCCOPY);
    m.form.refresh();
}

}  // namespace

void frmMain::msDrawLightning() {
    guarded("msDrawLightning", [&] {
        if (mblnLightningDue) {
            mblnLightningDue = false;
            mblnLightningShown = true;
            mlngLastLightning = secondOfDay();
            platform::paintMasked(picWork,
                                  {lightningPlace.left, lightningPlace.top, mintLightningWidth, mintLightningHeight},
                                  {gfrmBitmaps->picLightningMask, 0, 0}, {gfrmBitmaps->picLightning, 0, 0});
            showLightning(*this);
        } else if (mblnLightningShown) {
            mblnLightningShown = false;
            platform::BitBlt(picWork, lightningPlace.left, lightningPlace.top, mintLightningWidth, mintLightningHeight,
                             gfrmBitmaps->picBlankLightning, 0, 0, platform::SRCCOPY);
            showLightning(*this);
            platform::sndPlaySoundA(platform::programFile(productFile::thunder),
                                    platform::SND_ASYNC | platform::SND_NODEFAULT);
        }
    });
}

void frmMain::msEndLightning() {
    msDrawLightning();
    msDrawLightning();
}
