#pragma once

class QKeyEvent;

namespace platform::qt {

/// One press of a key, or one repeat of it.
struct Stroke {
    int code = 0;       ///< As in platform::key.
    int character = 0;  ///< In Latin-1; 0 for a key without one.
    bool repeat = false;
    bool shift = false;
};

/// What the key event means to a form.
Stroke strokeOf(const QKeyEvent& event, bool repeat);

}  // namespace platform::qt
