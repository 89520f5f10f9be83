#include "presentation/frmBitmaps.h"

#include "platform/pictures.h"
#include "platform/runtime.h"
#include "toolkit/failures.h"

namespace {

struct StoreRow {
    const char* name;
    platform::Surface frmBitmaps::*picture;
};

constexpr StoreRow store[] = {
    {"picAllTiles", &frmBitmaps::picAllTiles},
    {"picTileBackMask", &frmBitmaps::picTileBackMask},
    {"picTileBack", &frmBitmaps::picTileBack},
    {"picTableTop", &frmBitmaps::picTableTop},
    {"picHouse", &frmBitmaps::picHouse},
    {"picHouseMask", &frmBitmaps::picHouseMask},
    {"picSmallHouse", &frmBitmaps::picSmallHouse},
    {"picSmallHouseMask", &frmBitmaps::picSmallHouseMask},
    {"picLightning", &frmBitmaps::picLightning},
    {"picLightningMask", &frmBitmaps::picLightningMask},
    {"picPass", &frmBitmaps::picPass},
    {"picPassMask", &frmBitmaps::picPassMask},
};

}  // namespace

void gsPaintMasked(platform::Surface& surface, const platform::Place& place, const SheetPart& mask,
                   const SheetPart& picture) {
    platform::BitBlt(surface, place.left, place.top, place.width, place.height, mask.sheet, mask.left, mask.top,
                     platform::SRCAND);
    platform::BitBlt(surface, place.left, place.top, place.width, place.height, picture.sheet, picture.left,
                     picture.top, platform::SRCPAINT);
}

void gsPaintTile(platform::Surface& surface, const PixelPoint& place, const platform::Surface& sheet, int sheetLeft,
                 int16_t view) {
    gsPaintMasked(surface, {place.X, place.Y, tileWidth, tileHeight}, {gfrmBitmaps->picTileBackMask, 0, view},
                  {sheet, sheetLeft, view});
}

frmBitmaps::frmBitmaps() {
    for (const StoreRow& row : store)
        guarded("frmBitmaps", [&] { (this->*row.picture).setPicture(platform::pictureByName(row.name)); });
}
