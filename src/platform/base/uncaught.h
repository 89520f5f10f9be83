#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>

namespace platform {

/// The name of the program, which stands in the titles of its reports.
inline std::string programName = "Program";

/// Tells the player of a failure by its number and description, with the name of where it happened in the title, and
/// waits for the answer.
void reportFailure(int32_t number, const std::string& description, const std::string& where);

/// Tells the player of the exception that is being handled, in a message box, and waits for the answer.
void reportUncaught();

/// What a back end throws through all handlers is one of these: no failure of theirs, and nothing to report.
struct PassesHandlers {};

/// Runs a handler if there is one. A failure that it didn't catch is reported and goes no further.
template <class... Parameters, class... Arguments>
void callSlot(const std::function<void(Parameters...)>& slot, Arguments&&... arguments) {
    if (!slot) return;
    const auto held = slot;  // The handler may let go of the object that its slot is part of.
    try {
        held(std::forward<Arguments>(arguments)...);
    } catch (const PassesHandlers&) {
        throw;
    } catch (...) {
        reportUncaught();
    }
}

}  // namespace platform
