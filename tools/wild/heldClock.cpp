#include "tools/wild/heldClock.h"

#include <sys/syscall.h>
#include <sys/time.h>
#include <unistd.h>

#include <ctime>

namespace {

constexpr int64_t someDay = 1'800'000'000 / 86'400 * 86'400;  // its first second
constexpr int64_t millisecondsPerSecond = 1000;
constexpr int64_t nanosecondsPerMillisecond = 1'000'000;

thread_local bool isHeld = false;
int64_t began = 0;   // in seconds
int64_t passed = 0;  // in milliseconds

}  // namespace

void wild::holdClock(int64_t secondOfDay) {
    began = someDay + secondOfDay;
    isHeld = true;
}

void wild::letTimePass(int64_t milliseconds) { passed += milliseconds; }

int64_t wild::timePassed() { return passed; }

// These take the place of the system's own in all libraries that the program has loaded.

extern "C" int clock_gettime(clockid_t clock, timespec* time) noexcept {
    if (!isHeld || (clock != CLOCK_REALTIME && clock != CLOCK_MONOTONIC))
        return static_cast<int>(syscall(SYS_clock_gettime, clock, time));
    *time = {began + passed / millisecondsPerSecond, passed % millisecondsPerSecond * nanosecondsPerMillisecond};
    return 0;
}

extern "C" int gettimeofday(timeval* time, void* /*zone*/) noexcept {
    timespec precise{};
    const int failure = clock_gettime(CLOCK_REALTIME, &precise);
    *time = {precise.tv_sec, precise.tv_nsec / 1000};
    return failure;
}
