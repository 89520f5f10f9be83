#include "platform/qt/window/presence.h"

#include <QGuiApplication>
#include <QWindow>
#include <utility>

#include "platform/qt/window/formStack.h"
#include "platform/qt/window/formWindow.h"
#include "platform/shared/desk.h"
#include "platform/shared/ticks.h"

namespace platform::qt {
namespace {

/// Whether the keyboard is with that window, or with a menu or box that stands before it.
bool hasKeyboard(const QWidget& main) {
    const QWindow* each = QGuiApplication::focusWindow();
    while (each != nullptr && each != main.windowHandle()) each = each->transientParent();
    return each != nullptr;
}

}  // namespace

Presence& presence() {
    static Presence& thePresence = *new Presence;  // Timers that are let go at the very end still ask for it.
    return thePresence;
}

/// Whether the player is away, by what the desktop tells now and has told.
bool Presence::finds() {
    const FormWindow* const main = formStack().mainWindow();
    const bool isActive = main != nullptr && hasKeyboard(*main);
    hasBeenActive_ = main != nullptr && (hasBeenActive_ || isActive);
    return main != nullptr && (main->isMinimized() || (hasBeenActive_ && !isActive));
}

void Presence::look() { settle(finds()); }

/// Without a window manager nobody gives the keyboard back to the main window when a window before it has closed, but
/// keys come to it all the same.
void Presence::hearKey() { settle(false); }

void Presence::settle(bool away) {
    if (away == ticks().isAway()) return;
    if (away) desk().letGoOfKeys();
    ticks().setAway(away);
    for (const auto& [watcher, onChange] : watchers_) onChange();
}

void Presence::watch(const void* watcher, std::function<void()> onChange) { watchers_[watcher] = std::move(onChange); }

}  // namespace platform::qt
