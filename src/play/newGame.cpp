#include <algorithm>

#include "frmMain.h"
#include "platform/desktop.h"
#include "platform/pictures.h"
#include "presentation/layout.h"
#include "toolkit/failures.h"
#include "toolkit/modScreen.h"

namespace {

constexpr int tableResource = 101;
constexpr int clientRight = 794;    // pixels
constexpr int clientBottom = 560;   // pixels; the sizing adds a menu bar's 20
constexpr int toolbarHeight = 28;   // pixels
constexpr int firstInterval = 500;  // milliseconds
constexpr int16_t startRounds = 4;

constexpr int16_t boardLeft = 40, boardTop = 24;  // row 0 of column 1
constexpr int16_t earnedLeft = 352, earnedTop = 177, bonusTop = 129;
constexpr int16_t candidateLeft = 6, candidateTop = 6;
constexpr int16_t candidatePitch = 98, candidateLinePitch = 45;

void msPlace(CellInfo& udtCell, int intX, int intY) {
    udtCell.X = narrow16(intX);
    udtCell.Y = narrow16(intY);
}

}  // namespace

frmMain::frmMain() : tbrZQT(form, toolbarHeight, toolbarButtons, ImageList1()) {
    form.onLoad = [this] { Form_Load(); };
    form.onUnload = [this] { Form_Unload(); };
    form.onKeyDown = [this](int& keyCode) { Form_KeyDown(keyCode); };
    tbrZQT.onButtonClick = [this](int button) { tbrZQT_ButtonClick(button); };
    mnuLevel.onClick = [this](int item) { mnuLevelItem_Click(item); };
    Timer1.setInterval(firstInterval);
    Timer1.onTick = [this] { Timer1_Timer(); };
}

void frmMain::Form_Load() {
    guarded("Form_Load", [&] {
        form.setCaption("Velmora");
        const platform::Picture& table = platform::pictureByNumber(tableResource);
        picWork.setPicture(table);
        msCaptureLightningGround();
        form.setPicture(table);

        gsSetClientSize(0, 0, clientRight, clientBottom, form);
        msSetUpToolbar();
        gsCenterForm(form);

        platform::BitBlt(picBlankNextTile, 0, 0, tileWidth, tileHeight, picWork, nextTilePlace.X, nextTilePlace.Y,
                         platform::SRCCOPY);
        msAssignSeatPsns();
        msInitVar();
        mblnMusicOn = true;
        mblnBreakDown = true;
        mlngLevel = 1;
        mblnRoundInChinese = true;
        gintNumRounds = startRounds;
        msSetToolTipText();
    });
}

void frmMain::msInitVar() {
    guarded("msInitVar", [&] {
        msPlaceCells();
        for (const KindRun& run : kindRuns)
            for (int16_t k = run.firstKind; k <= run.lastKind; ++k) {
                const int32_t step = k - run.firstKind;
                TileKinds[k] = {run.firstNumber > 0 ? run.firstNumber + step : 0, run.suit,
                                run.firstBonus > 0 ? run.firstBonus + step : 0, k};
            }
        msAssignTileBmpIdx();
    });
}

void frmMain::msPlaceCells() {
    for (int row = 0; row <= bottomRow; ++row)
        for (int col = 1; col <= columnCount; ++col)
            msPlace(CellTable[row][col], boardLeft + tileWidth * (col - 1), boardTop + tileHeight * row);
    for (int i = 1; i <= candidatePlaces; ++i)
        for (int j = 1; j <= setTiles; ++j)
            msPlace(PossibleTiles[i][j],
                    candidateLeft + candidatePitch * ((i - 1) % candidatesPerLine) + tileWidth * (j - 1),
                    candidateTop + candidateLinePitch * ((i - 1) / candidatesPerLine));
    for (int i = 1; i <= slotCount; ++i)
        msPlace(EarnedTiles[i], earnedLeft + tileWidth * (i <= handTiles ? i - 1 : i - handTiles - 1),
                i <= handTiles ? earnedTop : bonusTop);
}

void frmMain::msAssignTileBmpIdx() {
    guarded("msAssignTileBmpIdx", [&] {
        for (const TileRun& run : tileRuns)
            for (int tile = run.firstTile; tile <= run.lastTile; ++tile)
                TileKindOf[tile] = narrow16(run.firstKind + (tile - run.firstTile) % run.kinds);
    });
}

void frmMain::msInitTileSet(Candidates& sets) {
    guarded("msInitTileSet", [&] {
        mintPossibleCount = 0;
        for (auto& set : sets)
            for (CellInfo& cell : set) cell.empty();
    });
}

void frmMain::msShuffleTiles() {
    guarded("msShuffleTiles", [&] {
        platform::seedRandom();
        // The k-th free position, found by closing the gap that each choice leaves in the list of free positions.
        Table<int16_t, 1, tileCount> free;
        for (int16_t position = 1; position <= tileCount; ++position) free[position] = position;
        for (int16_t n = 1; n <= tileCount; ++n) {
            const int positions = tileCount + 1 - n;
            const int k = static_cast<int>(positions * platform::random()) + 1;
            TileOrder[free[k]] = n;
            std::copy(free.begin() + k, free.begin() + positions, free.begin() + k - 1);
        }
    });
}

void frmMain::msInitNewGame() {
    guarded("msInitNewGame", [&] {
        for (auto& row : CellTable)
            for (CellInfo& cell : row) cell.empty();
        for (CellInfo& slot : EarnedTiles) slot.empty();
        picWork.clear();
        mblnDropKeyUsed = false;
        mintPairSlot = 0;
        mblnPairTaken = false;
        mintCurRow = noRow;
        mintEarnedCount = 0;
        mintCurTile = 0;
        mintHandCount = 0;
        mintDoubles = 0;
        mintBonusCount = 0;
        msResetLightning();
        mintTilesDropped = 0;
        msInitTileSet(PossibleTiles);
        msClearScoreDesc();
        msDrawRound();
        msDrawSeats();
        msUpdateScore(pairOfTiles, false);
        msShuffleTiles();
        ++mlngHandNumber;
        Timer1.setEnabled(true);
        mblnInTimerTick = false;
        mblnGameRunning = true;
    });
}
