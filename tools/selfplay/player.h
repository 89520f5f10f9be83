#pragma once

#include <cstdint>
#include <random>

namespace selfplay {

/// Hands for the simulated desktop that play by the keys alone, and look at no more than a player can see: they steer
/// the tiles, choose among candidates, draw a seat and close what the game shows.
class Player {
  public:
    /// The seed decides what is left to whim: which tile of the seat draw is turned over.
    explicit Player(uint32_t seed) : whim_(seed) {}

    /// What sim::setHands() is to call: answers the dialog on top, or steers the tile that has just come in.
    void act();

    void startMatch();           ///< Presses Start Anew and draws the seat.
    void setLevel(int level);    ///< Chooses a Level, 1 to 5, from its menu.
    void setRounds(int rounds);  ///< Sets the rounds of a match, 1 to 100, in their dialog.

  private:
    void drawSeat();
    void chooseTiles();
    void spinRounds();
    bool answerDialog();
    void steer();

    std::minstd_rand whim_;
    int level_ = 0;   ///< The Level to choose from the open menu; 0 while it is closed.
    int rounds_ = 0;  ///< The rounds to set in the dialog.
};

}  // namespace selfplay
