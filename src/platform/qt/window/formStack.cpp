#include "platform/qt/window/formStack.h"

#include <QCoreApplication>
#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QToolButton>
#include <QWidget>
#include <algorithm>
#include <utility>

#include "platform/qt/controls/control.h"
#include "platform/qt/window/formWindow.h"
#include "platform/qt/window/keys.h"
#include "platform/qt/window/presence.h"
#include "platform/shared/slots.h"
#include "platform/shared/ticks.h"

namespace platform::qt {
namespace {

// A release isn't among them: a button that was down when a dialog opened must come up again.
bool isPointing(QEvent::Type type) {
    switch (type) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
        case QEvent::Enter:
        case QEvent::HoverEnter:
        case QEvent::HoverMove:
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

bool isOfMouse(QEvent::Type type) {
    return type == QEvent::MouseMove || type == QEvent::MouseButtonPress || type == QEvent::MouseButtonRelease ||
           type == QEvent::MouseButtonDblClick;
}

/// Enter going down, for a form that is clicked.
QKeyEvent enterKey() { return {QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r")}; }

bool belongsToForms(const QWidget* face) { return dynamic_cast<const FormWindow*>(face->window()); }

}  // namespace

FormStack& formStack() {
    static FormStack& theStack = *new FormStack;  // Forms that are let go at the very end still ask for it.
    return theStack;
}

FormWindow* FormStack::top() const { return dialogs_.empty() ? main_ : dialogs_.back(); }

bool FormStack::blocks(const QWidget* face) const {
    if (!belongsToForms(face)) return false;
    if (!boxes_.empty()) return true;
    return !dialogs_.empty() && dialogs_.back() != face && !dialogs_.back()->isAncestorOf(face);
}

void FormStack::openMain(FormWindow* window) {
    main_ = window;
    ++changes_;
}

void FormStack::openDialog(FormWindow* window) {
    if (main_) main_->takeKeysBack();
    dialogs_.push_back(window);
    ++changes_;
    ticks().noteOpening();
    clicked_ = nullptr;
    repaintTools();
    pointer_ = QCursor::pos();  // A window that comes up under a pointer at rest gets a move too.
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
    clicked_ = nullptr;
    heldKeys_.ignoreRepeatsFor(window);
    repaintTools();
    if (wasMain) presence().look();
    if (wasMain && onMainWindowGone) onMainWindowGone();
    if (FormWindow* const under = wasMain ? nullptr : top()) under->activate();
}

void FormStack::openBox(QWidget* box) {
    boxes_.push_back(box);
    ticks().noteOpening();
    clicked_ = nullptr;
    repaintTools();
}

void FormStack::closeBox(const QWidget* box) {
    std::erase(boxes_, box);
    heldKeys_.ignoreRepeatsFor(box);
    repaintTools();
}

void FormStack::bringBoxToFront() const {
    QWidget* const box = boxes_.empty() ? nullptr : boxes_.back();
    if (box && main_ && main_->windowHandle() == QGuiApplication::focusWindow()) box->activateWindow();
}

/// A tool button under the pointer lies flat while it takes no clicks.
void FormStack::repaintTools() const {
    if (!main_) return;
    for (QToolButton* const button : main_->findChildren<QToolButton*>()) button->update();
}

bool FormStack::eventFilter(QObject* watched, QEvent* event) {
    if (!watched->isWidgetType()) return false;
    QWidget* const face = static_cast<QWidget*>(watched);
    switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
            return filterKey(face, *static_cast<QKeyEvent*>(event));
        default:
            break;
    }
    if (event->type() == QEvent::MouseButtonPress && top()) top()->takeKeysBack();
    if (isPointing(event->type()) && blocks(face)) return true;
    return isOfMouse(event->type()) && filterMouse(face, *static_cast<QMouseEvent*>(event));
}

/// Frames and panels on a form let events of the mouse go through to it.
bool FormStack::filterMouse(const QWidget* face, const QMouseEvent& event) {
    const QPoint before = std::exchange(pointer_, event.globalPosition().toPoint());
    FormWindow* const form = top();
    if (!form || face != form || !form->form->onPoint || blocks(face)) return false;
    const QPoint at = event.position().toPoint();
    if (event.type() == QEvent::MouseMove) {
        if (pointer_ != before) form->meansEnterAt(at);
        return true;
    }
    if (event.button() != Qt::LeftButton) return true;
    if (event.type() != QEvent::MouseButtonRelease)
        clicked_ = form->meansEnterAt(at) ? form : nullptr;
    else if (std::exchange(clicked_, nullptr) == form && form->meansEnterAt(at))
        deliver(form, enterKey(), {key::Enter, key::Enter, false});
    return true;
}

bool FormStack::filterKey(QWidget* face, const QKeyEvent& event) {
    if (forwarded_ == &event) return false;
    const bool toForms = belongsToForms(face);
    const QWidget* const owner = !toForms ? face->window() : boxes_.empty() ? top() : boxes_.back();
    if (event.type() == QEvent::KeyRelease) {
        const bool own = heldKeys_.letGo(event) == owner;
        if (toForms && owner && own && !event.isAutoRepeat()) release(top(), event);
        return toForms;
    }
    if (toForms) presence().hearKey();
    const Press press = heldKeys_.take(event, owner);
    if (press == Press::Foreign) return true;  // One press never answers two dialogs.
    if (toForms && owner) deliver(top(), event, strokeOf(event, press == Press::Repeat));
    return toForms;
}

void FormStack::passToBox(const QKeyEvent& event, const Stroke& stroke) {
    QWidget* const box = boxes_.back();
    QKeyEvent forwarded = eventFor(event, stroke, stroke.character);
    forward(box->focusWidget() ? box->focusWidget() : box, forwarded);
}

void FormStack::deliver(FormWindow* window, const QKeyEvent& event, Stroke stroke) {
    if (!boxes_.empty()) return passToBox(event, stroke);
    if (window->takeToolKey && window->takeToolKey(event, stroke.repeat)) return;
    const int typed = stroke.character;
    if (window->toolsHaveKeys()) {
        QKeyEvent forwarded = eventFor(event, stroke, typed);
        return forward(window->keyTarget(), forwarded);
    }
    const int changesBefore = changes_;
    const bool outer = std::exchange(keyRepeats_, stroke.repeat);  // A handler may serve events, further keys too.
    int code = stroke.code;
    callSlot(window->form->onKeyDown, code);
    keyRepeats_ = outer;
    if (code == 0 || changes_ != changesBefore) return;
    const auto show = [&](const std::function<void(int&)>& handler) {
        callSlot(handler, stroke.character);
        return stroke.character != 0 && changes_ == changesBefore;
    };
    if (typed != 0 && !show(window->form->onKeyPress)) return;
    const QPointer<QWidget> target = window->keyTarget();
    const Control::Impl* const control = window->focusedControl();
    if (typed != 0 && control && !show(control->owner.onKeyPress)) return;
    if (!target || window->pressesButtonFor(stroke)) return;
    const QPointer<FormWindow> self(window);
    QKeyEvent forwarded = eventFor(event, stroke, typed);
    forward(target, forwarded);
    if (self) self->followFocus();
}

void FormStack::release(FormWindow* window, const QKeyEvent& event) {
    const Stroke stroke = strokeOf(event, false);
    if (!boxes_.empty()) return passToBox(event, stroke);
    const QPointer<FormWindow> self(window);
    QKeyEvent forwarded = eventFor(event, stroke, stroke.character);
    forward(window->keyTarget(), forwarded);
    const Control::Impl* const control = self && top() == window ? window->focusedControl() : nullptr;
    if (control) callSlot(control->owner.onKeyUp, stroke.code);
}

void FormStack::forward(QWidget* target, QKeyEvent& event) {
    const QKeyEvent* const outer = std::exchange(forwarded_, &event);
    QCoreApplication::sendEvent(target, &event);
    forwarded_ = outer;
}

}  // namespace platform::qt
