#pragma once

#include "play/model.h"

// Where everything stands on the table's picture, in pixels. The game draws by these places, and the picture itself is
// painted by them.

constexpr int tablePictureWidth = 800, tablePictureHeight = 600;

constexpr platform::Place boardPlace{40, 63, 270, 468};  ///< Rows 1 to 12 of columns 1 to 9.
constexpr platform::Place nextTilePlace{474, 44, 30, 39};
constexpr platform::Place bonusSlotsPlace{352, 129, 240, 39};  ///< Earned slots 15 to 22.
constexpr platform::Place handSlotsPlace{352, 177, 420, 39};   ///< Earned slots 1 to 14.
constexpr PixelPoint scorePlace{454, 237};                     ///< The score's text, without its shadow.
constexpr platform::Place roundMarkerPlace{428, 306, 64, 66};  ///< The large marker with the wind of the round.
constexpr platform::Place smallTablePlace{592, 304, 64, 64};   ///< The seats stand round it.
constexpr platform::Place chooserPlace{353, 436, 400, 140};    ///< The tile chooser lies over it.
constexpr platform::Place hintPlace{484, 404, 268, 24};        ///< The hint, at the right of the words Select Tiles.
constexpr platform::Place lightningPlace{580, 0, 200, 233};    ///< A strike; the toolbar covers its top.

static_assert(boardPlace.width == columnCount * tileWidth && boardPlace.height == bottomRow * tileHeight);
static_assert(bonusSlotsPlace.width == (slotCount - handTiles) * tileWidth);
static_assert(handSlotsPlace.width == handTiles * tileWidth);

/// A seat at the small table.
struct SeatPlaces {
    PixelPoint name;    ///< Its text, without the shadow.
    PixelPoint marker;  ///< The small marker, while the seat holds the House.
};

/// By seat, against the clock: East on top, South on the left.
constexpr SeatPlaces seatPlaces[] = {
    {{600, 272}, {615, 311}},
    {{526, 320}, {599, 328}},
    {{600, 366}, {615, 346}},
    {{663, 320}, {634, 328}},
};
static_assert(std::size(seatPlaces) == seatCount);
constexpr int smallMarkerSide = 16;

/// A picture that a dialog lies on: its number, and its size in pixels.
struct Ground {
    int number, width, height;
};

constexpr Ground breakDownGround{102, 667, 329};
constexpr Ground seatGround{103, 256, 256};
constexpr Ground hiScoreGround{104, 500, 350};

/// The lines of the break-down stand in two columns.
namespace breakDownPlaces {
constexpr int16_t nameLefts[] = {38, 354}, doublesLefts[] = {249, 566};
constexpr int16_t firstTop = 55, pitch = 38, rows = 6;
constexpr PixelPoint totalDoubles{208, 284}, totalPoints{520, 284};
}  // namespace breakDownPlaces

/// The rows of the table of high scores; scores end at their place.
namespace hiScorePlaces {
constexpr int16_t nameLeft = 66, roundsLeft = 230, levelLeft = 322, scoreRight = 445;
constexpr int16_t firstTop = 138, pitch = 32;
}  // namespace hiScorePlaces

/// The point so many pixels to the right of a place's corner and below it.
constexpr PixelPoint pointIn(const platform::Place& place, int right, int down) {
    return {narrow16(place.left + right), narrow16(place.top + down)};
}

/// A place of the board; row 0 lies above what is seen.
constexpr PixelPoint cellPoint(int row, int column) {
    return pointIn(boardPlace, (column - 1) * tileWidth, (row - 1) * tileHeight);
}

/// An earned slot.
constexpr PixelPoint slotPoint(int slot) {
    return slot <= handTiles ? pointIn(handSlotsPlace, (slot - 1) * tileWidth, 0)
                             : pointIn(bonusSlotsPlace, (slot - handTiles - 1) * tileWidth, 0);
}

/// A tile of an entry of the tile chooser, counted from the chooser's own corner.
constexpr PixelPoint entryPoint(int entry, int tile) {
    constexpr platform::Place firstEntry{6, 6, setTiles * tileWidth, tileHeight};
    constexpr int entryPitch = 98, linePitch = 45;
    return pointIn(firstEntry, (entry - 1) % entriesPerLine * entryPitch + (tile - 1) * tileWidth,
                   (entry - 1) / entriesPerLine * linePitch);
}
