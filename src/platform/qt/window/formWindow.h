#pragma once

#include <QPointer>
#include <QPushButton>
#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

#include "platform/controls.h"
#include "platform/qt/window/keys.h"
#include "platform/shared/desk.h"

class QEventLoop;

namespace platform::qt {

class Frame;

/// A form on the screen. It is deleted later than its Form, by deleteLater(), so that a form can be let go in its own
/// handlers.
class FormWindow : public QWidget, public FormView {
  public:
    explicit FormWindow(Form& owner);  ///< Not on the screen and without a size.
    ~FormWindow() override;

    Frame* frame() const { return frame_.get(); }  ///< The main window around the main form; null for a dialog.

    Form* form;  ///< Null when the form is gone.

    void fitToSurface() override;
    void place() override;
    void showChanges() override;
    void setCaption(const std::string& text) override;
    void announce(const std::function<std::string()>& text) override;
    void open(bool asDialog) override;
    void focusFirst() override;
    void wait() override;
    void leave() override;
    void retire() override;

    void addControl(Control::Impl* control);                           ///< The last one in tab order.
    void removeControl(const Control::Impl* control);                  ///< It is gone.
    void setTabIndex(Control::Impl* control, int index);               ///< Its place in the tab order, from 0.
    int tabIndex(Control::Impl* control) const;                        ///< The same.
    void setDefaultButton(QPushButton* button) { default_ = button; }  ///< Answers Enter.
    void setCancelButton(QPushButton* button) { cancel_ = button; }    ///< Answers Escape.

    /// Its toolbar's own keys: takes a key before the form's handlers, or returns false. Empty without a toolbar.
    std::function<bool(const QKeyEvent& event, bool repeat)> takeToolKey;
    QWidget* keyTarget() const;  ///< The widget to which the form's keys go: one on it, or itself.
    bool toolsHaveKeys() const;  ///< Whether a tool button gets the form's keys.
    void takeKeysBack();         ///< From a tool button, if one has them.
    Control::Impl* controlOf(const QWidget* face) const;  ///< The form's control with that face; null if it is none.
    Control::Impl* focusedControl() const;                ///< The one to which its keys go; null if it is none.
    bool pressesButtonFor(const Stroke& stroke);          ///< Whether the form's buttons take the key; presses one.
    void followFocus();                                   ///< Tells the controls where the focus has gone.

  protected:
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    void openAsMain();
    void openAsDialog();

    std::unique_ptr<Frame> frame_;  // while it is open as the main form
    Changes::Moment shown_ = 0;
    QPointer<QEventLoop> loop_;             // waits for the unload of a dialog
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

/// The window of a form.
FormWindow* windowOf(Form& form);

}  // namespace platform::qt
