#pragma once

#include <QAccessible>

namespace platform::qt {

/// Tells screen readers the roles of the widgets that have one of their own. Once, when the application has been made.
void startAccessibility();

/// What a screen reader takes a widget of ours for.
void setRole(QWidget& widget, QAccessible::Role role);

/// Whether a screen reader or another such program listens.
bool isListenedTo();

}  // namespace platform::qt
