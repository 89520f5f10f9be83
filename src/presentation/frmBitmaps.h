#pragma once

#include "platform/controls.h"
#include "platform/surface.h"
#include "play/model.h"
#include "presentation/layout.h"
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
    platform::Surface picLightning;
    platform::Surface picLightningMask;                                                // its complement
    platform::Surface picBlankLightning{lightningPlace.width, lightningPlace.height};  // the bare table under it
    platform::Surface picPass;
    platform::Surface picPassMask;

    int mintDensity = platform::density();  // with which the table was painted last
};

inline FormRef<frmBitmaps> gfrmBitmaps;

/// Paints the face of a kind, 1 to 42, at a place in pixels; the view is a row offset in the sheets: 0, 39 or 78.
void gsPaintFace(platform::Surface& surface, const PixelPoint& place, int16_t kind, int16_t view);

/// Paints a tile that lies face down.
void gsPaintBack(platform::Surface& surface, const PixelPoint& place, int16_t view);
