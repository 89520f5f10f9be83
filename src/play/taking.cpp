#include "frmMain.h"
#include "toolkit/failures.h"

void frmMain::msTakeSet(int16_t intRow, int16_t intCol, int16_t intNumTiles) {
    const int16_t intColFrom = intCol;
    const int16_t intColTo = narrow16(intCol + intNumTiles - 1);
    int32_t lngSetKind = singleTile;
    msStoreEarnedTiles(intRow, intColFrom, intColTo, lngSetKind);
    if (intNumTiles > 1) mintHandCount = narrow16(mintHandCount + intNumTiles);
    if (lngSetKind == pairOfTiles) {
        mblnPairTaken = true;
        mintPairSlot = narrow16(mintEarnedCount - 1);
    }
    msRemoveTiles(intRow, intColFrom, intColTo);

    msDrawPlayArea();
    msDrawEarnedTiles();
    msDrawNexTile();
    msUpdateScore(lngSetKind, mintHandCount == handTiles);
    msDrawRound();
    msDrawSeats();
    msShowPicture();
}

void frmMain::msStoreEarnedTiles(int16_t intRow, int16_t intColFrom, int16_t intColTo, int32_t& lngSetKind) {
    guarded("msStoreEarnedTiles", [&] {
        for (int col = intColFrom; col <= intColTo; ++col) {
            const int slot = intColFrom == intColTo ? handTiles + ++mintBonusCount : ++mintEarnedCount;
            EarnedTiles[slot].fill(CellTable[intRow][col].Tile);
        }
        switch (intColTo - intColFrom) {
            case 1:
                lngSetKind = pairOfTiles;
                break;
            case 2:
                lngSetKind = EarnedTiles[mintEarnedCount - 1].Tile.Number == EarnedTiles[mintEarnedCount].Tile.Number
                                 ? trioOfTiles
                                 : sequenceOfTiles;
                break;
            default:
                lngSetKind = singleTile;
                break;
        }
    });
}

void frmMain::msRemoveTiles(int16_t intRow, int16_t intColFrom, int16_t intColTo) {
    guarded("msRemoveTiles", [&] {
        for (int row = intRow - 1; row >= 1; --row)
            for (int col = intColFrom; col <= intColTo; ++col) CellTable[row + 1][col].copyFrom(CellTable[row][col]);
        for (int col = intColFrom; col <= intColTo; ++col) CellTable[1][col].empty();
    });
}

void frmMain::msReArrangeTiles() {
    guarded("msReArrangeTiles", [&] {
        const TileKind first = EarnedTiles[mintPairSlot].Tile;
        const TileKind second = EarnedTiles[mintPairSlot + 1].Tile;
        for (int slot = mintPairSlot; slot < firstPairSlot; ++slot) EarnedTiles[slot].fill(EarnedTiles[slot + 2].Tile);
        EarnedTiles[firstPairSlot].fill(first);
        EarnedTiles[firstPairSlot + 1].fill(second);
    });
}
