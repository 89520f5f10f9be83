#pragma once

#include <cstdint>
#include <random>

namespace selfplay {

class Player;

/// Somebody at the same desktop who can't leave the game alone: presses, clicks, sets, pauses, stops, begins anew and
/// goes away at any moment, inside a tick too, and puts right in the end what would keep the player from playing on.
class Interruptions {
  public:
    /// One comes in so many moments, on average; the player has to live as long. The seed decides which and when.
    Interruptions(Player& player, uint32_t seed, int moments);

    /// To be called once a moment, before the player acts.
    void act();

  private:
    friend struct Interruption;

    int below(int count) { return static_cast<int>(random_() % static_cast<uint32_t>(count)); }
    void goOn();

    Player& player_;
    std::mt19937 random_;
    int moments_;
    bool momentComes_ = false;
};

}  // namespace selfplay
