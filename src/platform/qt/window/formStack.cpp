#include "platform/qt/window/formStack.h"

#include <QCoreApplication>
#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QToolButton>
#include <QWheelEvent>
#include <QWidget>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "platform/base/uncaught.h"
#include "platform/qt/controls/control.h"
#include "platform/qt/window/fonts.h"
#include "platform/qt/window/formWindow.h"
#include "platform/qt/window/frame.h"
#include "platform/qt/window/keys.h"
#include "platform/qt/window/zoom.h"
#include "platform/shared/ticks.h"

namespace platform::qt {
namespace {

// A release isn't among them: a button that was down when a dialog opened must come up again.
constexpr QEvent::Type pointing[] = {
    QEvent::MouseButtonPress, QEvent::MouseButtonDblClick, QEvent::Enter,
    QEvent::HoverEnter,       QEvent::HoverMove,           QEvent::Wheel,
    QEvent::ToolTip,          QEvent::ContextMenu,         QEvent::TouchBegin,
    QEvent::TabletPress,
};

/// A number of its own for each key: that of its place on the keyboard or, where none comes, that of its meaning.
quint32 keyOf(const QKeyEvent& event) {
    return event.nativeScanCode() ? event.nativeScanCode() : static_cast<quint32>(event.key());
}

FormWindow* windowOf(const Form::Impl* form) {
    return form != nullptr ? static_cast<FormWindow*>(&form->view) : nullptr;
}

/// Whether the keyboard is with that window, or with a menu or box that stands before it.
bool hasKeyboard(const QWidget& main) {
    const QWindow* each = QGuiApplication::focusWindow();
    while (each != nullptr && each != main.window()->windowHandle()) each = each->transientParent();
    return each != nullptr;
}

/// A dialog that opens without a main window is one of its own.
bool belongsToForms(const QWidget* face) {
    return dynamic_cast<const Frame*>(face->window()) || dynamic_cast<const FormWindow*>(face->window());
}

/// The keys of the zoom, and Ctrl by itself: the game's handlers would take it for any key of the player's.
bool isOfZoom(const QKeyEvent& key) { return key.key() == Qt::Key_Control || zoomStepOf(key) != ZoomStep::None; }

bool takeWheel(Frame& frame, QWheelEvent& wheel) {
    if (!(wheel.modifiers() & Qt::ControlModifier)) return false;
    wheel.accept();  // Else it would go on to what lies below.
    frame.zoomBy(zoomStepOf(wheel));
    return true;
}

}  // namespace

FormStack& formStack() {
    static FormStack& theStack = *new FormStack;  // Forms that are let go at the very end still ask for it.
    return theStack;
}

FormWindow* FormStack::mainWindow() const { return windowOf(desk().main()); }
FormWindow* FormStack::top() const { return windowOf(desk().top()); }

bool FormStack::blocks(const QWidget* face) const {
    if (!belongsToForms(face)) return false;
    if (desk().boxIsOpen() || desk().isReturning()) return true;
    return !desk().dialogs().empty() && top() != face && !top()->isAncestorOf(face);
}

void FormStack::openBox(QWidget* box) {
    desk().openBox(box);
    noteChange();
}

void FormStack::closeBox(const QWidget* box) {
    desk().closeBox(box);
    noteChange();
}

void FormStack::bringBoxToFront() const {
    auto* const box = static_cast<QWidget*>(desk().box());
    const FormWindow* const main = mainWindow();
    if (box && main && main->window()->windowHandle() == QGuiApplication::focusWindow()) box->activateWindow();
}

/// A tool button under the pointer lies flat while it takes no clicks. A window that comes up under a pointer at rest
/// gets a move too, which is none.
void FormStack::noteChange() {
    pointer_ = QCursor::pos();
    const FormWindow* const main = mainWindow();
    if (!main) return;
    for (QToolButton* const button : main->findChildren<QToolButton*>()) button->update();
}

void FormStack::noteEnd() {
    lookForPlayer();
    if (onMainWindowGone) onMainWindowGone();
}

void FormStack::lookForPlayer() {
    const FormWindow* const main = mainWindow();
    const bool isActive = main != nullptr && hasKeyboard(*main);
    mainHasHadKeyboard_ = main != nullptr && (mainHasHadKeyboard_ || isActive);
    setAway(main != nullptr && (main->window()->isMinimized() || (mainHasHadKeyboard_ && !isActive)));
}

void FormStack::setAway(bool away) const {
    if (away == ticks().isAway()) return;
    if (away) desk().letGoOfKeys();
    ticks().setAway(away);
    QEvent moved(playerHasMoved);
    if (FormWindow* const main = mainWindow()) QCoreApplication::sendEvent(main, &moved);
}

bool FormStack::eventFilter(QObject* watched, QEvent* event) {
    if (!watched->isWidgetType()) return false;
    QWidget* const face = static_cast<QWidget*>(watched);
    if (event->type() == QEvent::Polish && !belongsToForms(face)) makeUpForMissingFonts();  // Forms have their own.
    if (filterZoom(*face, *event)) return true;
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease)
        return filterKey(face, *static_cast<QKeyEvent*>(event));
    if (event->type() == QEvent::MouseButtonPress && top()) top()->takeKeysBack();
    if (std::ranges::count(pointing, event->type()) > 0 && blocks(face)) return true;
    const auto* const mouse = dynamic_cast<const QMouseEvent*>(event);
    return mouse && filterMouse(face, *mouse);
}

