#include "presentation/frmBitmaps.h"

#include "platform/pictures.h"
#include "runtime.h"

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
    {"picPass", &frmBitmaps::picPass},
    {"picPassMask", &frmBitmaps::picPassMask},
};

}  // namespace

frmBitmaps::frmBitmaps() {
    for (const StoreRow& row : store)
        guarded("frmBitmaps", [&] { (this->*row.picture).setPicture(platform::pictureByName(row.name)); });
}
