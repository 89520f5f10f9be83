#include "play/frmChooseTiles.h"

#include "frmMain.h"
#include "modZQT.h"
#include "platform/desktop.h"
#include "presentation/frmBitmaps.h"
#include "presentation/layout.h"
#include "toolkit/failures.h"
#include "toolkit/modScreen.h"

namespace {

constexpr int panelWidth = 400;                   // pixels
constexpr int panelHeight = 140;                  // pixels
constexpr int entryWidth = setTiles * tileWidth;  // pixels; Pass is as wide
constexpr int borderWidth = 3;                    // pixels

}  // namespace

frmChooseTiles::frmChooseTiles() {
    form.onLoad = [this] { Form_Load(); };
    form.onKeyDown = [this](int& keyCode) { Form_KeyDown(keyCode); };
    form.onKeyPress = [this](int& keyAscii) { Form_KeyPress(keyAscii); };
    form.onUnload = [this] { Form_Unload(); };
    Shape1.setBorder(borderWidth, red);
}

void frmChooseTiles::msLoadFormVariables(const DynamicTable<int16_t>& aintRows, const DynamicTable<int16_t>& aintCols) {
    guarded("msLoadFormVariables", [&] {
        maintRows = aintRows;
        maintCols = aintCols;
    });
}

void frmChooseTiles::Form_Load() {
    guarded("Form_Load", [&] {
        platform::Form& main = gfrmMain->form;
        picWork.resize(panelWidth, panelHeight);
        platform::BitBlt(picWork, 0, 0, panelWidth, panelHeight, main.surface(), chooserPlace.X, chooserPlace.Y,
                         platform::SRCCOPY);
        msLoadTiles();
        gsSetClientSize(0, 0, panelWidth - 1, panelHeight - platform::menuBarHeight, form);
        form.move(main.left() + chooserPlace.X * (main.width() / main.scaleWidth()),
                  main.top() + chooserPlace.Y * (main.height() / main.scaleHeight()));
        // The sizing makes the form a line higher than its picture: that line shows the table too.
        platform::BitBlt(form.surface(), 0, panelHeight, panelWidth, form.scaleHeight() - panelHeight, main.surface(),
                         chooserPlace.X, chooserPlace.Y + panelHeight, platform::SRCCOPY);
        platform::BitBlt(form.surface(), 0, 0, picWork.width(), picWork.height(), picWork, 0, 0, platform::SRCCOPY);
        form.refresh();
        mintCurEntry = 1;
        mintNumTiles = 0;
        msHiLiteTiles(1);
    });
}

void frmChooseTiles::msLoadTiles() {
    guarded("msLoadTiles", [&] {
        int16_t candidates = 0;
        for (int i = 1; i <= candidatePlaces; ++i) {
            if (!PossibleTiles[i][1].Filled) continue;
            ++candidates;
            for (int j = 1; j <= setTiles; ++j)
                if (PossibleTiles[i][j].Filled) msPaintTile(i, j);
        }
        mintNumEntries = narrow16(candidates + 1);

        const CellInfo& place = PossibleTiles[mintNumEntries][1];
        const platform::Surface& pass = gfrmBitmaps->picPass;
        gsPaintMasked(picWork, {place.X, place.Y, pass.width(), pass.height()}, {gfrmBitmaps->picPassMask, 0, 0},
                      {pass, 0, 0});
    });
}

void frmChooseTiles::msPaintTile(int intEntry, int intTile) {
    const CellInfo& place = PossibleTiles[intEntry][intTile];
    const int16_t view = gintfTileDir(maintCols[intEntry] + intTile - 1);
    picTile.resize(tileWidth, tileHeight);
    platform::BitBlt(picTile, 0, 0, tileWidth, tileHeight, gfrmBitmaps->picAllTiles,
                     (place.Tile.KindIdx - 1) * tileWidth, view, platform::SRCCOPY);
    gsPaintMasked(picWork, {place.X, place.Y, tileWidth, tileHeight}, {gfrmBitmaps->picTileBackMask, 0, view},
                  {picTile, 0, 0});
}

void frmChooseTiles::Form_KeyDown(int intKeyCode) {
    int entry = mintCurEntry;
    switch (intKeyCode) {
        case platform::key::Left:
        case platform::key::Pad4:
            entry = entry == 1 ? mintNumEntries : entry - 1;
            break;
        case platform::key::Right:
        case platform::key::Pad6:
            entry = entry == mintNumEntries ? 1 : entry + 1;
            break;
        case platform::key::Down:
        case platform::key::Pad2:
            entry = mintfBelow(entry);
            break;
        case platform::key::Up:
        case platform::key::Pad8:
            entry = mintfAbove(entry);
            break;
        default:
            break;
    }
    mintCurEntry = narrow16(entry);
    msHiLiteTiles(mintCurEntry);
}

int frmChooseTiles::mintfBelow(int intEntry) const {
    if (intEntry > 2 * candidatesPerLine) return intEntry - 2 * candidatesPerLine;
    if (intEntry + candidatesPerLine <= mintNumEntries) return intEntry + candidatesPerLine;
    return intEntry > candidatesPerLine ? intEntry - candidatesPerLine : intEntry;
}

int frmChooseTiles::mintfAbove(int intEntry) const {
    if (intEntry > candidatesPerLine) return intEntry - candidatesPerLine;
    int entry = intEntry;
    while (entry + candidatesPerLine <= mintNumEntries && entry <= 2 * candidatesPerLine) entry += candidatesPerLine;
    return entry;
}

void frmChooseTiles::msHiLiteTiles(int16_t intEntry) {
    guarded("msHiLiteTiles", [&] {
        mintNumTiles = 0;
        for (const CellInfo& tile : PossibleTiles[intEntry])
            if (tile.Filled) ++mintNumTiles;
        const int width = intEntry == mintNumEntries ? entryWidth : tileWidth * mintNumTiles;
        const int border = Shape1.borderWidth();
        const CellInfo& place = PossibleTiles[intEntry][1];
        Shape1.setPlace({place.X - border, place.Y - border, width + 2 * border, tileHeight + 2 * border});
        if (!Shape1.visible()) Shape1.setVisible(true);
    });
}

void frmChooseTiles::Form_KeyPress(int intKeyAscii) {
    guarded("Form_KeyPress", [&] {
        if (intKeyAscii != platform::key::Enter) return;
        const bool blnPass = mintCurEntry == mintNumEntries;
        mintCellTableRow = blnPass ? int16_t{0} : maintRows[mintCurEntry];
        mintCellTableCol = blnPass ? int16_t{0} : maintCols[mintCurEntry];
        form.unload();
    });
}

void frmChooseTiles::Form_Unload() {
    maintRows.clear();
    maintCols.clear();
}
