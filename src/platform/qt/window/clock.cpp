#include "platform/qt/window/clock.h"

#include <QBasicTimer>
#include <QObject>
#include <QTime>
#include <QTimerEvent>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <optional>

#include "platform/shared/ticks.h"

namespace platform {
namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr double millisecondsPerSecond = 1000;
constexpr double secondsPerDay = 86400;

struct HeldTime {
    double now;
    double dayBegan;  // by the same clock
};
std::optional<HeldTime> heldTime;
int waiting = 0;  // how many wait for held time to pass

double machineTime() { return Milliseconds(std::chrono::steady_clock::now().time_since_epoch()).count(); }

/// Waits for what falls due first. There is no wait while nothing will.
class Waker : public QObject {
  public:
    void set() {
        const double due = ticks().due();
        if (std::isinf(due) || (heldTime && waiting == 0 && due > heldTime->now)) return wait_.stop();
        const double left = heldTime ? 0 : std::ceil(std::max(0.0, due - machineTime()));
        wait_.start(static_cast<int>(left), Qt::PreciseTimer, this);
    }

  private:
    void timerEvent(QTimerEvent* /*event*/) override {
        wait_.stop();
        if (heldTime && waiting > 0) heldTime->now = std::max(heldTime->now, ticks().due());
        ticks().serve();
        set();
    }

    QBasicTimer wait_;
};

Waker& waker() {
    static Waker& theWaker = *new Waker;  // Timers that are let go at the very end still ask for it.
    return theWaker;
}

}  // namespace

double clock::now() { return heldTime ? heldTime->now : machineTime(); }
void clock::dueChanged() { waker().set(); }

void qt::holdTime() {
    const double now = clock::now();
    heldTime = {now, now - secondOfDay() * millisecondsPerSecond};
    waker().set();
}

qt::TimePasses::TimePasses() {
    ++waiting;
    waker().set();
}

qt::TimePasses::~TimePasses() {
    --waiting;
    waker().set();
}

void qt::letMomentPass() {
    if (!heldTime) return;
    ++heldTime->now;
    waker().set();
}

double qt::secondOfDay() {
    if (heldTime) return std::fmod((heldTime->now - heldTime->dayBegan) / millisecondsPerSecond, secondsPerDay);
    return QTime::currentTime().msecsSinceStartOfDay() / millisecondsPerSecond;
}

}  // namespace platform
