#include "platform/shared/ticks.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "platform/base/uncaught.h"
#include "platform/timer.h"

namespace platform {
namespace {

constexpr double never = std::numeric_limits<double>::infinity();
constexpr uint64_t anyService = std::numeric_limits<uint64_t>::max();

/// Goes on to the last of the beats that were missed by that time, or past all of them.
void passOver(Ticker& ticker, double time, bool keepsLast) {
    if (ticker.interval <= 0) return;
    const double beats = std::floor((time - ticker.due) / ticker.interval) + (keepsLast ? 0 : 1);
    if (beats > 0) ticker.due += beats * ticker.interval;
}

}  // namespace

Ticks& ticks() {
    static Ticks& theTicks = *new Ticks;
    return theTicks;
}

Ticker::Ticker(const std::function<void()>& handler, bool doesWait) : onTick(handler), waits(doesWait) {
    ticks().tickers_.push_back(this);
}

Ticker::~Ticker() {
    std::erase(ticks().tickers_, this);
    if (enabled) clock::dueChanged();
}

void Ticker::countFromNow() {
    due = ticks().timeOf(*this) + interval;
    clock::dueChanged();
}

double Ticks::timeOf(const Ticker& ticker) const {
    return ticker.waits ? awaySince_.value_or(clock::now()) - absence_ : clock::now();
}

double Ticks::dueOf(const Ticker& ticker) const {
    const bool standsStill = ticker.waits && isAway();
    if (!ticker.enabled || ticker.interval <= 0 || ticker.inHandler || standsStill) return never;
    return ticker.waits ? ticker.due + absence_ : ticker.due;
}

/// Of those that haven't ticked in that service yet, or in a later one, the first that falls due; null if none will.
Ticker* Ticks::first(uint64_t service) const {
    Ticker* found = nullptr;
    for (Ticker* const each : tickers_)
        if (each->served < service && dueOf(*each) < (found != nullptr ? dueOf(*found) : never)) found = each;
    return found;
}

void Ticks::setAway(bool away) {
    if (away == isAway()) return;
    if (away)
        awaySince_ = clock::now();
    else
        absence_ += clock::now() - *std::exchange(awaySince_, std::nullopt);
    clock::dueChanged();
}

double Ticks::due() const {
    const Ticker* const next = first(anyService);
    return next != nullptr ? dueOf(*next) : never;
}

void Ticks::tick() { tick(*first(anyService)); }

void Ticks::serve() {
    const double start = clock::now();
    const uint64_t service = ++services_;
    for (Ticker* next = first(service); next != nullptr && dueOf(*next) <= start; next = first(service)) {
        next->served = service;
        tick(*next);
    }
}

void Ticks::tick(Ticker& ticker) {
    struct InHandler {
        const std::shared_ptr<Ticker> ticker;  // The handler may let go of its timer.
        const int openingsBefore = ticks().openings_;

        ~InHandler() {
            ticker->inHandler = false;
            passOver(*ticker, ticks().timeOf(*ticker), ticks().openings_ == openingsBefore);
            clock::dueChanged();
        }
    } const untilItEnds{ticker.shared_from_this()};  // Also if what passes all handlers ends it.
    ticker.due += ticker.interval;
    ticker.inHandler = true;
    clock::dueChanged();  // The others go on where the handler serves events.
    callSlot(ticker.onTick);
}

struct Timer::Impl : Ticker {
    using Ticker::Ticker;
};

Timer::Timer(WhileAway whileAway) : impl_(std::make_shared<Impl>(onTick, whileAway == WhileAway::Waits)) {}
Timer::~Timer() = default;

int Timer::interval() const { return impl_->interval; }

void Timer::setInterval(int milliseconds) {
    if (milliseconds == impl_->interval) return;
    impl_->interval = milliseconds;
    impl_->countFromNow();
}

bool Timer::enabled() const { return impl_->enabled; }

void Timer::setEnabled(bool enabled) {
    if (enabled == impl_->enabled) return;
    impl_->enabled = enabled;
    impl_->countFromNow();
}

}  // namespace platform
