#pragma once

#include "play/model.h"

// Where things stand on the table picture, in pixels.

constexpr PixelPoint nextTilePlace{474, 44};      ///< The next-tile display, one tile large.
constexpr PixelPoint lightningPlace{580, 0};      ///< The strikes; the toolbar covers their top.
constexpr PixelPoint roundMarkerPlace{428, 306};  ///< The large wind marker.
constexpr PixelPoint tableTopPlace{592, 304};     ///< The small table.
constexpr PixelPoint scorePlace{454, 237};        ///< The score's text; its shadow lies a pixel up and left.
constexpr PixelPoint chooserPlace{353, 436};      ///< The tile chooser's panel.
