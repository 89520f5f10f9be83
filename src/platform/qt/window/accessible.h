#pragma once

#include <QAccessible>

namespace platform::qt {

/// Tells screen readers the roles of the widgets that have one of their own. Once, when the application has been made.
void startAccessibility();

/// What a screen reader takes a widget of ours for.
void setRole(QWidget& widget, QAccessible::Role role);

/// The key that presses a button of ours, as a screen reader tells it; it has to have its role before. Empty for none.
void setAccelerator(QWidget& button, const QString& key);

/// Has a screen reader say a text of a main window, or of a dialog on it.
void notify(QWidget& mainWindow, const QString& text);

/// Whether a screen reader or another such program listens.
bool isListenedTo();

}  // namespace platform::qt
