#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "frmMain.h"
#include "platform/sim/simulation.h"

/// The kind that a short name stands for: c1 to c9 circles, b1 to b9 bamboo, w1 to w9 characters, E S W N winds,
/// R G B dragons, s1 to s4 seasons, f1 to f4 flowers, a dot for none. Fails the test for any other.
int16_t kindOf(const std::string& name);

/// The short name of a kind.
std::string tileName(int kind);

/// The words of a text.
std::vector<std::string> words(const std::string& text);

/// A set that the tile chooser offers: its tiles by name, and where it lies.
struct OfferedSet {
    std::string tiles;
    int row, column;
};
/// What the open chooser offers, without Pass.
std::vector<OfferedSet> offeredSets();

/// Play that nobody watches: no surface has pixels while this lives.
struct Unseen {
    Unseen() { platform::Surface::keepsPixels = false; }
    ~Unseen() { platform::Surface::keepsPixels = true; }
};

/// The game on a fresh simulated desktop, with its main window open and nothing begun.
class GameFixture : public ::testing::Test {
  protected:
    void SetUp() override { startProgram(); }
    void TearDown() override;

    /// The same once more, from another second of the day.
    void startProgram(double secondOfDay = 36000);
    /// Begins a hand without the seat draw, in which these tiles fall first.
    void dealHand(const std::string& firstTiles, int seat = 1, int house = 1, int wind = 1);
    void beginHand(int seat = 1, int house = 1, int wind = 1) { dealHand("", seat, house, wind); }
    /// Puts tiles on the board: their names row by row, from row 12 upward, with a slash between two rows and a dot for
    /// an empty place. What is left out at the right of a row is empty.
    void setBoard(const std::string& rowsFromBottom);
    /// The board in the same form.
    std::string board() const;
    /// Lets a tile land on a column; each offer is answered by `answers`, or by what is to be done while it is open.
    void land(const std::string& name, int column, const std::function<void()>& whileAsked = {});
    /// Opens a dialog and does something in it as soon as it is open; it has to be closed there.
    static void inDialog(const std::function<void()>& open, const std::function<void()>& action);
    static void inDialog(int button, const std::function<void()>& action);  ///< The one that a button opens.
    /// Lets time pass until the next tile has come in.
    void nextTile();
    /// Begins a match by the Start Anew button; the seat is drawn by the first Enter.
    void startMatch();
    /// Fills the earned slots with a finished hand, bonus tiles behind a bar; the pair stands where the text has it.
    void setHand(const std::string& text);
    /// Values such a hand as the first of a match.
    void tally(const std::string& hand, int seat = 1, int house = 1, int wind = 1);
    /// The earned slots by name, without the empty ones at the end.
    std::string earned() const;

    std::string offers;   ///< Each offer so far, "tiles row/column" for a set, with a semicolon behind it.
    std::string answers;  ///< The entry taken of each offer, a digit from 1; Pass behind the last.
    std::shared_ptr<frmMain> game;

  private:
    void answer();
};
