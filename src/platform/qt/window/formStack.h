#pragma once

#include <QEvent>
#include <QObject>
#include <QPoint>
#include <functional>
#include <map>

#include "platform/qt/window/keys.h"

class QMouseEvent;
class QWidget;

namespace platform::qt {

class FormWindow;
class Frame;

/// Sees to it that keys and clicks reach the form on top and no other, or the message box over it. From where the
/// keyboard is it knows whether the player is at the game or away from it: another window has the keyboard, the help
/// too, or the main window is minimised. Its menus and message boxes belong to the main window. Where the desktop tells
/// nothing, nobody is away.
class FormStack : public QObject {
  public:
    std::function<void()> onMainWindowGone;  ///< After the main window has been unloaded.

    FormWindow* mainWindow() const;          ///< Null if it isn't open.
    FormWindow* top() const;                 ///< The form that is open on top; null if none is open.
    bool blocks(const QWidget* face) const;  ///< Whether something open on top keeps clicks from it.

    void openBox(QWidget* box);         ///< A message box has the forms' keys from now on; with null nobody has them.
    void closeBox(const QWidget* box);  ///< It is gone again.
    void bringBoxToFront() const;       ///< If the main window has come before it: the forms take nothing now.

    void noteChange();     ///< Something opens or goes, so that others take clicks, or take none any more.
    void noteEnd();        ///< The main window has gone.
    void lookForPlayer();  ///< When the keyboard has moved, or the main window came, went or changed.

    /// What the main window is sent when the player has gone or come back.
    static constexpr QEvent::Type playerHasMoved = QEvent::User;

    /// Keeps back clicks that something on top blocks, and takes the keys meant for forms to the one on top and from
    /// there to its control with the focus; those of a tool button that has them are its own, and those of a message
    /// box go to it wherever they come. Where a form asks for it, a click takes the way of Enter.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool filterZoom(const QWidget& face, QEvent& event) const;
    bool fillsOrLeavesScreen(const Frame& frame, const QKeyEvent& key) const;
    bool filterKey(QWidget* face, const QKeyEvent& event);
    bool isRepeat(const QKeyEvent& down);
    void passToBox(const QKeyEvent& event, const Stroke& stroke);
    bool filterMouse(const QWidget* face, const QMouseEvent& event);
    void deliver(const QKeyEvent& event, Stroke stroke);
    void forward(QWidget* target, QKeyEvent event);
    void release(const QKeyEvent& event);
    void setAway(bool away) const;

    const QKeyEvent* forwarded_ = nullptr;  // on its way from the form to its control
    bool mainHasHadKeyboard_ = false;       // since it opened
    QPoint pointer_;                        // where it was last, on the screen
    std::map<quint32, quint64> released_;   // of keys: when they last came up, by the clock of events, in milliseconds
};

/// The one of the program; never destroyed.
FormStack& formStack();

}  // namespace platform::qt
