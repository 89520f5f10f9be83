#pragma once

#include <cstdint>

#include "platform/controls.h"
#include "platform/form.h"
#include "platform/surface.h"
#include "runtime.h"
#include "toolkit/formRef.h"

/// The dialog in which the player answers an offer: candidates of `PossibleTiles` side by side, Pass behind them.
struct frmChooseTiles {
    frmChooseTiles();

    /// Takes the rows and left columns of the candidates on the board. Before the form is shown.
    void msLoadFormVariables(const DynamicTable<int16_t>& aintRows, const DynamicTable<int16_t>& aintCols);

    // The answer, from Enter on for as long as the object is held; all 0 for Pass.
    int16_t mprpCellTableCol() const { return mintCellTableCol; }  ///< Left column of the set.
    int16_t mprpCellTableRow() const { return mintCellTableRow; }  ///< Its row.
    int16_t mprpNumTiles() const { return mintNumTiles; }          ///< Its number of tiles.

    platform::Form form;
    platform::Surface picWork;                           // the dialog's picture
    platform::Surface picTile;                           // one tile at a time
    platform::Shape Shape1{form};                        // the highlight
    DynamicTable<int16_t> maintRows;                     // row on the board of each candidate
    DynamicTable<int16_t> maintCols;                     // its left column
    int16_t mintNumEntries = 0;                          // candidates and Pass
    int16_t mintCurEntry = 0;                            // the highlighted entry, from 1
    int16_t mintCellTableRow = 0, mintCellTableCol = 0;  // the answer
    int16_t mintNumTiles = 0;                            // tiles of the highlighted entry, 0 for Pass

    void Form_Load();
    void Form_KeyDown(int intKeyCode);
    void Form_KeyPress(int intKeyAscii);
    void Form_Unload();
    void msLoadTiles();
    void msPaintTile(int intEntry, int intTile);
    void msHiLiteTiles(int16_t intEntry);
    int mintfBelow(int intEntry) const;
    int mintfAbove(int intEntry) const;
};

inline FormRef<frmChooseTiles> gfrmChooseTiles;
