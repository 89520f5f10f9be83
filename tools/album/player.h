#pragma once

#include <functional>
#include <memory>
#include <random>

#include "frmMain.h"
#include "tools/album/hands.h"

namespace album {

/// The built-in player at the real window. It moves the clock itself, so that nobody waits for a tile, and lays out
/// the same tiles each time, so that the same pictures come.
class Player {
  public:
    explicit Player(const Hands& hands);

    /// Does one thing: answers the dialog on top, steers the tile that has just come in, or lets a tick pass. With no
    /// match running it begins the next one.
    void act();

    int matches() const { return matches_; }  ///< Begun so far.
    bool isPlaying() const;                   ///< A match or one of its dialogs goes on.

  private:
    bool answerDialog();
    void spinRounds();
    void drawSeat();
    void chooseTiles();
    void beginMatch();
    void layTiles();
    void steer();

    std::shared_ptr<frmMain> game_;
    const Hands& hands_;
    std::function<void()> tick_;  ///< What the drop timer did before its clock was taken away.
    std::minstd_rand deck_;
    uint32_t hand_ = 0;         ///< The number of the hand whose tiles are laid out.
    bool isBeginning_ = false;  ///< One of its clicks before the first tile.
    bool hadLightning_ = false;
    int matches_ = 0;
};

}  // namespace album
