#pragma once

#include <QPointer>
#include <QPushButton>
#include <QWidget>
#include <functional>
#include <vector>

#include "platform/controls.h"
#include "platform/form.h"
#include "platform/qt/window/keys.h"

class QEventLoop;

namespace platform::qt {

/// A form on the screen. It is deleted later than its Form, by deleteLater(), so that a form can be let go in its own
/// handlers.
class FormWindow : public QWidget {
  public:
    explicit FormWindow(Form& owner);  ///< Not on the screen and without a size.

    Form* form;           ///< Null when the form is gone.
    Surface surface;      ///< What it shows under its shapes and controls.
    double left = 0;      ///< Twips.
    double top = 0;       ///< Twips.
    bool loaded = false;  ///< From before onLoad to after onUnload.

    void fitToSurface();  ///< Gives the window the surface's size.
    void showChanges();   ///< Has what was drawn on the surface since the last time painted on the screen.
    void place();         ///< Puts the window where left and top say.
    void showAsMain();    ///< Loads the form and shows it as the main window. Nothing if it is loaded.
    void runAsDialog();   ///< Loads the form, shows it and returns when it has been unloaded. Nothing if it is loaded.
    void unload();        ///< Runs onUnload and leaves the screen. Nothing if it isn't loaded.
    void retire();        ///< The form is gone: leaves the screen at once and the memory later.

    void announce(const QString& text);  ///< Has a screen reader say it.

    void activate();  ///< It is on top now: tells the form, and one of its controls has the focus.

    void addControl(Control::Impl* control);                           ///< The last one in tab order.
    void removeControl(const Control::Impl* control);                  ///< It is gone.
    void setTabIndex(Control::Impl* control, int index);               ///< Its place in the tab order, from 0.
    int tabIndex(Control::Impl* control) const;                        ///< The same.
    void setDefaultButton(QPushButton* button) { default_ = button; }  ///< Answers Enter.
    void setCancelButton(QPushButton* button) { cancel_ = button; }    ///< Answers Escape.

    /// Its toolbar's own keys: takes a key before the form's handlers, or returns false. Empty without a toolbar.
    std::function<bool(const QKeyEvent& event, bool repeat)> takeToolKey;
    QWidget* keyTarget() const;  ///< The widget to which the form's keys go: one on it, or itself.
    bool toolsHaveKeys() const;  ///< Whether that is a tool button.
    void takeKeysBack();         ///< From a tool button, if one has them.
    Control::Impl* controlOf(const QWidget* face) const;  ///< The form's control with that face; null if it is none.
    Control::Impl* focusedControl() const;                ///< The control to which they go; null if it is none.
    bool meansEnterAt(const QPoint& at);  ///< Tells the form where the pointer is; whether Enter means something there.
    bool pressesButtonFor(
        const Stroke& stroke);  ///< Whether a button answers the key for the whole form; it is pressed.
    void followFocus();         ///< Tells the controls when the focus has gone from one to another.

  protected:
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    bool load();
    void leave();
    void focusFirst();
    void nameFields() const;

    Changes::Moment shown_ = 0;
    bool unloading_ = false;
    QEventLoop* loop_ = nullptr;            // waits for the unload of a dialog
    std::vector<Control::Impl*> controls_;  // in tab order
    Control::Impl* focused_ = nullptr;      // as its handlers were told last
    QPointer<QPushButton> default_;
    QPointer<QPushButton> cancel_;
};

/// Where the top left corner of a window of that height may stand, under its title bar: on the screen, the title bar
/// too, or half of it where the window wouldn't be seen whole otherwise. All in pixels.
QPoint onScreen(const QPoint& wanted, int height, const QRect& screen, int titleBar);

/// The form that the face of a control lies on; it must lie on one.
FormWindow* formWindowOf(const QWidget* face);

}  // namespace platform::qt
