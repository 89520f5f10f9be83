#pragma once

#include <functional>
#include <map>

namespace platform::qt {

/// Whether the player is at the game or away from it: another window has the keyboard, the help too, or the main window
/// is minimised. Its menus and message boxes belong to the main window. Where the desktop tells nothing, nobody is
/// away.
class Presence {
  public:
    void look();     ///< Finds out anew; called when the keyboard has moved, or the main window came, went or changed.
    void hearKey();  ///< A key came to the main window: the player is there, until the next look at least.

    void watch(const void* watcher, std::function<void()> onChange);  ///< Called when the player has gone or come back.
    void forget(const void* watcher) { watchers_.erase(watcher); }    ///< It isn't called any more.

  private:
    bool finds();
    void settle(bool away);

    bool hasBeenActive_ = false;  // the main window, since it opened
    std::map<const void*, std::function<void()>> watchers_;
};

/// The one player; never destroyed.
Presence& presence();

}  // namespace platform::qt
