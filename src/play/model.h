#pragma once

#include <cstdint>
#include <iterator>

#include "platform/base/runtime.h"
#include "platform/surface.h"

// The tiles, the board and the fixed facts of play.

constexpr int tileCount = 144;       ///< Physical tiles, numbered from 1.
constexpr int kindCount = 42;        ///< Kinds of tile, numbered from 1.
constexpr int bottomRow = 12;        ///< Rows 1 to 12 hold tiles; row 0 is the entry, where none rests.
constexpr int columnCount = 9;       ///< Columns from 1 at the left.
constexpr int entryColumn = 5;       ///< Where a tile comes in.
constexpr int handTiles = 14;        ///< Tiles of a won hand, and the earned slots that hold them.
constexpr int slotCount = 22;        ///< Earned slots: 1 to 14 the hand, 15 to 22 single flowers and seasons.
constexpr int firstPairSlot = 13;    ///< Where the pair stands at the tally.
constexpr int candidatePlaces = 12;  ///< Entries that the tile chooser has room for: the candidates and Pass.
constexpr int candidateLimit = candidatePlaces - 1;  ///< Candidates of one search, so that Pass has its entry too.
constexpr int entriesPerLine = 4;                    ///< Entries of the tile chooser side by side.
constexpr int setTiles = 3;                          ///< Tiles of the longest set.
constexpr int tileWidth = 30;                        ///< Pixels; also the pitch of the board.
constexpr int tileHeight = 39;                       ///< Pixels; also the pitch of the board.
constexpr int16_t noRow = -1;                        ///< `mintCurRow` while no tile is on its way.
constexpr int16_t dropInterval = 5;                  ///< Milliseconds a tick after the drop key.

// The first kind of each group; the nine kinds of each suit stand before them.
constexpr int16_t firstWindKind = 28, firstDragonKind = 32, firstSeasonKind = 35, firstFlowerKind = 39;
constexpr int16_t kindsPerSuit = 9;

using platform::PixelPoint;

/// What a tile is.
struct TileKind {
    int32_t Number = 0;   ///< 1 to 9 suited; 10 to 13 East, South, West, North; 14 to 16 Red, Green, Blue; 0 else.
    int32_t Suit = 0;     ///< 1 circles, 2 bamboo, 3 characters; 0 else.
    int32_t Bonus = 0;    ///< 1 to 4 a season, 5 to 8 a flower; 0 else.
    int16_t KindIdx = 0;  ///< The kind, 1 to 42; 0 for no tile.
};

/// One place where a tile can stand. `X` and `Y` belong to the place and never move with a tile.
struct CellInfo {
    int16_t X = 0;  ///< Pixels.
    int16_t Y = 0;  ///< Pixels.
    bool Filled = false;
    TileKind Tile;

    /// Puts a tile here.
    void fill(const TileKind& tile) {
        Filled = true;
        Tile = tile;
    }
    /// Takes over what stands at another place, also if that is nothing.
    void copyFrom(const CellInfo& other) {
        Filled = other.Filled;
        Tile = other.Tile;
    }
    void empty() { copyFrom({}); }
};

using Board = Table<Table<CellInfo, 1, columnCount>, 0, bottomRow>;
using EarnedSlots = Table<CellInfo, 1, slotCount>;
using SetOfTiles = Table<CellInfo, 1, setTiles>;  ///< The empty places stand behind the tiles.
using Candidates = Table<SetOfTiles, 1, candidatePlaces>;

/// True if the three Numbers run up or down by one in their order.
constexpr bool runsInOrder(int32_t first, int32_t second, int32_t third) {
    const int32_t step = second - first;
    return (step == 1 || step == -1) && third - second == step;
}

/// What a set is, as it was taken.
enum SetKind : int32_t { singleTile = 0, pairOfTiles = 1, sequenceOfTiles = 2, trioOfTiles = 3 };

/// The runs that the 42 kinds are numbered in.
struct KindRun {
    int16_t firstKind, lastKind;
    int32_t suit;
    int32_t firstNumber;  ///< 0 throughout a run of flowers or seasons.
    int32_t firstBonus;   ///< 0 throughout any other run.
};

constexpr KindRun kindRuns[] = {
    {1, 9, 1, 1, 0},                                 // circles
    {10, 18, 2, 1, 0},                               // bamboo
    {19, 27, 3, 1, 0},                               // characters
    {firstWindKind, firstSeasonKind - 1, 0, 10, 0},  // East, South, West, North, Red, Green, Blue
    {firstSeasonKind, kindCount, 0, 0, 1},           // seasons 1 to 4, flowers 5 to 8
};

/// The runs that the 144 tiles are numbered in: each run goes through its kinds again and again.
struct TileRun {
    int16_t firstTile, lastTile;
    int16_t firstKind, kinds;
};

constexpr TileRun tileRuns[] = {
    {1, 36, 1, kindsPerSuit},
    {37, 72, 10, kindsPerSuit},
    {73, 108, 19, kindsPerSuit},
    {109, 136, firstWindKind, firstSeasonKind - firstWindKind},
    {137, 144, firstSeasonKind, kindCount - firstSeasonKind + 1},
};

/// What a Level means for the fall and for the worth of a hand.
struct LevelRow {
    const char* caption;
    int16_t interval;          ///< Milliseconds a row while fewer tiles of the hand are taken than the threshold.
    int16_t threshold;         ///< Tiles of the hand.
    int16_t intervalFromThen;  ///< Milliseconds a row from the threshold on.
    int16_t leastDoubles;      ///< A hand with fewer is worth nothing.
};

constexpr LevelRow levels[] = {
    {"Easy", 400, 0, 400, 0},      {"Medium", 400, 11, 300, 1},    {"Hard", 400, 8, 300, 2},
    {"Very Hard", 300, 0, 300, 3}, {"Super Hard", 300, 8, 200, 4},
};
constexpr int levelCount = 5;
static_assert(std::size(levels) == levelCount);

/// The seats of the table, which are the winds as well: 1 East, 2 South, 3 West, 4 North.
constexpr int seatCount = 4;
