#pragma once

#include <span>

#include "frmMain.h"
#include "tools/album/hands.h"

namespace album {

/// A picture of the album.
struct PictureRow {
    const char* name;                      ///< Of its file, without the ending.
    void (*lead)(const Hands& hands);      ///< Brings its view before the first match; null if play brings it.
    bool (*hasCome)(const frmMain& game);  ///< It is time to take it.
};

/// All pictures. Those with a way of their own are taken first, in this order.
std::span<const PictureRow> pictures();

}  // namespace album
