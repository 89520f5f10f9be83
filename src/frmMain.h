#pragma once

#include <cstdint>
#include <string>

#include "modZQT.h"
#include "platform/base/runtime.h"
#include "platform/controls.h"
#include "platform/form.h"
#include "platform/sound.h"
#include "platform/surface.h"
#include "platform/timer.h"
#include "platform/toolbar.h"
#include "presentation/buttons.h"
#include "presentation/layout.h"
#include "toolkit/formRef.h"

enum class ScoringItem;

/// The main window, which owns the game: the map of its state, by lifetime, and of its procedures, by the file they
/// live in. Names with m are the game's own; nothing outside it but the built-in player, its referee and the tests
/// looks at them.
struct frmMain {
    frmMain();

    platform::Form form;
    platform::Timer Timer1;                    // the drop timer, disabled at first
    platform::ToolBar tbrZQT;                  // all commands
    platform::PopupMenu mnuLevel{form};        // behind the Level button
    platform::MMControl mmcZQT;                // the music
    platform::Label lblHint{form, hintPlace};  // the line that tells the player how things stand
    platform::Timer tmrHint;                   // takes a hint off that is told for a moment

    // The surfaces: filled by Form_Load, drawn on for the run
    platform::Surface picWork;  // everything that the window shows, with the table as background
    platform::Surface picBlank{tileWidth, tileHeight};  // what lay under the falling tile when it was last drawn
    platform::Surface picBlankNextTile{tileWidth, tileHeight};  // the bare table under the next-tile display
    int16_t mintLightningWidth = 0;                             // pixels, of the rectangle of a strike
    int16_t mintLightningHeight = 0;

    // Fixed for the run: msInitVar, msAssignSeatPsns, msSetToolTipText
    Table<TileKind, 1, kindCount> TileKinds;
    Table<int16_t, 1, tileCount> TileKindOf;  // tile number to kind
    Table<PixelPoint, 1, seatCount> maudtSeatPsn;
    Table<std::string, 1, seatCount> mastrSeatName;
    Table<PixelPoint, 1, seatCount> maudtHousePsn;
    Table<std::string, 1, toolbarButtons> mastrToolTip;  // by button, without its state

    // The options, for the run: Form_Load
    bool mblnMusicReady = false;      // the music was set up without a failure
    int32_t mlngLevel = 0;            // 1 Easy to 5 Super Hard
    bool mblnBreakDown = false;       // show frmBreakDown after a won hand
    bool mblnMusicOn = false;         // the player wants music
    bool mblnRoundInChinese = false;  // the language of the wind markers
    bool mblnPeek = false;            // show the next tile

    // The match: command::startAnew
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
    bool mblnInTimerTick = false;            // a tick is at work; stays set when the match has ended
    bool mblnGameRunning = false;            // a match is running
    bool mblnLightningDue = false;           // a strike is to be painted
    bool mblnLightningShown = false;         // a strike stands on the screen
    int32_t mlngLastLightning = 0;           // second of the day of the last strike, or else of the hand's start
    uint32_t mlngHandNumber = 0;  // number of this hand in the run, by which a tick sees that another has begun

    // The falling tile: tileEnters, in play/dropLoop.cpp
    int16_t mintCurRow = 0;        // 1 to 12; noRow while no tile is on its way
    int16_t mintCurCol = 0;        // 1 to 9
    int16_t mintCurTile = 0;       // its number
    bool mblnDropKeyUsed = false;  // the drop key was pressed for it; cleared when its landing is over

    // The search: msMarkCellTable
    int16_t mintPossibleCount = 0;           // candidates in PossibleTiles
    DynamicTable<TileKind> maudtCheckTiles;  // the tiles of the window that is looked at

    // frmMain.cpp: the start and the end of the program
    /// Sets up window, pictures, tables and options; the window then stands idle.
    void Form_Load();
    /// Ends the program with the window.
    void Form_Unload();
    /// Lets go of every form and ends the process.
    [[noreturn]] void msExitProgram();

    // play/newGame.cpp: the start of a hand
    /// Fills all places, kinds and tile numbers.
    void msInitVar();
    /// Gives each of the 144 tiles its kind.
    void msAssignTileBmpIdx();
    /// Empties the candidates and their count.
    void msInitTileSet(Candidates& sets);
    /// Puts the tile numbers 1 to 144 into a new random order.
    void msShuffleTiles();
    /// Begins a hand and starts the drop timer.
    void msInitNewGame();

