#include "play/frmChooseTiles.h"

#include "modZQT.h"
#include "platform/desktop.h"
#include "play/tileNames.h"
#include "presentation/frmBitmaps.h"
#include "presentation/layout.h"
#include "toolkit/failures.h"
#include "toolkit/modScreen.h"

namespace {

constexpr int entryWidth = setTiles * tileWidth;  // pixels; Pass is as wide
constexpr int borderWidth = 3;                    // pixels

int16_t mintfTilesOf(int entry) {
    int16_t tiles = 0;
    for (const CellInfo& tile : PossibleTiles[entry])
        if (tile.Filled) ++tiles;
    return tiles;
}

/// The frame round tiles that lie side by side from that point on, so many pixels wide in all.
platform::Place frameRound(const PixelPoint& point, int width) {
    return {point.X - borderWidth, point.Y - borderWidth, width + 2 * borderWidth, tileHeight + 2 * borderWidth};
}

/// Covers a surface with the part of the table that the chooser lies over.
void showTable(platform::Surface& surface, platform::Form& main) {
    platform::BitBlt(surface, 0, 0, surface.width(), surface.height(), main.surface(), chooserPlace.left,
                     chooserPlace.top, platform::SRCCOPY);
}

}  // namespace

frmChooseTiles::frmChooseTiles() {
    form.onLoad = [this] { Form_Load(); };
    form.onKeyDown = [this](int& keyCode) { Form_KeyDown(keyCode); };
    form.onKeyPress = [this](int& keyAscii) { Form_KeyPress(keyAscii); };
    form.onUnload = [this] { Form_Unload(); };
    form.setCaption("Select Tiles");
    Shape1.setBorder(borderWidth, red);
    shpOnBoard.setBorder(borderWidth, red);
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
        picWork.resize(chooserPlace.width, chooserPlace.height);
        showTable(picWork, main);
        msLoadTiles();
        gsSetClientSize(0, 0, chooserPlace.width - 1, chooserPlace.height - platform::menuBarHeight, form);
        form.move(main.left() + chooserPlace.left * (main.width() / main.scaleWidth()),
                  main.top() + chooserPlace.top * (main.height() / main.scaleHeight()));
        showTable(form.surface(), main);  // The form is a line higher than its picture; that line shows the table too.
        platform::BitBlt(form.surface(), 0, 0, picWork.width(), picWork.height(), picWork, 0, 0, platform::SRCCOPY);
        form.refresh();
        mintCurEntry = 1;
        mintNumTiles = 0;
        msHiLiteTiles(1);
        form.announce([this] { return mstrfOffer(); });
    });
}

void frmChooseTiles::msLoadTiles() {
    guarded("msLoadTiles", [&] {
        int16_t candidates = 0;
        for (int i = 1; i <= candidatePlaces; ++i) {
            if (!PossibleTiles[i][1].Filled) continue;
            ++candidates;
            for (int j = 1; j <= setTiles; ++j) {
                const CellInfo& tile = PossibleTiles[i][j];
                if (!tile.Filled) continue;
                gsPaintFace(picWork, {tile.X, tile.Y}, tile.Tile.KindIdx, gintfTileDir(maintCols[i] + j - 1));
            }
        }
        mintNumEntries = narrow16(candidates + 1);

        const CellInfo& place = PossibleTiles[mintNumEntries][1];
        const platform::Surface& pass = gfrmBitmaps->picPass;
        platform::paintMasked(picWork, {place.X, place.Y, pass.width(), pass.height()},
                              {gfrmBitmaps->picPassMask, 0, 0}, {pass, 0, 0});
    });
}

void frmChooseTiles::Form_KeyDown(int keyCode) {
    int entry = mintCurEntry;
    switch (keyCode) {
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
    const bool isOther = entry != mintCurEntry;
    mintCurEntry = narrow16(entry);
    msHiLiteTiles(mintCurEntry);
    if (isOther) form.announce([this] { return mstrfEntry(mintCurEntry); });
}

std::string frmChooseTiles::mstrfEntry(int entry) const {
    return entry == mintNumEntries ? "Pass" : gstrfSetName(PossibleTiles[entry]);
}

std::string frmChooseTiles::mstrfOffer() const {
    std::string offer = "Select tiles: ";
    for (int entry = 1; entry < mintNumEntries; ++entry) offer += mstrfEntry(entry) + "; ";
    return offer + mstrfEntry(mintNumEntries) + ". Highlighted: " + mstrfEntry(mintCurEntry);
}

int frmChooseTiles::mintfBelow(int entry) const {
    if (entry > 2 * entriesPerLine) return entry - 2 * entriesPerLine;
    if (entry + entriesPerLine <= mintNumEntries) return entry + entriesPerLine;
    return entry > entriesPerLine ? entry - entriesPerLine : entry;
}

int frmChooseTiles::mintfAbove(int entry) const {
    if (entry > entriesPerLine) return entry - entriesPerLine;
    int lowest = entry;
    while (lowest + entriesPerLine <= mintNumEntries && lowest <= 2 * entriesPerLine) lowest += entriesPerLine;
    return lowest;
}

void frmChooseTiles::msHiLiteTiles(int16_t entry) {
    guarded("msHiLiteTiles", [&] {
        mintNumTiles = mintfTilesOf(entry);
        const int width = entry == mintNumEntries ? entryWidth : tileWidth * mintNumTiles;
        const CellInfo& place = PossibleTiles[entry][1];
        Shape1.setPlace(frameRound({place.X, place.Y}, width));
        if (!Shape1.look().visible) Shape1.setVisible(true);
        msMarkOnBoard(entry);
    });
}

void frmChooseTiles::msMarkOnBoard(int16_t entry) {
    const bool marks = entry < mintNumEntries;
    if (marks) shpOnBoard.setPlace(frameRound(cellPoint(maintRows[entry], maintCols[entry]), tileWidth * mintNumTiles));
    shpOnBoard.setVisible(marks);
}

void frmChooseTiles::Form_KeyPress(int keyAscii) {
    guarded("Form_KeyPress", [&] {
        if (keyAscii != platform::key::Enter) return;
        const bool passes = mintCurEntry == mintNumEntries;
        mintCellTableRow = passes ? int16_t{0} : maintRows[mintCurEntry];
        mintCellTableCol = passes ? int16_t{0} : maintCols[mintCurEntry];
        form.unload();
    });
}

void frmChooseTiles::Form_Unload() {
    shpOnBoard.setVisible(false);
    maintRows.clear();
    maintCols.clear();
}
