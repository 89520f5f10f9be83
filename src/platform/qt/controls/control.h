#pragma once

#include <QLabel>
#include <QPalette>
#include <QPointer>
#include <QStyle>
#include <QWidget>
#include <functional>

#include "platform/base/uncaught.h"
#include "platform/controls.h"
#include "platform/qt/window/formStack.h"
#include "platform/qt/window/formWindow.h"

namespace platform::qt {

/// Qt's own style with raised and sunken edges, for every control on a form.
QStyle* classicStyle();

/// Its colours, which no theme of the desktop changes: those that belong to a light grey.
const QPalette& classicPalette();

/// Gives the widget its place on its parent.
void setPlace(QWidget& widget, const Place& place);

/// Gives the widget, at its right, the room that its texts lack.
void makeRoom(QWidget& widget);

/// Where a text stands in its width, as Qt has it.
Qt::Alignment alignmentOf(Align align);

/// Runs a handler for what was done to a widget by the pointer or a key; nothing if something on top keeps clicks from
/// it.
template <class... Parameters, class... Arguments>
void callUnlessBlocked(const QWidget* widget, const std::function<void(Parameters...)>& slot,
                       Arguments&&... arguments) {
    if (!formStack().blocks(widget)) callSlot(slot, std::forward<Arguments>(arguments)...);
}

/// Owns a widget, which is deleted by deleteLater(), since one of its own handlers may still be running.
template <class Widget>
class Owned {
  public:
    explicit Owned(Widget* widget) : widget_(widget) {}
    ~Owned() {
        if (!widget_) return;
        widget_->blockSignals(true);  // destroyed() is still emitted, for accessibility.
        widget_->hide();
        widget_->deleteLater();
    }
    Owned(const Owned&) = delete;
    Owned& operator=(const Owned&) = delete;

    Widget* operator->() const { return widget_.data(); }
    Widget* get() const { return widget_.data(); }

  private:
    QPointer<Widget> widget_;  // Null when the form took it along.
};

}  // namespace platform::qt

namespace platform {

struct Panel::Impl {
    qt::Owned<QLabel> face;
};

/// A control as a widget of Qt's on a panel.
struct Control::Impl {
    Impl(Control& control, QWidget* widget, Panel& panel, const Place& place);
    ~Impl();

    Control& owner;
    qt::Owned<QWidget> face;
    QPointer<qt::FormWindow> window;
};

namespace qt {

/// The widget of a control, of that kind.
template <class Widget>
Widget* faceOf(const Control& control) {
    return static_cast<Widget*>(control.impl().face.get());
}

}  // namespace qt
}  // namespace platform
