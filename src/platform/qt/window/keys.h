#pragma once

#include <QKeyEvent>
#include <QString>

#include "platform/shared/desk.h"

namespace platform::qt {

/// What the key event means to a form.
Stroke strokeOf(const QKeyEvent& event, bool repeat);

/// The event for the form's control: as it came, but for its mark as a repeat, and with the stroke's character if that
/// is another one than was typed.
QKeyEvent eventFor(const QKeyEvent& event, const Stroke& stroke, int typed);

/// What a player calls the key with that code, as in platform::key.
QString nameOfKey(int code);

}  // namespace platform::qt
