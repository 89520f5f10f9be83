#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "frmMain.h"
#include "tools/selfplay/handWorth.h"

namespace selfplay {

/// Keeps books of its own on a game and compares them with the game's state.
class Referee {
  public:
    /// Watches the game from now on; it has to outlive the referee.
    explicit Referee(const frmMain& game) : game_(game) {}

    /// Compares everything; throws std::logic_error that says what is wrong. To be called after every event, so that at
    /// most one set is taken between two calls.
    void check();

    int handsWon() const { return won_; }  ///< Since the referee began to watch.

  private:
    struct Taken {
        std::array<int, setTiles> kinds{};
        int tiles = 0;
    };

    void require(bool holds, const char* otherwise) const;
    [[noreturn]] void object(const std::string& complaint) const;
    bool isLanding() const;
    bool isFalling() const;

    void checkBoard() const;
    void checkTiles() const;
    void checkCounters() const;
    void checkEarnedSlots() const;
    void checkMatch() const;

    void followMatch();
    void openMatch();
    void openHand();
    void closeHand();
    void followBonusTiles();
    void followSets();
    Taken lastTaken(int tiles) const;
    void settle(const Taken& taken);
    void checkTally();
    WonHand wonHand() const;

    const frmMain& game_;

    // The match
    uint32_t hand_ = 0;   ///< The game's number of the hand that the books are on.
    bool closed_ = true;  ///< The hand has been counted.
    int games_ = 0;
    int gamesWon_ = 0;
    int houseMoves_ = 0;  ///< Since the match began.
    int64_t score_ = 0;
    int won_ = 0;

    // The hand
    std::array<Taken, 5> taken_;
    int sets_ = 0;       ///< In taken_.
    int handTiles_ = 0;  ///< Tiles in taken_.
    int pairAt_ = -1;    ///< Index of the pair in taken_.
    std::vector<int> bonusKinds_;
    int tilesFallen_ = 0;
    bool entryBlocked_ = false;
};

}  // namespace selfplay
