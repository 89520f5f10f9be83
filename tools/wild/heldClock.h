#pragma once

#include <cstdint>

/// The machine's clocks as the first thread of this program reads them, the game and Qt alike: they stand still but
/// where the program moves them, so that what happens in time, too, is the same each time. Other threads, which play
/// the music and print, keep the machine's own.
namespace wild {

void holdClock(int64_t secondOfDay);  ///< For the thread that calls, from that second of some day on.
void letTimePass(int64_t milliseconds);
int64_t timePassed();  ///< Since the clock was held, in milliseconds.

}  // namespace wild
