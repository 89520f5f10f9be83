#include "platform/qt/window/heldKeys.h"

#include <QKeyEvent>

namespace platform::qt {
namespace {

quint32 keyOf(const QKeyEvent& event) {
    return event.nativeScanCode() ? event.nativeScanCode() : static_cast<quint32>(event.key());
}

}  // namespace

/// An X server sends a repeat as a release and a press of one moment. Qt joins the two only if both have arrived when
/// it sees the first, so that its own mark for repeats can be missing.
bool HeldKeys::isRepeat(const QKeyEvent& down) const {
    if (down.isAutoRepeat()) return true;
    const auto held = held_.find(keyOf(down));
    return held != held_.end() && held->second.released != 0 && held->second.released == down.timestamp();
}

Press HeldKeys::take(const QKeyEvent& down, const QWidget* window) {
    const bool repeat = isRepeat(down);
    Held& held = held_[keyOf(down)];
    held.released = 0;
    if (!repeat) held.window = window;
    if (!repeat) return Press::New;
    return window && held.window == window ? Press::Repeat : Press::Foreign;
}

const QWidget* HeldKeys::letGo(const QKeyEvent& up) {
    Held& held = held_[keyOf(up)];
    if (!up.isAutoRepeat()) held.released = up.timestamp();
    return held.window;
}

void HeldKeys::ignoreRepeatsFor(const QWidget* window) {
    for (auto& [key, held] : held_)
        if (held.window == window) held.window = nullptr;
}

void HeldKeys::letGoOfAll() {
    for (auto& [key, held] : held_) held.window = nullptr;
}

}  // namespace platform::qt