    // play/dropLoop.cpp: the tick, the keys and the ends of a hand and of a match
    /// One tick: brings a tile in, moves it down a row or lands it, or ends the hand or the match.
    void Timer1_Timer();
    /// Lets the timer count a whole interval from now, so that the next tile doesn't come out of a dialog at once.
    void msRestartTimer();
    /// Adds a hand to those of the match.
    void msCountHand(bool won);
    /// Steers the falling tile by the code of a key.
    void Form_KeyDown(int keyCode);
    /// True if the falling tile can go a row down.
    bool mblnfDropOK();
    /// Milliseconds a row for the next tile, by Level and hand.
    int16_t mintfSetTimeInterval();
    /// Takes the falling tile off the picture.
    void msEraseTile();

    // play/search.cpp: what a landed tile completes
    /// Makes the landed tile part of the board, and lets the player take what it completes, one set after the other.
    void msMarkCellTable();
    /// Gives the first and last left column of the windows of a pass.
    void msGetColumns(int16_t intCol, int16_t& intColFrom, int16_t& intColTo, bool blnRepeat, int16_t intNumCheck,
                      int16_t intTakenNum);
    /// The same for windows of one tile.
    void msGetCheckSingleCols(int16_t intCol, int16_t& intColFrom, int16_t& intColTo, bool blnRepeat,
                              int16_t intTakenNum);
    /// The same for windows of two tiles.
    void msGetCheckPairCols(int16_t intCol, int16_t& intColFrom, int16_t& intColTo, bool blnRepeat,
                            int16_t intTakenNum);
    /// The same for windows of three tiles.
    void msGetCheckTrioCols(int16_t intCol, int16_t& intColFrom, int16_t& intColTo, bool blnRepeat,
                            int16_t intTakenNum);
    /// True if the window at that place is a set; it is then stored as a candidate.
    bool mblnfTileConnection(int16_t intRow, int16_t intCol, int16_t intNumTiles);
    /// Adds the tiles from first to last as a new candidate.
    void msStorePossibleTiles(int16_t first, int16_t last, const DynamicTable<TileKind>& tiles);

    // play/taking.cpp: a set leaves the board
    /// Moves a set of 1 to 3 tiles from the board to the earned tiles and shows the picture.
    void msTakeSet(int16_t intRow, int16_t intCol, int16_t intNumTiles);
    /// Copies the tiles of a set to the earned slots and tells its `SetKind`.
    void msStoreEarnedTiles(int16_t intRow, int16_t intColFrom, int16_t intColTo, int32_t& lngSetKind);
    /// Takes a set off the board; what stands above it drops by a row.
    void msRemoveTiles(int16_t intRow, int16_t intColFrom, int16_t intColTo);
    /// Moves the pair to slots 13 and 14.
    void msReArrangeTiles();

    // scoring/tally.cpp: points of sets and of a won hand
    /// Adds the points of a taken set, values the hand if asked to, and prints the score.
    void msUpdateScore(int32_t lngSetKind, bool blnTally);
    /// Values a hand of 14 tiles: its items, doubles and points.
    void msTallyScore();
    /// Adds the doubles of an item.
    void msAddDoubles(ScoringItem item);
    /// Lists an item and adds its doubles.
    void msScoreItem(ScoringItem item);
    /// The points for the doubles of the hand; 0 below the least that the Level asks for.
    int32_t mlngfHandPoints();
    /// Empties the list of items and the points of the last hand.
    void msClearScoreDesc();

    // scoring/patterns.cpp: the hand as a whole
    /// True, and its doubles added, if all is of one suit.
    bool mblnfPureSuit();
    /// True, and its doubles added, if all is of one suit and honours.
    bool mblnfSemiPureSuit();
    /// True, and its items scored, if no set is a sequence.
    bool mblnfThreeOfAKindOnly();
    /// True, and its item scored, if no set is a trio.
    bool mblnfSequenceOnly();

