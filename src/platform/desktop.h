#pragma once

#include <cstdint>
#include <string>

namespace platform {

class Form;

/// Serves the events that are pending now, once.
void doEvents();

/// The clock of the day in seconds with fractions, from 0 to below 86400.
double secondsOfDay();

/// Starts the random values anew from the clock.
void seedRandom();

/// A random value from 0 to below 1.
double random();

/// The path of the file with that name in the folder in which the program lies, in the system's own bytes. Any thread
/// may ask.
std::string programFile(const std::string& name);

/// What a message shows beside its text.
enum class Sign { Exclamation, Information };

/// Shows a message with one OK button, and waits for the answer.
void messageBox(const std::string& title, const std::string& text, Sign sign = Sign::Exclamation);

/// Ends the process at once; nothing after it runs.
[[noreturn]] void endProcess();

/// The screen's size in twips, 15 to the pixel.
double screenWidth();
double screenHeight();

/// A rectangle in pixels.
struct Rect {
    int32_t left = 0;
    int32_t top = 0;
    int32_t right = 0;
    int32_t bottom = 0;
};

constexpr int menuBarHeight = 20;  ///< Pixels.

/// Grows a client rectangle to that of its window: no style adds a frame, a menu bar adds its height at the top.
inline void AdjustWindowRect(Rect& rect, uint32_t /*style*/, bool menu) {
    if (menu) rect.top -= menuBarHeight;
}

constexpr int LOGPIXELSX = 88;
constexpr int LOGPIXELSY = 90;

/// A property of the form's device: 96 pixels an inch for LOGPIXELSX and LOGPIXELSY, 0 for any other index.
inline int GetDeviceCaps(const Form& /*form*/, int index) {
    return index == LOGPIXELSX || index == LOGPIXELSY ? 96 : 0;
}

}  // namespace platform
