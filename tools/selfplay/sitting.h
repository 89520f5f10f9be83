#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "frmMain.h"
#include "platform/sim/simulation.h"
#include "tools/selfplay/interruptions.h"
#include "tools/selfplay/player.h"
#include "tools/selfplay/referee.h"

namespace selfplay {

/// Hands on the simulated desktop.
struct SimHands : Hands {
    void press(int keyCode) const override { sim::pressKey(keyCode); }
    void click(int toolButton) const override { sim::clickToolButton(toolButton); }
};

/// A hand as it ended.
struct HandReport {
    bool won = false;
    int level = 0;      ///< When it ended.
    int tiles = 0;      ///< Fallen.
    int handTiles = 0;  ///< Taken, without flowers and seasons.
    std::string items;  ///< Joined by commas; empty for a lost hand.
    int doubles = 0;
    int32_t points = 0;  ///< Of the won hand, without those of its sets.
    int32_t score = 0;   ///< Of the match so far.
};

/// The game on a fresh simulated desktop, with the built-in player at the keys. One at a time.
class Sitting {
  public:
    /// Switches the desktop on with that seed and opens the game; without a referee nothing is checked.
    Sitting(uint32_t seed, bool refereed);
    ~Sitting();
    Sitting(const Sitting&) = delete;
    Sitting& operator=(const Sitting&) = delete;

    std::function<void()> onLook;                        ///< Whenever the player is about to look at the table.
    std::function<void(const HandReport& hand)> onHand;  ///< Whenever a hand has ended.

    void setLevel(int level);  ///< From the menu of Levels, 1 to 5.
    void setRounds(int rounds) { player_.setRounds(rounds); }
    void setManner(const Player::Manner& manner) { player_.setManner(manner); }
    void interrupt(int moments);  ///< From now on, once in so many moments on average.

    /// Plays from Start Anew until the match has ended and its summary is closed, or until no more hands than that have
    /// ended; true if the match is over. Throws std::logic_error if the referee objects, the game reports a failure or
    /// it stands still.
    bool playMatch(int mostHands);

    int hands() const { return hands_; }  ///< Ended so far.

  private:
    void act();
    void watch();
    void endHand();
    void checkCourse();

    const uint32_t seed_;
    std::shared_ptr<frmMain> game_;
    SimHands playersHands_;
    Player player_;
    std::optional<Interruptions> interruptions_;
    std::optional<Referee> referee_;
    HandReport hand_;  ///< The one in play.
    int gamesSeen_ = 0;
    int stillFor_ = 0;  ///< Events since the last tile came in.
    int hands_ = 0;
};

}  // namespace selfplay
