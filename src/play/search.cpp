#include <algorithm>

#include "frmMain.h"
#include "play/frmChooseTiles.h"
#include "presentation/hints.h"
#include "toolkit/failures.h"

namespace {

/// How far a landing has come. After a tile has landed, the search looks at the windows of 1, 2 and 3 places in its row
/// that hold it. If the player takes a set, tiles drop into its place, and the search goes on among what they may have
/// completed: the windows that overlap the set's columns, from its row upward. So it goes on until a search finds
/// nothing, the player passes or the hand is complete.
struct Landing {
    bool blnDone = false;
    bool blnRepeat = false;          // false: around the landed tile; true: around the set just taken
    int16_t intRow = 0;              // where the search starts
    int16_t intTakenCol = 0;         // left column of the set last taken
    int16_t intTakenNum = 0;         // its number of tiles
    DynamicTable<int16_t> aintRows;  // row of each candidate of this search
    DynamicTable<int16_t> aintCols;  // its left column
};

/// Tries all windows of 1, 2 or 3 tiles, from the starting row up the board.
void searchPass(frmMain& m, Landing& landing, int16_t intNumCheck) {
    const int16_t lowest = landing.blnRepeat ? int16_t{1} : m.mintCurRow;
    int16_t intColFrom = 0;
    int16_t intColTo = 0;
    m.msGetColumns(landing.blnRepeat ? landing.intTakenCol : m.mintCurCol, intColFrom, intColTo, landing.blnRepeat,
                   intNumCheck, landing.intTakenNum);
    for (int16_t row = landing.intRow; row >= lowest; --row)
        for (int16_t col = intColFrom; col <= intColTo; ++col) {
            const int found = landing.aintRows.count();
            if (found == candidateLimit) return;  // What lies further up would have no entry in the chooser.
            if (!m.mblnfTileConnection(row, col, intNumCheck)) continue;
            landing.aintRows.resize(found + 1);
            landing.aintCols.resize(found + 1);
            landing.aintRows[found + 1] = row;
            landing.aintCols[found + 1] = col;
        }
}

/// Looks for candidates around the landed tile or the set just taken.
void search(frmMain& m, Landing& landing) {
    if (!landing.blnRepeat) landing.intRow = m.mintCurRow;
    for (int16_t intNumCheck = 1; intNumCheck <= setTiles; ++intNumCheck) searchPass(m, landing, intNumCheck);
}

/// Lets the player choose among the candidates, and takes what was chosen.
void offer(frmMain& m, Landing& landing) {
    m.msEndLightning();
    gfrmChooseTiles->msLoadFormVariables(landing.aintRows, landing.aintCols);
    m.msShowHint(hint::offer);
    gfrmChooseTiles.showModal();
    m.msShowHint(hint::none);
    landing.intTakenCol = gfrmChooseTiles->mprpCellTableCol();
    landing.intRow = gfrmChooseTiles->mprpCellTableRow();
    landing.intTakenNum = gfrmChooseTiles->mprpNumTiles();
    gfrmChooseTiles.clear();
    m.msRestartTimer();

    landing.blnRepeat = landing.intTakenCol != 0;
    if (landing.blnRepeat) m.msTakeSet(landing.intRow, landing.intTakenCol, landing.intTakenNum);
    landing.blnDone = !landing.blnRepeat || m.mintHandCount == handTiles;
}

}  // namespace

void frmMain::msMarkCellTable() {
    guarded("msMarkCellTable", [&] {
        CellTable[mintCurRow][mintCurCol].fill(TileKinds[TileKindOf[mintCurTile]]);
        Landing landing;
        while (!landing.blnDone) {
            search(*this, landing);
            if (landing.aintRows.count() == 0)
                landing.blnDone = true;
            else
                offer(*this, landing);
            msInitTileSet(PossibleTiles);
            landing.aintRows.clear();
            landing.aintCols.clear();
        }
        mblnDropKeyUsed = false;
        maudtCheckTiles.clear();
    });
}

