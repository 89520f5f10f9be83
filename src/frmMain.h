#pragma once

#include <cstdint>
#include <string>

#include "modZQT.h"
#include "platform/form.h"
#include "platform/surface.h"
#include "platform/timer.h"
#include "platform/toolbar.h"
#include "runtime.h"
#include "toolkit/formRef.h"

enum class ScoringItem;

/// The images of the toolbar's buttons; an empty strip if the program doesn't carry them.
platform::ImageList ImageList1();

/// A point on `picWork`, in pixels.
struct PixelPoint {
    int16_t X, Y;
};

/// The main window, which owns the game: the map of its state, by lifetime, and of its procedures, by the file they
/// live in. Names with m are the game's own; nothing outside it but the built-in player, its referee and the tests
/// looks at them.
struct frmMain {
    frmMain();

    platform::Form form;
    platform::Timer Timer1;              // the drop timer, disabled at first
    platform::ToolBar tbrZQT;            // all commands
    platform::PopupMenu mnuLevel{form};  // behind button 2

    // The surfaces: filled by Form_Load, drawn on for the run
    platform::Surface picWork;  // everything that the window shows, with the table as background
    platform::Surface picBlank{tileWidth, tileHeight};  // what lay under the falling tile when it was last drawn
    platform::Surface picBlankNextTile{tileWidth, tileHeight};  // the bare table under the next-tile display

    // Fixed for the run: msInitVar, msAssignSeatPsns, msSetToolTipText
    Table<TileKind, 1, kindCount> TileKinds;
    Table<int16_t, 1, tileCount> TileKindOf;  // tile number to kind
    Table<PixelPoint, 1, seatCount> maudtSeatPsn;
    Table<std::string, 1, seatCount> mastrSeatName;
    Table<PixelPoint, 1, seatCount> maudtHousePsn;
    Table<std::string, 1, 15> mastrToolTip;  // by button, without its state

    // The options, for the run: Form_Load
    int32_t mlngLevel = 0;            // 1 Easy to 5 Super Hard
    bool mblnBreakDown = false;       // show frmBreakDown after a won hand
    bool mblnMusicOn = false;         // the player wants music
    bool mblnRoundInChinese = false;  // the language of the wind markers
    bool mblnPeek = false;            // show the next tile

    // The match: msStartAnew
    int32_t mlngScore = 0;         // points so far
    int32_t mlngSeat = 0;          // the player's seat, 1 to 4; 0 before the first match
    int32_t mlngHouse = 0;         // the seat that holds the House, 1 to 4
    int32_t mlngRoundWind = 0;     // the wind of the round, 1 to 4; 0 before the first match
    int16_t mintHouseMoves = 0;    // moves of the House in this round, 0 to 3 between hands
    int16_t mintRoundsPlayed = 0;  // rounds finished
    int16_t mintGamesPlayed = 0;   // hands finished
    int16_t mintGamesWon = 0;      // hands won

    // The hand: msInitNewGame
    Board CellTable;                         // the board
    EarnedSlots EarnedTiles;                 // what the player has taken
    Table<int16_t, 1, tileCount> TileOrder;  // position of fall to tile number
    int16_t mintTilesDropped = 0;            // tiles drawn from TileOrder, 0 to 144
    int16_t mintEarnedCount = 0;             // slots 1 to 14 in use
    int16_t mintBonusCount = 0;              // slots 15 to 22 in use
    int16_t mintHandCount = 0;               // tiles that count towards the 14
    bool mblnPairTaken = false;              // the hand's one pair has been taken
    int16_t mintPairSlot = 0;                // slot of its first tile: 1, 4, 7, 10 or 13; 0 before
    int16_t mintDoubles = 0;                 // doubles found by the tally
    bool mblnInTimerTick = false;            // guard of Timer1_Timer; stays set after a match has ended
    bool mblnGameRunning = false;            // a match is running
    uint32_t mlngHand = 0;                   // number of this hand in the run, so that a tick can tell it from the next

    // The falling tile: mblnfTileEnters
    int16_t mintCurRow = 0;        // 1 to 12; noRow while no tile is on its way
    int16_t mintCurCol = 0;        // 1 to 9
    int16_t mintCurTile = 0;       // its number
    bool mblnDropKeyUsed = false;  // the drop key was pressed for it; cleared when its landing is over

    // The search: msMarkCellTable
    int16_t mintPossibleCount = 0;           // candidates found, those without a place in PossibleTiles too
    DynamicTable<TileKind> maudtCheckTiles;  // the faces in the window that is looked at

    // play/newGame.cpp: the start of the program and of a hand
    void Form_Load();
    void msInitVar();
    void msPlaceCells();
    void msAssignTileBmpIdx();
    void msInitTileSet(Candidates& sets);
    void msShuffleTiles();
    void msInitNewGame();

