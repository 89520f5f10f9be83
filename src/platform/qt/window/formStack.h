#pragma once

#include <QObject>
#include <QPoint>
#include <functional>
#include <vector>

#include "platform/qt/window/heldKeys.h"
#include "platform/qt/window/keys.h"

class QKeyEvent;
class QMouseEvent;
class QWidget;

namespace platform::qt {

class FormWindow;

/// Knows which forms are open and sees to it that keys and clicks reach the one on top and no other.
class FormStack : public QObject {
  public:
    std::function<void()> onMainWindowGone;  ///< After the main window has been unloaded.

    FormWindow* mainWindow() const { return main_; }  ///< Null if it isn't open.
    FormWindow* top() const;                          ///< The form that is open on top; null if none is open.
    bool blocks(const QWidget* face) const;           ///< Whether something open on top keeps clicks from it.
    bool keyRepeats() const { return keyRepeats_; }   ///< Whether the key whose handler runs is a repeat.

    void openMain(FormWindow* window);           ///< The window is the main one from now on.
    void openDialog(FormWindow* window);         ///< The window lies on top from now on.
    void unloadAbove(const FormWindow* window);  ///< Unloads the dialogs that lie over it, the top-most first.
    void leave(FormWindow* window);              ///< The window is open no longer. Nothing if it wasn't.

    void openBox(QWidget* box);         ///< A message box has the forms' keys from now on; with null nobody has them.
    void closeBox(const QWidget* box);  ///< It is gone again.
    void bringBoxToFront() const;       ///< If the main window has come before it: the forms take nothing now.

    void letGoOfKeys() { heldKeys_.letGoOfAll(); }  ///< No held key goes on: its release may never be told.

    /// Keeps back clicks that something on top blocks, and takes the keys meant for forms to the one on top and from
    /// there to its control with the focus; those of a tool button that has them are its own, and those of a message
    /// box go to it wherever they come. Where a form asks for it, a click takes the way of Enter.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool filterKey(QWidget* face, const QKeyEvent& event);
    void passToBox(const QKeyEvent& event, const Stroke& stroke);
    bool filterMouse(const QWidget* face, const QMouseEvent& event);
    void deliver(FormWindow* window, const QKeyEvent& event, Stroke stroke);
    void forward(QWidget* target, QKeyEvent& event);
    void release(FormWindow* window, const QKeyEvent& event);
    void repaintTools() const;

    FormWindow* main_ = nullptr;
    std::vector<FormWindow*> dialogs_;  // the top-most last
    std::vector<QWidget*> boxes_;       // message boxes that are open, the top-most last
    int changes_ = 0;                   // how often a form has opened or gone
    bool keyRepeats_ = false;
    const QKeyEvent* forwarded_ = nullptr;  // on its way from the form to its control
    const FormWindow* clicked_ = nullptr;   // on which the left button went down, where Enter means something
    QPoint pointer_;                        // where it was last, on the screen
    HeldKeys heldKeys_;
};

/// The one stack of forms of the program; never destroyed.
FormStack& formStack();

}  // namespace platform::qt
