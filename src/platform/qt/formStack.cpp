#include "platform/qt/formStack.h"

#include <QKeyEvent>
#include <QWidget>
#include <algorithm>
#include <utility>

#include "platform/qt/formWindow.h"
#include "platform/qt/keys.h"
#include "platform/qt/slots.h"

namespace platform::qt {
namespace {

// A release isn't among them: a button that was down when a dialog opened must come up again.
bool isPointing(QEvent::Type type) {
    switch (type) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
        case QEvent::Enter:
        case QEvent::Wheel:
        case QEvent::ToolTip:
        case QEvent::ContextMenu:
        case QEvent::TouchBegin:
        case QEvent::TabletPress:
            return true;
        default:
            return false;
    }
}

bool belongsToForms(const QWidget* face) { return dynamic_cast<const FormWindow*>(face->window()); }

}  // namespace

FormStack& formStack() {
    static FormStack& theStack = *new FormStack;  // Forms that are let go at the very end still ask for it.
    return theStack;
}

FormWindow* FormStack::top() const { return dialogs_.empty() ? main_ : dialogs_.back(); }

bool FormStack::blocks(const QWidget* face) const {
    if (!belongsToForms(face)) return false;
    if (boxes_ > 0) return true;
    return !dialogs_.empty() && dialogs_.back() != face && !dialogs_.back()->isAncestorOf(face);
}

void FormStack::openMain(FormWindow* window) {
    main_ = window;
    ++changes_;
}

void FormStack::openDialog(FormWindow* window) {
    dialogs_.push_back(window);
    ++changes_;
}

void FormStack::unloadAbove(const FormWindow* window) {
    const bool open = window == main_ || std::ranges::find(dialogs_, window) != dialogs_.end();
    while (open && !dialogs_.empty() && dialogs_.back() != window) {
        FormWindow* const dialog = dialogs_.back();
        dialog->unload();
        leave(dialog);  // Even if it is on its way out already.
    }
}

void FormStack::leave(FormWindow* window) {
    const bool wasMain = window == main_;
    if (wasMain) main_ = nullptr;
    if (std::erase(dialogs_, window) == 0 && !wasMain) return;
    ++changes_;
    presses_.disown(window);
    if (wasMain && onMainWindowGone) onMainWindowGone();
}

void FormStack::closeBox(const QWidget* box) {
    --boxes_;
    presses_.disown(box);
}

bool FormStack::eventFilter(QObject* watched, QEvent* event) {
    if (!watched->isWidgetType()) return false;
    QWidget* const face = static_cast<QWidget*>(watched);
    switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
            return filterKey(face, *static_cast<QKeyEvent*>(event));
        default:
            return isPointing(event->type()) && blocks(face);
    }
}

bool FormStack::filterKey(QWidget* face, const QKeyEvent& event) {
    const bool toForms = belongsToForms(face);
    if (event.type() == QEvent::KeyRelease) {
        presses_.letGo(event);
        return toForms;
    }
    FormWindow* const form = boxes_ > 0 ? nullptr : top();
    const Press press = presses_.take(event, toForms ? form : face->window());
    if (press == Press::Foreign) return true;  // One press never answers two dialogs.
    if (toForms && form) deliver(form, strokeOf(event, press == Press::Repeat));
    return toForms;
}

void FormStack::deliver(FormWindow* window, Stroke stroke) {
    const int changesBefore = changes_;
    const bool outer = std::exchange(keyRepeats_, stroke.repeat);  // A handler may serve events, further keys too.
    callSlot(window->form->onKeyDown, stroke.code);
    keyRepeats_ = outer;
    if (stroke.code == 0 || changes_ != changesBefore) return;
    if (stroke.character != 0) {
        callSlot(window->form->onKeyPress, stroke.character);
        if (stroke.character == 0 || changes_ != changesBefore) return;
    }
    window->strokeControls(stroke);
}

}  // namespace platform::qt
