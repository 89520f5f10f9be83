#pragma once

#include <functional>
#include <utility>

#include "platform/base/uncaught.h"

namespace platform {

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
