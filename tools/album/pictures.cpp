#include "tools/album/pictures.h"

#include <QApplication>
#include <QMainWindow>
#include <QMessageBox>
#include <QToolTip>
#include <algorithm>

#include "forms/frmAbout.h"
#include "forms/frmOrder.h"
#include "hiscores/frmGetName.h"
#include "hiscores/frmHiScore.h"
#include "match/frmChooseSeat.h"
#include "match/frmGameSummary.h"
#include "match/frmRoundsSetting.h"
#include "play/frmChooseTiles.h"
#include "presentation/buttons.h"
#include "scoring/frmBreakDown.h"
#include "toolkit/failures.h"

namespace album {
namespace {

constexpr int wellIntoAHand = 8;  // hand tiles
constexpr int wellOnItsWay = 6;   // the row of a tile in mid-air
constexpr int wellFilled = 14;    // tiles on the board
constexpr int goodChoice = 3;     // entries of a chooser
constexpr int goodHand = 3;       // scoring items
constexpr int32_t fineScore = 6450;

int tilesOnBoard(const frmMain& game) {
    int tiles = 0;
    for (const auto& row : game.CellTable)
        for (const CellInfo& place : row) tiles += place.Filled ? 1 : 0;
    return tiles;
}

bool isDrawing(bool drawn, int tile) {
    return gfrmChooseSeat.isOpen() && gfrmChooseSeat->mblnDrawn == drawn && gfrmChooseSeat->mintSelTile == tile;
}

/// Whether a window of that class is on the screen.
template <class Window>
bool sees() {
    return std::ranges::any_of(QApplication::topLevelWidgets(), [](const QWidget* each) {
        return each->isVisible() && qobject_cast<const Window*>(each) != nullptr;
    });
}

/// Opens the chooser with all the sets that it has room for, which hardly ever come by themselves.
void offerAllSets() {
    frmMain& game = *gfrmMain.hold();
    DynamicTable<int16_t> setRows;
    DynamicTable<int16_t> setColumns;
    setRows.resize(candidateLimit);
    setColumns.resize(candidateLimit);
    for (int set = 1; set <= candidateLimit; ++set) {
        setRows[set] = bottomRow;
        setColumns[set] = narrow16(1 + (set - 1) % (columnCount - setTiles + 1));
        for (int tile = 1; tile <= 1 + set % setTiles; ++tile)
            PossibleTiles[set][tile].fill(game.TileKinds[setTiles * (set - 1) + tile]);
    }
    gfrmChooseTiles->msLoadFormVariables(setRows, setColumns);
    gfrmChooseTiles.showModal();
    gfrmChooseTiles.clear();
    game.msInitTileSet(PossibleTiles);
}

void askForName() {
    gfrmGetName->msLoadFormVariables(fineScore);
    gfrmGetName.showModal();
}

constexpr PictureRow rows[] = {
    {"bare-table", [](const Hands&) {}, [](const frmMain&) { return true; }},
    {"tool-tip", [](const Hands& hands) { hands.restOn(Button::Level); },
     [](const frmMain&) { return QToolTip::isVisible(); }},
    {"level-menu", [](const Hands& hands) { hands.click(Button::Level); },
     [](const frmMain&) { return QApplication::activePopupWidget() != nullptr; }},
    {"rounds-setting", [](const Hands& hands) { hands.click(Button::RoundsSetting); },
     [](const frmMain&) { return gfrmRoundsSetting.isOpen(); }},
    {"about", [](const Hands& hands) { hands.click(Button::About); },
     [](const frmMain&) { return gfrmAbout.isOpen(); }},
    {"order-form", [](const Hands& hands) { hands.click(Button::Order); },
     [](const frmMain&) { return gfrmOrder.isOpen(); }},
    {"high-scores", [](const Hands& hands) { hands.click(Button::HighScores); },
     [](const frmMain&) { return gfrmHiScore.isOpen(); }},
    {"name", [](const Hands&) { askForName(); }, [](const frmMain&) { return gfrmGetName.isOpen(); }},
    {"chooser-lines", [](const Hands&) { offerAllSets(); }, [](const frmMain&) { return gfrmChooseTiles.isOpen(); }},
    {"message", [](const Hands&) { gsReportError(53, "File not found", "Form_Load"); },
     [](const frmMain&) { return sees<QMessageBox>(); }},
    {"help", [](const Hands& hands) { hands.click(Button::Help); }, [](const frmMain&) { return sees<QMainWindow>(); }},
    {"seat-draw", nullptr, [](const frmMain&) { return isDrawing(false, 1); }},
    {"seat-choice", nullptr, [](const frmMain&) { return isDrawing(false, 3); }},
    {"seat-drawn", nullptr, [](const frmMain&) { return isDrawing(true, 3); }},
    {"first-tile", nullptr,
     [](const frmMain& game) { return game.mintTilesDropped == 1 && game.mintCurRow == wellOnItsWay; }},
    {"table", nullptr,
     [](const frmMain& game) {
         return game.mintHandCount >= wellIntoAHand && game.mintBonusCount > 0 && game.mblnPeek &&
                !game.mblnLightningShown && game.mintCurRow == wellOnItsWay && tilesOnBoard(game) >= wellFilled;
     }},
    {"lightning", nullptr, [](const frmMain& game) { return game.mblnLightningShown; }},
    {"chooser", nullptr,
     [](const frmMain& game) {
         return gfrmChooseTiles.isOpen() && gfrmChooseTiles->mintNumEntries >= goodChoice && game.mintHandCount > 0;
     }},
    {"breakdown", nullptr,
     [](const frmMain&) {
         return gfrmBreakDown.isOpen() && std::count(gstrScoreDesc.begin(), gstrScoreDesc.end(), ',') >= goodHand - 1;
     }},
    {"summary", nullptr, [](const frmMain&) { return gfrmGameSummary.isOpen(); }},
};

}  // namespace

std::span<const PictureRow> pictures() { return rows; }

}  // namespace album