/// Whatever is open on the main window, its keys and the wheel change the zoom; those of the help are its own.
bool FormStack::filterZoom(const QWidget& face, QEvent& event) const {
    const FormWindow* const main = mainWindow();
    if (main == nullptr || (!belongsToForms(&face) && face.window() != desk().box())) return false;
    if (event.type() == QEvent::Wheel) return takeWheel(*main->frame(), static_cast<QWheelEvent&>(event));
    const bool isPress = event.type() == QEvent::KeyPress;
    if (!isPress && event.type() != QEvent::KeyRelease) return false;
    const auto& key = static_cast<QKeyEvent&>(event);
    if (fillsOrLeavesScreen(*main->frame(), key)) {
        if (isPress && !key.isAutoRepeat()) main->frame()->fillScreen(!main->frame()->isFullScreen());
        return true;
    }
    if (!isOfZoom(key)) return false;
    if (isPress) main->frame()->zoomBy(zoomStepOf(key));
    return true;
}

/// F11, and Esc where it means nothing else.
bool FormStack::fillsOrLeavesScreen(const Frame& frame, const QKeyEvent& key) const {
    const bool isEscape = key.key() == Qt::Key_Escape && !desk().boxIsOpen() && desk().dialogs().empty();
    return key.key() == Qt::Key_F11 || (isEscape && frame.isFullScreen() && !mainWindow()->toolsHaveKeys());
}

/// Frames and panels on a form let events of the mouse go through to it.
bool FormStack::filterMouse(const QWidget* face, const QMouseEvent& event) {
    const QPoint before = std::exchange(pointer_, event.globalPosition().toPoint());
    const FormWindow* const form = top();
    if (!form || face != form || !form->form->onPoint || blocks(face)) return false;
    const QPoint at = event.position().toPoint();
    if (event.type() == QEvent::MouseMove && pointer_ != before) desk().movePointer(at.x(), at.y());
    if (event.type() == QEvent::MouseMove || event.button() != Qt::LeftButton) return true;
    if (event.type() != QEvent::MouseButtonRelease)
        desk().buttonDown(at.x(), at.y());
    else if (desk().buttonUp(at.x(), at.y()))
        deliver({QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r"}, {key::Enter, key::Enter, false});
    return true;
}

/// An X server sends a repeat as a release and a press of one moment. Qt joins the two only if both have arrived when
/// it sees the first, so that its own mark for repeats can be missing.
bool FormStack::isRepeat(const QKeyEvent& down) {
    const quint64 released = released_[keyOf(down)];
    return down.isAutoRepeat() || (released != 0 && released == down.timestamp());
}

bool FormStack::filterKey(QWidget* face, const QKeyEvent& event) {
    if (forwarded_ == &event) return false;
    const bool toForms = belongsToForms(face);
    const void* const owner = toForms ? desk().keyOwner() : face->window();
    if (event.type() == QEvent::KeyRelease) {
        const bool own = desk().keyUp(keyOf(event)) == owner;
        if (!event.isAutoRepeat()) released_[keyOf(event)] = event.timestamp();
        if (toForms && owner && own && !event.isAutoRepeat()) release(event);
        return toForms;
    }
    if (toForms) setAway(false);  // Where no window manager gives the keyboard back, keys come all the same.
    const Press press = desk().keyDown(keyOf(event), isRepeat(event), owner);
    if (press == Press::Foreign) return true;
    if (toForms && owner) deliver(event, strokeOf(event, press == Press::Repeat));
    return toForms;
}

void FormStack::passToBox(const QKeyEvent& event, const Stroke& stroke) {
    auto* const box = static_cast<QWidget*>(desk().box());
    forward(box->focusWidget() ? box->focusWidget() : box, eventFor(event, stroke, stroke.character));
}

/// A key that has gone down, for the box or the form on top.
void FormStack::deliver(const QKeyEvent& event, Stroke stroke) {
    if (desk().boxIsOpen()) return passToBox(event, stroke);
    FormWindow* const window = top();
    if (window->takeToolKey && window->takeToolKey(event, stroke.repeat)) return;
    const int typed = stroke.character;
    if (window->toolsHaveKeys()) return forward(window->keyTarget(), eventFor(event, stroke, typed));
    if (!desk().offer(stroke)) return;
    const QPointer<QWidget> target = window->keyTarget();
    const Control::Impl* const control = window->focusedControl();
    if (typed != 0 && control && !desk().passes(control->owner.onKeyPress, stroke.character)) return;
    if (!target || window->pressesButtonFor(stroke)) return;
    const QPointer<FormWindow> self(window);
    forward(target, eventFor(event, stroke, typed));
    if (self) self->followFocus();
}

void FormStack::release(const QKeyEvent& event) {
    const Stroke stroke = strokeOf(event, false);
    if (desk().boxIsOpen()) return passToBox(event, stroke);
    FormWindow* const window = top();
    const QPointer<FormWindow> self(window);
    forward(window->keyTarget(), eventFor(event, stroke, stroke.character));
    const Control::Impl* const control = self && top() == window ? window->focusedControl() : nullptr;
    if (control) callSlot(control->owner.onKeyUp, stroke.code);
}

void FormStack::forward(QWidget* target, QKeyEvent event) {
    const QKeyEvent* const outer = std::exchange(forwarded_, &event);
    QCoreApplication::sendEvent(target, &event);
    forwarded_ = outer;
}

}  // namespace platform::qt
