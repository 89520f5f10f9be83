#include "presentation/boardView.h"

#include <utility>

#include "frmMain.h"
#include "presentation/frmBitmaps.h"
#include "presentation/layout.h"
#include "toolkit/failures.h"

void frmMain::msDrawTile() {
    guarded("msDrawTile", [&] {
        const CellInfo& place = CellTable[mintCurRow][mintCurCol];
        platform::BitBlt(picBlank, 0, 0, tileWidth, tileHeight, picWork, place.X, place.Y, platform::SRCCOPY);
        gsPaintFace(picWork, {place.X, place.Y}, TileKindOf[mintCurTile], gintfTileDir(mintCurCol));
        msShowPicture();
    });
}

void frmMain::msShowPicture() {
    platform::BitBlt(form.surface(), 0, 0, picWork.width(), picWork.height(), picWork, 0, 0, platform::SRCCOPY);
    form.refresh();
}

void frmMain::msDrawPlayArea() {
    guarded("msDrawPlayArea", [&] {
        picWork.clear();
        for (int row = 1; row <= bottomRow; ++row)
            for (int col = 1; col <= columnCount; ++col) {
                const CellInfo& place = CellTable[row][col];
                if (place.Filled) gsPaintFace(picWork, {place.X, place.Y}, place.Tile.KindIdx, gintfTileDir(col));
            }
    });
}

void frmMain::msDrawNexTile() {
    guarded("msDrawNexTile", [&] {
        if (!mblnPeek) {
            platform::BitBlt(picWork, nextTilePlace.left, nextTilePlace.top, tileWidth, tileHeight, picBlankNextTile, 0,
                             0, platform::SRCCOPY);
            return;
        }
        if (mintTilesDropped == tileCount) return;
        const int16_t tile = TileOrder[mintTilesDropped + 1];
        if (tile != 0) gsPaintFace(picWork, pointIn(nextTilePlace, 0, 0), TileKindOf[tile], 0);
    });
}

void frmMain::msDrawEarnedTiles() {
    guarded("msDrawEarnedTiles", [&] {
        for (const CellInfo& slot : EarnedTiles)
            if (slot.Filled) gsPaintFace(picWork, {slot.X, slot.Y}, slot.Tile.KindIdx, 0);
    });
}

void gsKeepNextTileGround(frmMain& m) {
    platform::BitBlt(m.picBlankNextTile, 0, 0, nextTilePlace.width, nextTilePlace.height, m.picWork, nextTilePlace.left,
                     nextTilePlace.top, platform::SRCCOPY);
}

void gsPaintAtNewDensity(frmMain& m) {
    if (std::exchange(gfrmBitmaps->mintDensity, platform::density()) == platform::density()) return;
    m.picWork.clear();
    m.msCaptureLightningGround();
    gsKeepNextTileGround(m);
    m.msDrawPlayArea();
    m.msPrintScore();
    m.msDrawRound();
    m.msDrawSeats();
}
