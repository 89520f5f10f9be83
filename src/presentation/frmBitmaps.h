#pragma once

#include "platform/surface.h"
#include "toolkit/formRef.h"

/// The store of the pictures; made at first use and never shown. A picture that is missing is reported and empty.
struct frmBitmaps {
    frmBitmaps();

    platform::Surface picAllTiles;      // 42 faces by 3 views of 30 by 39
    platform::Surface picTileBackMask;  // the outlines of the 3 views
    platform::Surface picTileBack;      // the backs in the 3 views
    platform::Surface picTableTop;
    platform::Surface picHouse;  // 4 winds by 2 languages
    platform::Surface picHouseMask;
    platform::Surface picSmallHouse;  // the same, small
    platform::Surface picSmallHouseMask;
    platform::Surface picPass;
    platform::Surface picPassMask;
};

inline FormRef<frmBitmaps> gfrmBitmaps;
