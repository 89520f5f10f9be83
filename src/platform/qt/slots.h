#pragma once

#include <functional>
#include <utility>

#include "platform/uncaught.h"

namespace platform::qt {

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
