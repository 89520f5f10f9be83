#include "platform/timer.h"

#include <QBasicTimer>
#include <QObject>
#include <QPointer>
#include <QTimerEvent>
#include <algorithm>
#include <chrono>

#include "platform/qt/slots.h"

namespace platform {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

}  // namespace

/// Asks Qt for one tick at a time: Qt's own periodic timer loses a tick that falls due inside its handler.
struct Timer::Impl : QObject {
    explicit Impl(Timer& timer) : owner(timer) {}

    Timer& owner;
    milliseconds interval{0};
    bool enabled = false;
    bool inHandler = false;
    Clock::time_point due;
    QBasicTimer wait;

    void countFromNow() {
        due = Clock::now() + interval;
        await();
    }
    void await();
    void timerEvent(QTimerEvent* event) override;
};

void Timer::Impl::await() {
    wait.stop();
    if (!enabled || inHandler || interval <= milliseconds::zero()) return;
    const auto now = Clock::now();
    while (due + interval <= now) due += interval;  // Of all the ticks that were missed the last one is kept.
    const auto left = std::chrono::ceil<milliseconds>(std::max(due - now, Clock::duration::zero()));
    wait.start(static_cast<int>(left.count()), Qt::PreciseTimer, this);
}

void Timer::Impl::timerEvent(QTimerEvent* /*event*/) {
    wait.stop();
    due += interval;
    inHandler = true;
    const QPointer<Impl> self(this);
    qt::callSlot(owner.onTick);
    if (!self) return;
    inHandler = false;
    await();
}

Timer::Timer() : impl_(std::make_unique<Impl>(*this)) {}

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
