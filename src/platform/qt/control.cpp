#include "platform/qt/control.h"

namespace platform::qt {

Control::Control(QWidget* parent, const Place& place) : QWidget(parent) {
    setPlace(*this, place);
    setAttribute(Qt::WA_OpaquePaintEvent);
    formWindowOf(this)->addControl(this);
}

bool Control::focused() const { return formWindowOf(this)->hasFocusOn(this); }

void Control::takeFocus() { formWindowOf(this)->focusOn(this); }

void setPlace(QWidget& widget, const Place& place) {
    widget.setGeometry(place.left, place.top, place.width, place.height);
}

}  // namespace platform::qt
