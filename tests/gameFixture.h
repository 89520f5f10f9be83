#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "frmMain.h"

/// The kind that a short name stands for: c1 to c9 circles, b1 to b9 bamboo, w1 to w9 characters, E S W N winds,
/// R G B dragons, s1 to s4 seasons, f1 to f4 flowers. Fails the test for any other.
int16_t kindOf(const std::string& name);

/// The short name of a tile; a dot for an empty place.
std::string tileName(const CellInfo& place);

/// The words of a text.
std::vector<std::string> words(const std::string& text);

/// A set that the tile chooser offered.
struct Candidate {
    int row, column, tiles;
    bool operator==(const Candidate&) const = default;
};
std::ostream& operator<<(std::ostream& out, const Candidate& candidate);

/// Play that nobody watches: no surface has pixels while this lives.
struct Unseen {
    Unseen() { platform::Surface::keepsPixels = false; }
    ~Unseen() { platform::Surface::keepsPixels = true; }
};

/// The game on a fresh simulated desktop, with its main window open and nothing begun.
class GameFixture : public ::testing::Test {
  protected:
    void SetUp() override;
    void TearDown() override;

    /// Begins a hand without the seat draw.
    void beginHand(int seat = 1, int house = 1, int wind = 1);
    /// Puts tiles on the board: texts of nine names each, from row 12 upward, a dot for an empty place.
    void setBoard(const std::vector<std::string>& rowsFromBottom);
    /// The board as texts of the same form, without the empty rows on top.
    std::vector<std::string> board() const;
    /// Lets a tile land on a column; each offer is answered by `answers`, or by what is to be done while it is open.
    void land(const std::string& name, int column, const std::function<void()>& whileAsked = {});
    /// Opens a dialog and does something in it as soon as it is open; it has to be closed there.
    static void inDialog(const std::function<void()>& open, const std::function<void()>& action);
    static void inDialog(int button, const std::function<void()>& action);  ///< The one that a button opens.
    /// Begins a match by the Start Anew button; the seat is drawn by the first Enter.
    void startMatch();
    /// Fills the earned slots with a finished hand, bonus tiles behind a bar; the pair stands where the text has it.
    void setHand(const std::string& text);

    std::vector<std::vector<Candidate>> offers;  ///< The candidates of each tile chooser, in order.
    std::vector<int> answers;                    ///< The entry taken of each offer, from 1; Pass behind the last.
    std::shared_ptr<frmMain> game;

  private:
    void answer();
};