    // play/dropLoop.cpp: the tick, the keys and the ends of a hand and of a match
    void Timer1_Timer();
    bool mblnfTileEnters();
    bool mblnfTileFalls();
    void msEndHand(bool blnWon);
    void msEndMatch();
    void Form_KeyDown(int intKeyCode);
    void msMoveSideways(int16_t intStep);
    bool mblnfDropOK();
    int16_t mintfSetTimeInterval();
    void msEraseTile();

    // play/search.cpp: what a landed tile completes
    struct Landing;
    void msMarkCellTable();
    void msSearch(Landing& udtLanding);
    void msSearchPass(Landing& udtLanding, int16_t intNumCheck);
    void msOffer(Landing& udtLanding);
    void msGetColumns(int16_t intCol, int16_t& intColFrom, int16_t& intColTo, bool blnRepeat, int16_t intNumCheck,
                      int16_t intTakenNum);
    void msGetCheckSingleCols(int16_t intCol, int16_t& intColFrom, int16_t& intColTo, bool blnRepeat,
                              int16_t intTakenNum);
    void msGetCheckPairCols(int16_t intCol, int16_t& intColFrom, int16_t& intColTo, bool blnRepeat,
                            int16_t intTakenNum);
    void msGetCheckTrioCols(int16_t intCol, int16_t& intColFrom, int16_t& intColTo, bool blnRepeat,
                            int16_t intTakenNum);
    bool mblnfTileConnection(int16_t intRow, int16_t intCol, int16_t intNumTiles);
    void msStorePossibleTiles(int16_t intFirst, int16_t intLast, const DynamicTable<TileKind>& audtTiles);

    // play/taking.cpp: a set leaves the board
    void msTakeSet(int16_t intRow, int16_t intCol, int16_t intNumTiles);
    void msStoreEarnedTiles(int16_t intRow, int16_t intColFrom, int16_t intColTo, int32_t& lngSetKind);
    void msRemoveTiles(int16_t intRow, int16_t intColFrom, int16_t intColTo);
    void msReArrangeTiles();

    // scoring/tally.cpp: points of sets and of a won hand
    void msUpdateScore(int32_t lngSetKind, bool blnTally);
    void msAddPoints(int32_t lngPoints);
    void msPrintScore();
    void msTallyScore();
    void msListItem(ScoringItem item);
    void msAddDoubles(ScoringItem item);
    void msScoreItem(ScoringItem item);
    int32_t mlngfHandPoints();
    void msClearScoreDesc();

    // scoring/patterns.cpp: the hand as a whole
    bool mblnfPureSuit();
    bool mblnfSemiPureSuit();
    bool mblnfThreeOfAKindOnly();
    bool mblnfSequenceOnly();

    // scoring/honours.cpp: flowers and seasons, dragons, winds
    void msCheckForFlowers();
    void msLookAtBonusTile(int16_t intSlot);
    void msHouseIsEast(int16_t intSlot);
    void msHouseIsSouth(int16_t intSlot);
    void msHouseIsWest(int16_t intSlot);
    void msHouseIsNorth(int16_t intSlot);
    void msOwnTiles(int16_t intSlot, int32_t lngHouse);
    void msFlowerAndSeason(int16_t intSlot, int32_t lngOwnFlower, int32_t lngOwnSeason);
    void msCheckForDragons();
    void msReplace_Dragon_Tiles_Desc(const std::string& strNewItem);
    void msCheckForWinds();
    void msCheckPrevailingWind(int32_t lngWind);
    void msCheckOwnWind(int32_t lngSeat);

    // match/seats.cpp: the House and the rounds
    void msAssignSeatPsns();
    void msUpdateHouse(bool blnWon);
    void msMoveHouse();
    void msUpdateRound();

    // presentation/boardView.cpp: the board and the tiles on the screen
    void msDrawTile();
    void msShowPicture();
    void msPaintTile(const PixelPoint& udtPlace, int16_t intKind, int16_t intView);
    void msDrawPlayArea();
    void msDrawNexTile();
    void msDrawEarnedTiles();

    // presentation/indicators.cpp: seats and winds on the table
    void msDrawRound();
    void msDrawHouseIndicator();
    void msDrawSeats();

    // presentation/commands.cpp: the toolbar
    void msSetUpToolbar();
    void msSetToolTipText();
    void msShowToolTip(int intButton);
    void tbrZQT_ButtonClick(int intButton);
    void msStartAnew();
    void msChooseLevel();
    void msToggleBreakDown();
    void msToggleMusicOn();
    void msHoldForDialog();
    void msSetRounds();
    void msToggleRoundLanguage();
    void msTogglePeek();
    void msPause();
    void msStop();
    void msExit();
    void mnuLevelItem_Click(int intItem);
    void Form_Unload();
    [[noreturn]] void msExitProgram();
};

inline FormRef<frmMain> gfrmMain;
