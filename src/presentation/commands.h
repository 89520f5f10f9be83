#pragma once

struct frmMain;

/// What the buttons of the toolbar do.
namespace command {
/// Draws the seat and begins a match.
void startAnew(frmMain& m);
/// Opens the Level menu.
void chooseLevel(frmMain& m);
/// Turns the break-down after a won hand on or off.
void toggleBreakDown(frmMain& m);
/// Turns the music on or off.
void toggleMusicOn(frmMain& m);
/// Holds the fall for the high scores.
void showHighScores(frmMain& m);
/// Opens the setting of the rounds.
void setRounds(frmMain& m);
/// Changes the language of the wind markers.
void toggleRoundLanguage(frmMain& m);
/// Shows or hides the next tile.
void togglePeek(frmMain& m);
/// Stops or restarts the fall.
void pause(frmMain& m);
/// Stops the fall and the music.
void stop(frmMain& m);
/// Holds the fall for the order form.
void showOrder(frmMain& m);
/// Holds the fall for the about box.
void showAbout(frmMain& m);
/// Opens the help, or brings it to the front. It holds nothing: the fall waits as for any other window.
void showHelp(frmMain& m);
/// Unloads the window.
void exit(frmMain& m);
}  // namespace command