    // scoring/honours.cpp: flowers and seasons, dragons, winds
    /// Scores the single flowers and seasons.
    void msCheckForFlowers();
    // Each scores the bonus tile of a slot if it is the player's own while that other seat holds the House.
    void msHouseIsEast(int16_t slot);
    void msHouseIsSouth(int16_t slot);
    void msHouseIsWest(int16_t slot);
    void msHouseIsNorth(int16_t slot);
    /// Scores a tile that is one of these two, given as Bonus.
    void msFlowerAndSeason(int16_t slot, int32_t ownFlower, int32_t ownSeason);
    /// Scores trios of dragons.
    void msCheckForDragons();
    /// Puts the item, with its comma, in the place of the listed dragon trios.
    void msReplace_Dragon_Tiles_Desc(const std::string& newItem);
    /// Scores trios of winds.
    void msCheckForWinds();
    /// Scores a trio of the wind of the round, 1 to 4.
    void msCheckPrevailingWind(int32_t wind);
    /// Scores a trio of the wind of a seat that is the player's own.
    void msCheckOwnWind(int32_t seat);

    // match/seats.cpp: the House and the rounds
    /// Fills the names and places of the seats.
    void msAssignSeatPsns();
    /// Moves the House after a hand, unless the player has won while holding it.
    void msUpdateHouse(bool won);
    /// Moves the House to the next seat.
    void msMoveHouse();
    /// Ends the round at the fourth move of the House and turns its wind.
    void msUpdateRound();

    // hiscores/entry.cpp: the score of a match enters the table
    /// Asks for a name and stores the score, if it is high enough; true if the table is then worth a look.
    bool mblnfHiScore();

    // presentation/boardView.cpp: the board and the tiles on the screen
    /// Paints the falling tile, keeping what lay under it, and shows the picture.
    void msDrawTile();
    /// Copies the whole picture to the window.
    void msShowPicture();
    /// Clears the picture and paints the landed tiles.
    void msDrawPlayArea();
    /// Paints the next tile, or the bare table without Peek.
    void msDrawNexTile();
    /// Paints what the player has taken.
    void msDrawEarnedTiles();

    // presentation/lightning.cpp: a bolt over the table, now and then
    /// Keeps the bare table under the strikes. Call before anything is drawn.
    void msCaptureLightningGround();
    /// Lets the quiet seconds of a hand begin.
    void msResetLightning();
    /// Decides whether a strike is due.
    void msGenerateLightning();
    /// Paints a strike that is due, or takes off the one that stands, with thunder.
    void msDrawLightning();
    /// Takes off a strike, also one that is only due.
    void msEndLightning();

    // presentation/hints.cpp: the line that tells how things stand
    /// Sets up the line, which shows how a match begins.
    void msSetUpHint();
    /// Has a screen reader say it whenever the window comes up before the first match.
    void Form_Activate();
    /// Shows a hint until another one takes its place, and has a screen reader say it; an empty one ends the last.
    void msShowHint(const std::string& hint);
    /// Shows a hint for two seconds.
    void msShowHintBriefly(const std::string& hint);

    // presentation/indicators.cpp: seats and winds on the table
    /// Paints the large marker with the wind of the round.
    void msDrawRound();
    /// Paints the small marker at the seat of the House.
    void msDrawHouseIndicator();
    /// Paints the small table, the names of the seats and the small marker.
    void msDrawSeats();
    /// Prints the score on the picture.
    void msPrintScore();

    // presentation/music.cpp: the music
    /// Plays the music or stops it, as the player wants it; nothing before the first match.
    void msToggleMusic();
    /// Starts the status events; the next of them starts the piece.
    void msMusicPlay();
    /// Begins the piece if it stands still, at first and whenever it has come to its end.
    void msMusicStatus();
    /// Stops the music and takes it back to its beginning.
    void msMusicStop();

    // presentation/buttons.cpp: the toolbar
    /// Gives the toolbar its images and widths and the menu its Levels.
    void msSetUpToolbar();
    /// Sets all tool-tips.
    void msSetToolTipText();
    /// Sets a button's tool-tip from its text and the present state.
    void msShowToolTip(int button);
    /// Carries out the command of a button, 1 to 15.
    void tbrZQT_ButtonClick(int button);

    // presentation/commands.cpp: the Level menu
    /// Sets the Level, 1 to 5, and its check mark.
    void mnuLevelItem_Click(int item);
};

inline FormRef<frmMain> gfrmMain;

/// Lets go of every form, the main window last.
void gsClearAllForms();
