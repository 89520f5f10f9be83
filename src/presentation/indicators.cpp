#include "frmMain.h"
#include "presentation/frmBitmaps.h"
#include "presentation/layout.h"
#include "toolkit/failures.h"
#include "toolkit/modScreen.h"

namespace {

constexpr int16_t nameSize = 18;  // points

/// Paints a wind's marker; the cell's size is that of the mask.
void msPaintMarker(platform::Surface& picWork, const PixelPoint& udtPlace, const platform::Surface& picMask,
                   const platform::Surface& picSheet, int32_t lngWind, bool blnChinese) {
    const int width = picMask.width();
    const int height = picMask.height();
    gsPaintMasked(picWork, {udtPlace.X, udtPlace.Y, width, height}, {picMask, 0, 0},
                  {picSheet, (lngWind - 1) * width, blnChinese ? 0 : height});
}

}  // namespace

void frmMain::msDrawRound() {
    guarded("msDrawRound", [&] {
        if (mlngRoundWind == 0) return;
        msPaintMarker(picWork, roundMarkerPlace, gfrmBitmaps->picHouseMask, gfrmBitmaps->picHouse, mlngRoundWind,
                      mblnRoundInChinese);
    });
}

void frmMain::msDrawHouseIndicator() {
    guarded("msDrawHouseIndicator", [&] {
        if (mlngRoundWind == 0) return;
        msPaintMarker(picWork, maudtHousePsn[mlngHouse], gfrmBitmaps->picSmallHouseMask, gfrmBitmaps->picSmallHouse,
                      mlngRoundWind, mblnRoundInChinese);
    });
}

void frmMain::msDrawSeats() {
    const platform::Surface& tableTop = gfrmBitmaps->picTableTop;
    platform::BitBlt(picWork, tableTopPlace.X, tableTopPlace.Y, tableTop.width(), tableTop.height(), tableTop, 0, 0,
                     platform::SRCCOPY);
    for (int seat = 1; seat <= seatCount; ++seat) {
        const bool blnPlayer = seat == mlngSeat;
        const std::string text = blnPlayer ? "Player" : mastrSeatName[seat];
        const PixelPoint place = maudtSeatPsn[seat];
        gsPrintShadowed(picWork, place.X, place.Y, text, blnPlayer ? white : blue, scriptFont, nameSize, false);
    }
    msDrawHouseIndicator();
}
