#pragma once

#include <functional>
#include <utility>

namespace platform::qt {

/// Tells the player of the exception that is being handled, in a message box, and waits for the answer.
void reportUncaught();

/// Runs a handler if there is one. A failure that it didn't catch is reported and goes no further.
template <class... Parameters, class... Arguments>
void callSlot(const std::function<void(Parameters...)>& slot, Arguments&&... arguments) {
    if (!slot) return;
    const auto held = slot;  // The handler may let go of the object that its slot is part of.
    try {
        held(std::forward<Arguments>(arguments)...);
    } catch (...) {
        reportUncaught();
    }
}

}  // namespace platform::qt
