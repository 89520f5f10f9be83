#pragma once

#include <functional>
#include <memory>
#include <random>

#include "frmMain.h"
#include "tools/album/hands.h"
#include "tools/selfplay/player.h"

namespace album {

/// Matches of the built-in player on the real window. The stage moves the clock itself, so that nobody waits for a
/// tile, and lays out the same tiles each time, so that the same pictures come.
class Stage {
  public:
    explicit Stage(const Hands& hands);

    /// Has the player do one thing, or lets a tick pass. With no match running the next one begins.
    void act();

    int matches() const { return matches_; }  ///< Begun so far.
    bool isPlaying() const;                   ///< A match or one of its dialogs goes on.

  private:
    void layWinds() const;
    void layTiles();
    void beginMatch();

    std::shared_ptr<frmMain> game_;
    const Hands& hands_;
    selfplay::Player player_;
    std::function<void()> tick_;  ///< What the drop timer did before its clock was taken away.
    std::minstd_rand deck_;
    uint32_t hand_ = 0;         ///< The number of the hand whose tiles are laid out.
    bool isBeginning_ = false;  ///< A click before the first tile.
    bool hadLightning_ = false;
    int matches_ = 0;
};

}  // namespace album