void frmMain::msGetColumns(int16_t intCol, int16_t& intColFrom, int16_t& intColTo, bool blnRepeat, int16_t intNumCheck,
                           int16_t intTakenNum) {
    guarded("msGetColumns", [&] {
        switch (intNumCheck) {
            case 1:
                return msGetCheckSingleCols(intCol, intColFrom, intColTo, blnRepeat, intTakenNum);
            case 2:
                return msGetCheckPairCols(intCol, intColFrom, intColTo, blnRepeat, intTakenNum);
            default:
                return msGetCheckTrioCols(intCol, intColFrom, intColTo, blnRepeat, intTakenNum);
        }
    });
}

namespace {

/// The left columns of all windows of so many tiles that lie on the board and overlap the columns of the landed tile,
/// or those of the set just taken.
void windowColumns(int16_t intCol, int16_t& intColFrom, int16_t& intColTo, bool blnRepeat, int16_t intTakenNum,
                   int windowTiles) {
    const int anchorTiles = blnRepeat ? intTakenNum : 1;
    intColFrom = narrow16(std::max(1, intCol - windowTiles + 1));
    intColTo = narrow16(std::min(columnCount - windowTiles + 1, intCol + anchorTiles - 1));
}

}  // namespace

void frmMain::msGetCheckSingleCols(int16_t intCol, int16_t& intColFrom, int16_t& intColTo, bool blnRepeat,
                                   int16_t intTakenNum) {
    guarded("msGetCheckSingleCols", [&] { windowColumns(intCol, intColFrom, intColTo, blnRepeat, intTakenNum, 1); });
}

void frmMain::msGetCheckPairCols(int16_t intCol, int16_t& intColFrom, int16_t& intColTo, bool blnRepeat,
                                 int16_t intTakenNum) {
    guarded("msGetCheckPairCols", [&] { windowColumns(intCol, intColFrom, intColTo, blnRepeat, intTakenNum, 2); });
}

void frmMain::msGetCheckTrioCols(int16_t intCol, int16_t& intColFrom, int16_t& intColTo, bool blnRepeat,
                                 int16_t intTakenNum) {
    guarded("msGetCheckTrioCols", [&] { windowColumns(intCol, intColFrom, intColTo, blnRepeat, intTakenNum, 3); });
}

namespace {

bool samePair(const TileKind& first, const TileKind& second) {
    return first.Suit == second.Suit && first.Number == second.Number && first.Number != 0;
}

bool trioOrSequence(const TileKind& first, const TileKind& second, const TileKind& third) {
    if (first.Number == second.Number && second.Number == third.Number)
        return samePair(first, second) && samePair(second, third);
    if (first.Suit == 0 || first.Suit != second.Suit || second.Suit != third.Suit) return false;
    return runsInOrder(first.Number, second.Number, third.Number);
}

}  // namespace

bool frmMain::mblnfTileConnection(int16_t intRow, int16_t intCol, int16_t intNumTiles) {
    return guarded("mblnfTileConnection", [&] {
        maudtCheckTiles.resize(intNumTiles);
        bool allFilled = true;
        for (int i = 1; i <= intNumTiles; ++i) {
            const CellInfo& place = CellTable[intRow][intCol + i - 1];
            maudtCheckTiles[i] = place.Tile;
            allFilled = allFilled && place.Filled;
        }
        if (!allFilled) return false;

        bool blnFound = false;
        switch (intNumTiles) {
            case 1:
                blnFound = maudtCheckTiles[1].Bonus != 0 && intRow == bottomRow;
                break;
            case 2:
                blnFound = !mblnPairTaken && samePair(maudtCheckTiles[1], maudtCheckTiles[2]);
                break;
            default:
                // With 12 tiles or more the hand has no room for another three: four sets wait for their pair, or it
                // is complete.
                blnFound = mintHandCount < handTiles - 2 &&
                           trioOrSequence(maudtCheckTiles[1], maudtCheckTiles[2], maudtCheckTiles[3]);
                break;
        }
        if (blnFound) msStorePossibleTiles(1, intNumTiles, maudtCheckTiles);
        return blnFound;
    });
}

void frmMain::msStorePossibleTiles(int16_t first, int16_t last, const DynamicTable<TileKind>& tiles) {
    guarded("msStorePossibleTiles", [&] {
        ++mintPossibleCount;
        for (int j = first; j <= last; ++j) PossibleTiles[mintPossibleCount][j].fill(tiles[j]);
    });
}
