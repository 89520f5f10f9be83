#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

/// The pace of all timers, which both desktops share. The game is a game of ticks: how fast a tile falls, what a tick
/// does that comes late, and that nothing falls while the player is away, are rules of play, and must be the same where
/// the rules are tested and where they are played. So a back end only tells the time, serves the ticks once they are
/// due, and waits for the earliest; which timer that is, and when it ticks again, is decided here. All timers share the
/// one wait, so that a game at rest wakes nothing, and the clock may be any that only goes forward: that of the
/// machine, or one that a test moves. All times are milliseconds.
namespace platform {

/// What a back end knows of the time.
namespace clock {

double now();       ///< Since a moment that never changes; it never goes back.
void dueChanged();  ///< What ticks().due() says may be another time now.

}  // namespace clock

/// What ticks behind a timer, disabled at first.
struct Ticker : std::enable_shared_from_this<Ticker> {
    Ticker(const std::function<void()>& handler, bool doesWait);  ///< The handler must live as long.
    ~Ticker();
    Ticker(const Ticker&) = delete;
    Ticker& operator=(const Ticker&) = delete;

    void countFromNow();  ///< The next tick comes a whole interval from now; a kept one is dropped.

    const std::function<void()>& onTick;
    const bool waits;  ///< While the player is away.
    int interval = 0;  ///< 0 never ticks.
    bool enabled = false;
    bool inHandler = false;
    double due = 0;       ///< By the player's clock if it waits; in the past while a tick is kept.
    uint64_t served = 0;  ///< The last service in which it ticked.
};

/// All tickers, and the player's clock, which stands still while he is away.
class Ticks {
  public:
    bool isAway() const { return awaySince_.has_value(); }
    void setAway(bool away);             ///< He is away, or here, from now on.
    void noteOpening() { ++openings_; }  ///< A dialog, a menu or a message box has opened.

    double due() const;  ///< When the next tick falls due, by the back end's clock; infinite if none will.
    void tick();         ///< Ticks what is due first; there must be something.
    void serve();        ///< Ticks all that is due now, each once.

  private:
    friend Ticker;

    double timeOf(const Ticker& ticker) const;
    double dueOf(const Ticker& ticker) const;
    void tick(Ticker& ticker);
    Ticker* first(uint64_t service) const;

    std::vector<Ticker*> tickers_;  // in the order of their making
    uint64_t services_ = 0;
    int openings_ = 0;
    std::optional<double> awaySince_;
    double absence_ = 0;  // of all the times before this one
};

/// The one desktop's; never destroyed, since timers may be let go at the very end.
Ticks& ticks();

}  // namespace platform
