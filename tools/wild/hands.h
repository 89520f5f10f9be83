#pragma once

#include <QPointer>
#include <QString>
#include <QWindow>
#include <set>
#include <string>

class QWidget;

namespace wild {

/// A key of the keyboard and what it types.
struct Key {
    Qt::Key key;
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
    QString text = {};
};

Key keyFor(char32_t character);  ///< That types it; Tab, Enter and Esc too.
Key keyOf(int keyCode);          ///< Of platform::key.
std::string nameOf(const Key& key);

/// Hands at the keyboard and the mouse of the desktop that has the game's window on it. Keys go where the desktop has
/// the keyboard, and the mouse to the window that is pointed at, past all of the program that lies behind.
class Hands {
  public:
    /// The main window, which must live as long.
    explicit Hands(QWidget& window) : window_(window) {}

    bool sees(int toolButton) const;   ///< Whether it lies in the window, which may be smaller than the table.
    void click(int toolButton) const;  ///< A button of the toolbar, with a mouse of its own.

    void tap(const Key& key) const;                    ///< Down and up.
    void hold(const Key& key);                         ///< Down; nothing if it is.
    void repeat(const Key& key, bool isMarked) const;  ///< Of a held key; not all desktops mark it as a repeat.
    void letGo(Qt::Key key);
    bool holds(Qt::Key key) const { return held_.contains(key); }
    const std::set<Qt::Key>& held() const { return held_; }

    void pointTo(QWindow& window, const QPointF& at) const;  ///< In pixels of the window.
    void buttonDown(QWindow& window, const QPointF& at, Qt::MouseButton button, Qt::KeyboardModifiers modifiers = {});
    void buttonUp(Qt::MouseButton button);  ///< Where the pointer is, in the window that it went down in.
    void drag(const QPointF& to);           ///< The button is down.
    bool buttonIsDown() const { return buttons_ != Qt::NoButton; }
    void turnWheel(QWindow& window, const QPointF& at, int angle, Qt::KeyboardModifiers modifiers) const;

    QWidget& window() const { return window_; }

  private:
    QPoint middleOf(int toolButton) const;
    void send(QEvent::Type type, const Key& key, bool isRepeat) const;
    void sendMouse(QEvent::Type type, Qt::MouseButton button, Qt::KeyboardModifiers modifiers) const;

    QWidget& window_;
    std::set<Qt::Key> held_;
    QPointer<QWindow> pressed_;  // in which a button went down
    QPointF at_;
    Qt::MouseButtons buttons_;
};

}  // namespace wild
