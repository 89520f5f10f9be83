#include "match/frmChooseSeat.h"

#include <algorithm>
#include <cmath>

#include "modZQT.h"
#include "platform/desktop.h"
#include "presentation/frmBitmaps.h"
#include "toolkit/failures.h"
#include "toolkit/modScreen.h"

namespace {

constexpr int tilesWidth = 156;                                    // pixels: four tiles and three gaps
constexpr int tilePitch = 42;                                      // pixels
constexpr int frameWidth = 36, frameHeight = 45, frameBorder = 3;  // pixels
constexpr double secondsShown = 2;

}  // namespace

frmChooseSeat::frmChooseSeat() {
    form.setCaption("Draw of the seat");
    form.onLoad = [this] { Form_Load(); };
    form.onKeyDown = [this](int& keyCode) { Form_KeyDown(keyCode); };
    form.onKeyPress = [this](int& keyAscii) { Form_KeyPress(keyAscii); };
    form.onPoint = [this](int x, int y) { return Form_Point(x, y); };
    shpSeat.setBorder(frameBorder, magenta);
}

void frmChooseSeat::Form_Load() {
    guarded("Form_Load", [&] {
        gsFitDialog(form, seatGround.width, seatGround.height);
        gsLayGround(form, seatGround.number);
        mintSelTile = 1;
        msLoadTiles();
        msShuffleTiles();
        msPlaceFrame();
        shpSeat.setVisible(true);
    });
}

void frmChooseSeat::msLoadTiles() {
    guarded("msLoadTiles", [&] {
        const int left = (form.scaleWidth() - tilesWidth) / 2;
        const double top = (form.scaleHeight() - tileHeight) / 2.0;
        for (int i = 1; i <= seatCount; ++i) {
            maudtTilePsn[i] = {narrow16(left + tilePitch * (i - 1)), narrow16(std::nearbyint(top))};
            gsPaintBack(form.surface(), maudtTilePsn[i], gintfTileDir(entryColumn));
        }
        form.refresh();
    });
}

void frmChooseSeat::msShuffleTiles() {
    guarded("msShuffleTiles", [&] {
        platform::seedRandom();
        malngSeatTiles = {};
        for (int i = 1; i <= seatCount; ++i) {
            int32_t kind = 0;
            do kind = narrow32(std::floor(platform::random() * seatCount)) + firstWindKind;
            while (std::find(malngSeatTiles.begin(), malngSeatTiles.end(), kind) != malngSeatTiles.end());
            malngSeatTiles[i] = kind;
        }
    });
}

platform::Place frmChooseSeat::mudtfFrame(int tile) const {
    const PixelPoint& place = maudtTilePsn[tile];
    return {place.X - frameBorder, place.Y - frameBorder, frameWidth, frameHeight};
}

void frmChooseSeat::msPlaceFrame() { shpSeat.setPlace(mudtfFrame(mintSelTile)); }

bool frmChooseSeat::Form_Point(int x, int y) {
    for (int16_t tile = 1; tile <= seatCount && !mblnDrawn; ++tile) {
        if (!mudtfFrame(tile).contains(x, y)) continue;
        mintSelTile = tile;
        msPlaceFrame();
        return true;
    }
    return false;
}

void frmChooseSeat::Form_KeyDown(int keyCode) {
    guarded("Form_KeyDown", [&] {
        if (mblnDrawn) return;
        switch (keyCode) {
            case platform::key::Left:
            case platform::key::Pad4:
                mintSelTile = mintSelTile == 1 ? int16_t{seatCount} : narrow16(mintSelTile - 1);
                break;
            case platform::key::Right:
            case platform::key::Pad6:
                mintSelTile = mintSelTile == seatCount ? int16_t{1} : narrow16(mintSelTile + 1);
                break;
            default:
                break;
        }
        msPlaceFrame();
    });
}

void frmChooseSeat::Form_KeyPress(int keyAscii) {
    guarded("Form_KeyPress", [&] {
        if (mblnDrawn || keyAscii != platform::key::Enter) return;
        mblnDrawn = true;
        mintSeat = mintfGetSeat();
        msTurnTiles();
        gsDelay(secondsShown);
        form.unload();
    });
}

void frmChooseSeat::msTurnTiles() {
    for (int i = 1; i <= seatCount; ++i)
        gsPaintFace(form.surface(), maudtTilePsn[i], narrow16(malngSeatTiles[i]), gintfTileDir(entryColumn));
    form.refresh();
}

int16_t frmChooseSeat::mintfGetSeat() {
    return guarded("mintfGetSeat", [&] { return narrow16(malngSeatTiles[mintSelTile] - firstWindKind + 1); });
}
