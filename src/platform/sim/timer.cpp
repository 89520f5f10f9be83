#include "platform/timer.h"

#include <cmath>

#include "platform/sim/state.h"

namespace sim {

Ticker::Ticker(const std::function<void()>& handler, bool doesWait) : onTick(handler), waits(doesWait) {
    state().tickers.push_back(this);
}

Ticker::~Ticker() { std::erase(state().tickers, this); }

void Ticker::restart() { due = (waits ? state().awaySince.value_or(state().now) : state().now) + interval; }

void Ticker::skipMissedTicks() {
    const double now = state().now;
    if (interval > 0 && due <= now) due += interval * (std::floor((now - due) / interval) + 1);
}

bool Ticker::runs() const {
    const bool standsStill = waits && state().awaySince;
    return enabled && interval > 0 && !inHandler && !standsStill;
}

}  // namespace sim

namespace platform {

struct Timer::Impl : sim::Ticker {
    using Ticker::Ticker;
};

Timer::Timer(WhileAway whileAway) : impl_(std::make_unique<Impl>(onTick, whileAway == WhileAway::Waits)) {}
Timer::~Timer() = default;

int Timer::interval() const { return impl_->interval; }

void Timer::setInterval(int milliseconds) {
    if (milliseconds == impl_->interval) return;
    impl_->interval = milliseconds;
    impl_->restart();
}

bool Timer::enabled() const { return impl_->enabled; }

void Timer::setEnabled(bool enabled) {
    if (enabled && !impl_->enabled) impl_->restart();
    impl_->enabled = enabled;
}

}  // namespace platform
