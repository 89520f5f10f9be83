#pragma once

#include <cstdint>

#include "tools/dice.h"

namespace selfplay {

class Player;

/// Somebody at the same desktop who can't leave the game alone: presses, clicks, sets, pauses, stops, begins anew and
/// goes away at any moment, inside a tick too, and puts right in the end what would keep the player from playing on.
class Interruptions {
  public:
    /// One comes in so many moments, on average; the player has to live as long. The seed decides which and when.
    Interruptions(Player& player, uint32_t seed, int moments) : player_(player), dice_(seed), moments_(moments) {}

    /// To be called once a moment, before the player acts.
    void act();

  private:
    void goOn();

    Player& player_;
    tools::Dice dice_;
    int moments_;
    bool momentComes_ = false;
};

}  // namespace selfplay
