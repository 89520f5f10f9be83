#pragma once

#include <QPointer>
#include <QWidget>
#include <vector>

#include "platform/controls.h"
#include "platform/form.h"
#include "platform/qt/keys.h"

class QEventLoop;

namespace platform {

namespace qt {
class FormWindow;
}

struct Shape::Impl {
    QPointer<qt::FormWindow> window;
    Place place;
    int border = 1;
    Color color = 0;
    bool visible = false;
};

}  // namespace platform

namespace platform::qt {

class Control;

/// A form on the screen. It goes a little later than its Form, so that a form can be let go in its own handlers.
class FormWindow : public QWidget {
  public:
    explicit FormWindow(Form& owner);

    Form* form;  ///< Null when the form is gone.
    Surface surface;
    double left = 0;  ///< Twips.
    double top = 0;   ///< Twips.
    bool loaded = false;
    std::vector<const Shape::Impl*> shapes;

    void fitToSurface();  ///< Gives the window the surface's size.
    void place();         ///< Puts the window where left and top say.
    void showAsMain();
    void runAsDialog();  ///< Returns when the form has been unloaded.
    void unload();
    void retire();  ///< The form is gone: leaves the screen at once and the memory later.

    void addControl(Control* control);
    void removeControl(Control* control);
    void focusOn(Control* control);
    bool hasFocusOn(const Control* control) const { return control == focused_; }
    void setDefaultControl(Control* control) { default_ = control; }
    void setCancelControl(Control* control) { cancel_ = control; }
    Control* defaultControl() const { return default_; }
    Control* cancelControl() const { return cancel_; }
    void strokeControls(const Stroke& stroke);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    bool load();
    void leave();
    void moveFocus(int step);

    bool unloading_ = false;
    QEventLoop* loop_ = nullptr;      // waits for the unload of a dialog
    std::vector<Control*> controls_;  // those that take the focus, in the order of their making
    Control* focused_ = nullptr;
    Control* default_ = nullptr;
    Control* cancel_ = nullptr;
};

/// The form that the face of a control lies on.
FormWindow* formWindowOf(const QWidget* face);

}  // namespace platform::qt
