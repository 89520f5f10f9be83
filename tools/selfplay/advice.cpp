#include "tools/selfplay/advice.h"

#include <array>

#include "frmMain.h"
#include "play/frmChooseTiles.h"
#include "tools/selfplay/strategy.h"

namespace selfplay {
namespace {

constexpr int copiesOfKind = 4;

/// What lies on the table.
Holding holdingOf(const frmMain& game) {
    Holding holding;
    for (int row = bottomRow; row >= 1; --row)
        for (int column = 1; column <= columnCount; ++column) {
            const CellInfo& place = game.CellTable[row][column];
            if (place.Filled) holding.stacks.drop(column - 1, place.Tile.KindIdx);
        }
    holding.handTiles = game.mintHandCount;
    holding.pairTaken = game.mblnPairTaken;
    return holding;
}

/// What can still come: all copies but those on the board and among the earned tiles.
Unseen unseenOf(const frmMain& game, const Holding& holding) {
    Unseen unseen;
    for (int kind = 0; kind <= kindCount; ++kind)
        unseen[kind] = static_cast<int8_t>(kind < firstSeasonKind ? copiesOfKind : 1);
    for (const auto& level : holding.stacks.kind)
        for (const int kind : level) --unseen[kind];
    for (const CellInfo& slot : game.EarnedTiles) --unseen[slot.Tile.KindIdx];
    unseen[0] = 0;
    return unseen;
}

}  // namespace

int bestColumnOf(const frmMain& game) {
    const int kind = game.TileKindOf[game.mintCurTile];
    const Holding holding = holdingOf(game);
    Unseen unseen = unseenOf(game, holding);
    --unseen[kind];
    return Strategy(holding, unseen).bestColumn(kind, game.mintCurCol - 1, bottomRow - game.mintCurRow) + 1;
}

size_t bestCandidateOf(const frmMain& game, const frmChooseTiles& dialog) {
    std::array<Candidate, candidatePlaces> candidates;
    size_t count = 0;
    for (int entry = 1; entry < dialog.mintNumEntries; ++entry) {
        int tiles = 0;
        for (const CellInfo& tile : PossibleTiles[entry]) tiles += tile.Filled ? 1 : 0;
        candidates[count++] = {static_cast<int8_t>(bottomRow - dialog.maintRows[entry]),
                               static_cast<int8_t>(dialog.maintCols[entry] - 1), static_cast<int8_t>(tiles)};
    }
    const Holding holding = holdingOf(game);
    const Unseen unseen = unseenOf(game, holding);
    return Strategy(holding, unseen).bestCandidate({candidates.data(), count});
}

}  // namespace selfplay
