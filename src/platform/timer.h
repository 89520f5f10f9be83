#pragma once

#include <functional>
#include <memory>

namespace platform {

/// A periodic timer, disabled at first. It never ticks inside its own handler: a tick that falls due meanwhile is kept
/// once and comes after the handler has returned. Disabling it or changing its interval drops a kept tick, and so does
/// a dialog, a menu or a message box that was open inside the handler: the next tick comes at the timer's next beat.
///
/// While the player is away, that is, while another window has the keyboard, the help too, or the main window is
/// minimised, a timer that waits stands still; enabled or not, it then goes on with what was left of its interval.
class Timer {
  public:
    enum class WhileAway { Waits, GoesOn };

    explicit Timer(WhileAway whileAway = WhileAway::Waits);
    ~Timer();

    std::function<void()> onTick;

    int interval() const;                ///< Milliseconds between two ticks.
    void setInterval(int milliseconds);  ///< A changed interval counts from now.
    bool enabled() const;
    void setEnabled(bool enabled);  ///< Enabling a disabled timer counts a whole interval from now.

  private:
    struct Impl;
    std::shared_ptr<Impl> impl_;
};

}  // namespace platform
