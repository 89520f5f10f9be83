#pragma once

#include <functional>

namespace platform::qt {

/// Has the handler called in the event loop when an interrupt or a termination signal has asked the program to end. The
/// first signal does so; a second one ends the process at once.
void onEndSignal(std::function<void()> handler);

}  // namespace platform::qt
