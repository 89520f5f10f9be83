#pragma once

#include <string>

#include "hiscores/scoreFile.h"
#include "play/model.h"

namespace platform {
class MMControl;
}

/// The candidate sets that the next tile chooser shows.
inline Candidates PossibleTiles;

/// Rounds that a match lasts, 1 to 100.
inline int16_t gintNumRounds = 0;

/// The scoring items of the last tally, joined by commas; empty without one.
inline std::string gstrScoreDesc;

/// The points of the last tally.
inline int32_t glngHandPoints = 0;

/// Sets a control for music up and opens its piece; false after a failure, which has been reported. A missing file is
/// no failure. The interval is that of its status events, in milliseconds.
bool gblnfInitMCI(platform::MMControl& control, bool wait, bool shareable, int16_t updateInterval,
                  const std::string& fileName, const std::string& deviceType);

/// The row offset in the sheets of the view that a tile has in that column: 0, 39 or 78.
constexpr int16_t gintfTileDir(int column) {
    if (column == entryColumn) return 0;
    return column < entryColumn ? tileHeight : 2 * tileHeight;
}
