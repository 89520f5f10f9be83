#include "frmMain.h"
#include "presentation/frmBitmaps.h"
#include "presentation/layout.h"
#include "toolkit/failures.h"
#include "toolkit/modScreen.h"

namespace {

constexpr int16_t nameSize = 18;   // points
constexpr int16_t scoreSize = 18;  // points

/// Paints a wind's marker; a cell of the sheet is as large as the mask.
void paintMarker(platform::Surface& surface, const PixelPoint& place, const platform::Surface& mask,
                 const platform::Surface& sheet, int32_t wind, bool chinese) {
    const int width = mask.width();
    const int height = mask.height();
    platform::paintMasked(surface, {place.X, place.Y, width, height}, {mask, 0, 0},
                          {sheet, (wind - 1) * width, chinese ? 0 : height});
}

}  // namespace

void frmMain::msDrawRound() {
    guarded("msDrawRound", [&] {
        if (mlngRoundWind == 0) return;
        paintMarker(picWork, pointIn(roundMarkerPlace, 0, 0), gfrmBitmaps->picHouseMask, gfrmBitmaps->picHouse,
                    mlngRoundWind, mblnRoundInChinese);
    });
}

void frmMain::msDrawHouseIndicator() {
    guarded("msDrawHouseIndicator", [&] {
        if (mlngRoundWind == 0) return;
        paintMarker(picWork, maudtHousePsn[mlngHouse], gfrmBitmaps->picSmallHouseMask, gfrmBitmaps->picSmallHouse,
                    mlngRoundWind, mblnRoundInChinese);
    });
}

void frmMain::msDrawSeats() {
    const platform::Surface& tableTop = gfrmBitmaps->picTableTop;
    platform::BitBlt(picWork, smallTablePlace.left, smallTablePlace.top, tableTop.width(), tableTop.height(), tableTop,
                     0, 0, platform::SRCCOPY);
    for (int seat = 1; seat <= seatCount; ++seat) {
        const bool isPlayer = seat == mlngSeat;
        const std::string text = isPlayer ? "Player" : mastrSeatName[seat];
        const PixelPoint place = maudtSeatPsn[seat];
        gsPrintShadowed(picWork, place.X, place.Y, text, isPlayer ? white : blue, scriptFont, nameSize, false);
    }
    msDrawHouseIndicator();
}

void frmMain::msPrintScore() {
    gsPrintShadowed(picWork, scorePlace.X, scorePlace.Y, std::to_string(mlngScore), red, scriptFont, scoreSize, true);
}
