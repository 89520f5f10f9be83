#include "tools/wild/hands.h"

#include <private/qhighdpiscaling_p.h>
#include <qpa/qwindowsysteminterface.h>

#include <QApplication>
#include <QCursor>
#include <QKeySequence>
#include <map>

#include "platform/form.h"
#include "tools/album/hands.h"
#include "tools/wild/heldClock.h"

namespace wild {
namespace {

using Now = QWindowSystemInterface::SynchronousDelivery;

const std::map<int, Key> keys = {{platform::key::Tab, {Qt::Key_Tab, Qt::NoModifier, "\t"}},
                                 {platform::key::Left, {Qt::Key_Left}},
                                 {platform::key::Right, {Qt::Key_Right}},
                                 {platform::key::Up, {Qt::Key_Up}},
                                 {platform::key::Down, {Qt::Key_Down}},
                                 {platform::key::Enter, {Qt::Key_Return, Qt::NoModifier, "\r"}},
                                 {platform::key::Escape, {Qt::Key_Escape, Qt::NoModifier, "\x1b"}}};

ulong now() { return static_cast<ulong>(timePassed()); }

}  // namespace

Key keyOf(int keyCode) { return keys.at(keyCode); }

std::string nameOf(const Key& key) {
    return QKeySequence(QKeyCombination(key.modifiers, key.key)).toString(QKeySequence::PortableText).toStdString();
}

Key keyFor(char32_t character) {
    if (const auto found = keys.find(static_cast<int>(character)); character < ' ' && found != keys.end())
        return found->second;
    const QString text = QString::fromUcs4(&character, 1);
    const char32_t capital = QChar::toUpper(character);
    const bool isPlain = character < 128 || QChar::isLetter(character);
    return {isPlain ? static_cast<Qt::Key>(capital) : Qt::Key_unknown,
            capital == character && QChar::isLetter(character) ? Qt::ShiftModifier : Qt::NoModifier, text};
}

QPoint Hands::middleOf(int toolButton) const {
    const QWidget& face = album::faceOf(window_, toolButton);
    return face.mapTo(&window_, face.rect().center());
}

bool Hands::sees(int toolButton) const { return window_.isVisible() && window_.rect().contains(middleOf(toolButton)); }

void Hands::click(int toolButton) const {
    Hands mouse(window_);  // No button of it is down.
    mouse.buttonDown(*window_.windowHandle(), middleOf(toolButton), Qt::LeftButton);
    mouse.buttonUp(Qt::LeftButton);
}

void Hands::tap(const Key& key) const {
    send(QEvent::KeyPress, key, false);
    letTimePass(1);  // A press of the same moment would be a repeat.
    send(QEvent::KeyRelease, key, false);
    letTimePass(1);
}

void Hands::hold(const Key& key) {
    if (held_.insert(key.key).second) send(QEvent::KeyPress, key, false);
}

void Hands::repeat(const Key& key, bool isMarked) const {
    send(QEvent::KeyRelease, key, isMarked);
    send(QEvent::KeyPress, key, isMarked);
}

void Hands::letGo(Qt::Key key) {
    if (held_.erase(key) > 0) send(QEvent::KeyRelease, {key}, false);
}

/// With no window that has the keyboard, as where there is no window manager, the main one gets them all the same.
void Hands::send(QEvent::Type type, const Key& key, bool isRepeat) const {
    QWindow* const focus = QGuiApplication::focusWindow();
    QWindow* const target = focus != nullptr ? focus : window_.windowHandle();
    QWindowSystemInterface::handleKeyEvent<Now>(target, now(), type, key.key, key.modifiers, key.text, isRepeat);
}

void Hands::pointTo(QWindow& window, const QPointF& at) const {
    QCursor::setPos(window.screen(), window.mapToGlobal(at).toPoint());
    QWindowSystemInterface::flushWindowSystemEvents();
}

void Hands::buttonDown(QWindow& window, const QPointF& at, Qt::MouseButton button, Qt::KeyboardModifiers modifiers) {
    const QPointer<QWindow> target(&window);
    buttonUp(button);
    if (target) pointTo(*target, at);
    if (!target || !target->isVisible()) return;
    pressed_ = target;
    at_ = at;
    buttons_ |= button;
    sendMouse(QEvent::MouseButtonPress, button, modifiers);
}

void Hands::buttonUp(Qt::MouseButton button) {
    if (!(buttons_ & button)) return;
    buttons_ &= ~QFlags(button);
    letTimePass(1);
    sendMouse(QEvent::MouseButtonRelease, button, {});
}

void Hands::drag(const QPointF& to) {
    at_ = to;
    sendMouse(QEvent::MouseMove, Qt::NoButton, {});
}

void Hands::sendMouse(QEvent::Type type, Qt::MouseButton button, Qt::KeyboardModifiers modifiers) const {
    if (!pressed_ || pressed_->handle() == nullptr) return;
    const QPointF local = QHighDpi::toNativeLocalPosition(at_, pressed_.data());
    const QPointF global = QHighDpi::toNativeGlobalPosition(pressed_->mapToGlobal(at_), pressed_.data());
    QWindowSystemInterface::handleMouseEvent<Now>(pressed_, now(), local, global, buttons_, button, type, modifiers);
}

void Hands::turnWheel(QWindow& window, const QPointF& at, int angle, Qt::KeyboardModifiers modifiers) const {
    const QPointF local = QHighDpi::toNativeLocalPosition(at, &window);
    const QPointF global = QHighDpi::toNativeGlobalPosition(window.mapToGlobal(at), &window);
    QWindowSystemInterface::handleWheelEvent(&window, now(), local, global, {}, {0, angle}, modifiers);
    QWindowSystemInterface::flushWindowSystemEvents();
}

}  // namespace wild
