#include <algorithm>

#include "frmMain.h"
#include "play/frmChooseTiles.h"
#include "toolkit/failures.h"

struct frmMain::Landing {
    bool blnDone = false;
    bool blnRepeat = false;          // false: around the landed tile; true: around the set just taken
    int16_t intRow = 0;              // where the search starts
    int16_t intTakenCol = 0;         // left column of the set last taken
    int16_t intTakenNum = 0;         // its number of tiles
    DynamicTable<int16_t> aintRows;  // row of each candidate of this search
    DynamicTable<int16_t> aintCols;  // its left column
};

void frmMain::msMarkCellTable() {
    guarded("msMarkCellTable", [&] {
        CellTable[mintCurRow][mintCurCol].fill(TileKinds[TileKindOf[mintCurTile]]);
        Landing udtLanding;
        while (!udtLanding.blnDone) {
            msSearch(udtLanding);
            if (udtLanding.aintRows.count() == 0)
                udtLanding.blnDone = true;
            else
                msOffer(udtLanding);
            msInitTileSet(PossibleTiles);
            udtLanding.aintRows.clear();
            udtLanding.aintCols.clear();
        }
        mblnDropKeyUsed = false;
        maudtCheckTiles.clear();
    });
}

void frmMain::msSearch(Landing& udtLanding) {
    if (!udtLanding.blnRepeat) udtLanding.intRow = mintCurRow;
    for (int16_t intNumCheck = 1; intNumCheck <= setTiles; ++intNumCheck) msSearchPass(udtLanding, intNumCheck);
}

void frmMain::msSearchPass(Landing& udtLanding, int16_t intNumCheck) {
    const int16_t intLowest = udtLanding.blnRepeat ? int16_t{1} : mintCurRow;
    int16_t intColFrom = 0;
    int16_t intColTo = 0;
    msGetColumns(udtLanding.blnRepeat ? udtLanding.intTakenCol : mintCurCol, intColFrom, intColTo, udtLanding.blnRepeat,
                 intNumCheck, udtLanding.intTakenNum);
    for (int16_t row = udtLanding.intRow; row >= intLowest; --row)
        for (int16_t col = intColFrom; col <= intColTo; ++col) {
            const int found = udtLanding.aintRows.count();
            if (found == candidateLimit) return;
            if (!mblnfTileConnection(row, col, intNumCheck)) continue;
            udtLanding.aintRows.resize(found + 1);
            udtLanding.aintCols.resize(found + 1);
            udtLanding.aintRows[found + 1] = row;
            udtLanding.aintCols[found + 1] = col;
        }
}

void frmMain::msOffer(Landing& udtLanding) {
    msEndLightning();
    gfrmChooseTiles->msLoadFormVariables(udtLanding.aintRows, udtLanding.aintCols);
    gfrmChooseTiles.showModal();
    udtLanding.intTakenCol = gfrmChooseTiles->mprpCellTableCol();
    udtLanding.intRow = gfrmChooseTiles->mprpCellTableRow();
    udtLanding.intTakenNum = gfrmChooseTiles->mprpNumTiles();
    gfrmChooseTiles.clear();
    msRestartTimer();

    udtLanding.blnRepeat = udtLanding.intTakenCol != 0;
    if (udtLanding.blnRepeat) msTakeSet(udtLanding.intRow, udtLanding.intTakenCol, udtLanding.intTakenNum);
    udtLanding.blnDone = !udtLanding.blnRepeat || mintHandCount == handTiles;
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

/// The left columns of all windows of so many tiles that lie on the board and overlap the anchor's columns.
void msWindowCols(int16_t intCol, int16_t& intColFrom, int16_t& intColTo, bool blnRepeat, int16_t intTakenNum,
                  int intTiles) {
    const int intAnchorTiles = blnRepeat ? intTakenNum : 1;
    intColFrom = narrow16(std::max(1, intCol - intTiles + 1));
    intColTo = narrow16(std::min(columnCount - intTiles + 1, intCol + intAnchorTiles - 1));
}

}  // namespace

void frmMain::msGetCheckSingleCols(int16_t intCol, int16_t& intColFrom, int16_t& intColTo, bool blnRepeat,
                                   int16_t intTakenNum) {
    guarded("msGetCheckSingleCols", [&] { msWindowCols(intCol, intColFrom, intColTo, blnRepeat, intTakenNum, 1); });
}

void frmMain::msGetCheckPairCols(int16_t intCol, int16_t& intColFrom, int16_t& intColTo, bool blnRepeat,
                                 int16_t intTakenNum) {
    guarded("msGetCheckPairCols", [&] { msWindowCols(intCol, intColFrom, intColTo, blnRepeat, intTakenNum, 2); });
}

void frmMain::msGetCheckTrioCols(int16_t intCol, int16_t& intColFrom, int16_t& intColTo, bool blnRepeat,
                                 int16_t intTakenNum) {
    guarded("msGetCheckTrioCols", [&] { msWindowCols(intCol, intColFrom, intColTo, blnRepeat, intTakenNum, 3); });
}

namespace {

bool mblnfSamePair(const TileKind& udtFirst, const TileKind& udtSecond) {
    return udtFirst.Suit == udtSecond.Suit && udtFirst.Number == udtSecond.Number && udtFirst.Number != 0;
}

bool mblnfTrioOrSequence(const TileKind& udtFirst, const TileKind& udtSecond, const TileKind& udtThird) {
    if (udtFirst.Number == udtSecond.Number && udtSecond.Number == udtThird.Number)
        return mblnfSamePair(udtFirst, udtSecond) && mblnfSamePair(udtSecond, udtThird);
    if (udtFirst.Suit == 0 || udtFirst.Suit != udtSecond.Suit || udtSecond.Suit != udtThird.Suit) return false;
    return runsInOrder(udtFirst.Number, udtSecond.Number, udtThird.Number);
}

}  // namespace

bool frmMain::mblnfTileConnection(int16_t intRow, int16_t intCol, int16_t intNumTiles) {
    return guarded("mblnfTileConnection", [&] {
        maudtCheckTiles.resize(intNumTiles);
        bool blnAllFilled = true;
        for (int i = 1; i <= intNumTiles; ++i) {
            const CellInfo& place = CellTable[intRow][intCol + i - 1];
            maudtCheckTiles[i] = place.Tile;
            blnAllFilled = blnAllFilled && place.Filled;
        }
        if (!blnAllFilled) return false;

        bool blnFound = false;
        switch (intNumTiles) {
            case 1:
                blnFound = maudtCheckTiles[1].Bonus != 0 && intRow == bottomRow;
                break;
            case 2:
                blnFound = !mblnPairTaken && mblnfSamePair(maudtCheckTiles[1], maudtCheckTiles[2]);
                break;
            default:
                // After four sets only the pair can follow.
                blnFound = mintHandCount < handTiles - 2 &&
                           mblnfTrioOrSequence(maudtCheckTiles[1], maudtCheckTiles[2], maudtCheckTiles[3]);
                break;
        }
        if (blnFound) msStorePossibleTiles(1, intNumTiles, maudtCheckTiles);
        return blnFound;
    });
}

void frmMain::msStorePossibleTiles(int16_t intFirst, int16_t intLast, const DynamicTable<TileKind>& audtTiles) {
    guarded("msStorePossibleTiles", [&] {
        ++mintPossibleCount;
        for (int j = intFirst; j <= intLast; ++j) PossibleTiles[mintPossibleCount][j].fill(audtTiles[j]);
    });
}
