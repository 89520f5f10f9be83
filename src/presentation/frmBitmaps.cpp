#include "presentation/frmBitmaps.h"

#include "toolkit/modScreen.h"

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

/// Paints a part of a sheet of faces or backs through the outline of its view.
void paintTile(platform::Surface& surface, const PixelPoint& place, const platform::SurfacePart& tile) {
    platform::paintMasked(surface, {place.X, place.Y, tileWidth, tileHeight},
                          {gfrmBitmaps->picTileBackMask, 0, tile.top}, tile);
}

}  // namespace

void gsPaintFace(platform::Surface& surface, const PixelPoint& place, int16_t kind, int16_t view) {
    paintTile(surface, place, {gfrmBitmaps->picAllTiles, (kind - 1) * tileWidth, view});
}

void gsPaintBack(platform::Surface& surface, const PixelPoint& place, int16_t view) {
    paintTile(surface, place, {gfrmBitmaps->picTileBack, 0, view});
}

frmBitmaps::frmBitmaps() {
    for (const StoreRow& row : store) gsLoadPicture(this->*row.picture, row.name);
}
