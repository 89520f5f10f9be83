#include "platform/timer.h"

#include <QBasicTimer>
#include <QObject>
#include <QPointer>
#include <QTimerEvent>
#include <algorithm>
#include <chrono>

#include "platform/qt/formStack.h"
#include "platform/qt/presence.h"
#include "platform/qt/slots.h"

namespace platform {
namespace {

using qt::Presence;
using qt::presence;
using std::chrono::milliseconds;

}  // namespace

/// Asks Qt for one tick at a time: Qt's own periodic timer loses a tick that falls due inside its handler.
struct Timer::Impl : QObject {
    Impl(Timer& timer, bool doesWait) : owner(timer), waits(doesWait) {
        if (waits) presence().watch(this, [this] { await(); });
    }
    ~Impl() override { presence().forget(this); }

    Timer& owner;
    const bool waits;  // while the player is away
    milliseconds interval{0};
    bool enabled = false;
    bool inHandler = false;
    Presence::Clock::time_point due;
    QBasicTimer wait;

    void countFromNow() {
        due = now() + interval;
        await();
    }
    Presence::Clock::time_point now() const { return waits ? presence().now() : Presence::Clock::now(); }
    bool standsStill() const { return waits && presence().isAway(); }
    void await();
    void skipMissedTicks();
    void timerEvent(QTimerEvent* event) override;
};

void Timer::Impl::await() {
    wait.stop();
    if (!enabled || inHandler || standsStill() || interval <= milliseconds::zero()) return;
    const auto start = now();
    while (due + interval <= start) due += interval;  // Of all the ticks that were missed the last one is kept.
    const auto left = std::chrono::ceil<milliseconds>(std::max(due - start, Presence::Clock::duration::zero()));
    wait.start(static_cast<int>(left.count()), Qt::PreciseTimer, this);
}

void Timer::Impl::skipMissedTicks() {
    for (const auto start = now(); interval > milliseconds::zero() && due <= start;) due += interval;
}

void Timer::Impl::timerEvent(QTimerEvent* /*event*/) {
    wait.stop();
    due += interval;
    inHandler = true;
    const QPointer<Impl> self(this);
    const int openings = qt::formStack().openings();
    qt::callSlot(owner.onTick);
    if (!self) return;
    inHandler = false;
    if (qt::formStack().openings() != openings) skipMissedTicks();
    await();
}

Timer::Timer(WhileAway whileAway) : impl_(std::make_unique<Impl>(*this, whileAway == WhileAway::Waits)) {}

Timer::~Timer() = default;

int Timer::interval() const { return static_cast<int>(impl_->interval.count()); }

void Timer::setInterval(int value) {
    if (milliseconds(value) == impl_->interval) return;
    impl_->interval = milliseconds(value);
    impl_->countFromNow();
}

bool Timer::enabled() const { return impl_->enabled; }

void Timer::setEnabled(bool enabled) {
    if (enabled == impl_->enabled) return;
    impl_->enabled = enabled;
    impl_->countFromNow();
}

}  // namespace platform
