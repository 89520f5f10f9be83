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

/// A frame as its form's window paints it.
struct Shape::Impl {
    QPointer<qt::FormWindow> window;  ///< Null once the form is gone.
    Place place;
    int border = 1;  ///< Pixels.
    Color color = 0;
    bool visible = false;
};

}  // namespace platform

namespace platform::qt {

class Control;

/// A form on the screen. It goes a little later than its Form, so that a form can be let go in its own handlers.
class FormWindow : public QWidget {
  public:
    explicit FormWindow(Form& owner);  ///< Not on the screen and without a size.

    Form* form;                              ///< Null when the form is gone.
    Surface surface;                         ///< What it shows under its shapes and controls.
    double left = 0;                         ///< Twips.
    double top = 0;                          ///< Twips.
    bool loaded = false;                     ///< From before onLoad to after onUnload.
    std::vector<const Shape::Impl*> shapes;  ///< In the order of their making, the last one on top.

    void fitToSurface();  ///< Gives the window the surface's size.
    void showChanges();   ///< Has what was drawn on the surface since the last time painted on the screen.
    void place();         ///< Puts the window where left and top say.
    void showAsMain();    ///< Loads the form and shows it as the main window. Nothing if it is loaded.
    void runAsDialog();   ///< Loads the form, shows it and returns when it has been unloaded. Nothing if it is loaded.
    void unload();        ///< Unloads the dialogs over it, then the form. Nothing if it isn't loaded.
    void retire();        ///< The form is gone: leaves the screen at once and the memory later.

    void addControl(Control* control);     ///< The next one that Tab comes to.
    void removeControl(Control* control);  ///< Also from the focus and from its roles.
    void focusOn(Control* control);        ///< One of those added.
    bool hasFocusOn(const Control* control) const { return control == focused_; }
    void setDefaultControl(Control* control) { default_ = control; }  ///< Answers Enter.
    void setCancelControl(Control* control) { cancel_ = control; }    ///< Answers Escape.
    Control* defaultControl() const { return default_; }              ///< Null if none is.
    void strokeControls(const Stroke& stroke);                        ///< Gives the key to the control it is meant for.

  protected:
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    bool load();
    void leave();
    void moveFocus(int step);

    Changes::Moment shown_ = 0;
    bool unloading_ = false;
    QEventLoop* loop_ = nullptr;      // waits for the unload of a dialog
    std::vector<Control*> controls_;  // those that take the focus, in the order of their making
    Control* focused_ = nullptr;
    Control* default_ = nullptr;
    Control* cancel_ = nullptr;
};

/// The form that the face of a control lies on; it must lie on one.
FormWindow* formWindowOf(const QWidget* face);

}  // namespace platform::qt
