#pragma once

#include <string>

namespace platform {

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

/// The screen's size in twips.
double screenWidth();
double screenHeight();

}  // namespace platform
