#pragma once

#include <cstdint>
#include <string>

#include "frmMain.h"
#include "platform/base/runtime.h"
#include "platform/controls.h"
#include "platform/form.h"
#include "platform/surface.h"
#include "toolkit/formRef.h"

/// The dialog in which the player takes a candidate of `PossibleTiles` or passes. Its entries are the candidates, side
/// by side, and Pass behind them.
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
    platform::Shape Shape1{form};                        // the highlight
    platform::Shape shpOnBoard{gfrmMain->form};          // the same round the tiles as they lie on the board
    DynamicTable<int16_t> maintRows;                     // row on the board of each candidate
    DynamicTable<int16_t> maintCols;                     // its left column
    int16_t mintNumEntries = 0;                          // candidates and Pass
    int16_t mintCurEntry = 0;                            // the highlighted entry, from 1
    int16_t mintCellTableRow = 0, mintCellTableCol = 0;  // the answer
    int16_t mintNumTiles = 0;                            // tiles of the highlighted entry, 0 for Pass

    /// Builds the picture over a copy of the table, and highlights the first entry.
    void Form_Load();
    /// Moves the highlight by the code of a key, and has another entry said.
    void Form_KeyDown(int keyCode);
    /// Answers with the highlighted entry on Enter.
    void Form_KeyPress(int keyAscii);
    /// Empties the rows and columns of the candidates.
    void Form_Unload();
    /// Paints the candidates, each tile in the view that it has on the board, and Pass, and counts the entries.
    void msLoadTiles();
    /// An entry in words.
    std::string mstrfEntry(int entry) const;
    /// All entries in words, and which of them is highlighted.
    std::string mstrfOffer() const;
    /// Lays the highlight round an entry, and round its tiles on the board, and counts them.
    void msHiLiteTiles(int16_t entry);
    /// Lays the frame on the board round the tiles of an entry; for Pass there is none.
    void msMarkOnBoard(int16_t entry);
    /// The entry a line further down in the same column, or else the one in the first line.
    int mintfBelow(int entry) const;
    /// The entry a line further up in the same column, or else the one in the last line that has one there.
    int mintfAbove(int entry) const;
};

inline FormRef<frmChooseTiles> gfrmChooseTiles;
