#pragma once

/// The time of the window: that of the machine, or in tests one that is held. Held time stands still but while
/// something waits for it to pass, and then goes in leaps: as soon as nothing else happens, to the next tick that falls
/// due.
namespace platform::qt {

void holdTime();  ///< From here on, where it stands now.

/// While one of these lives, held time passes.
class TimePasses {
  public:
    TimePasses();
    ~TimePasses();
    TimePasses(const TimePasses&) = delete;
    TimePasses& operator=(const TimePasses&) = delete;
};

void letMomentPass();  ///< A millisecond of held time. So long a service of events lasts, that waiting by them ends.
double secondOfDay();  ///< From 0 to below 86400.

}  // namespace platform::qt
