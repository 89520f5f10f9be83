#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>

#include "platform/controls.h"
#include "platform/qt/formWindow.h"
#include "platform/qt/keys.h"
#include "platform/qt/slots.h"

namespace platform::qt {

/// The window of a form.
FormWindow* windowOf(Form& form);

/// The face of a control that can have the form's focus.
class Control : public QWidget {
  public:
    Control(QWidget* parent, const Place& place);

    virtual bool stroke(const Stroke& stroke) = 0;    ///< A key for the focused control; false if it has no use.
    virtual void answer(const Stroke& /*stroke*/) {}  ///< The key that it answers for the whole form.
    virtual void retire() { formWindowOf(this)->removeControl(this); }  ///< Its owner is gone.

  protected:
    bool focused() const;
    void takeFocus();
};

/// The same with its owner, whose handlers it calls.
template <class Owner>
class OwnedControl : public Control {
  public:
    OwnedControl(QWidget* parent, const Place& place, Owner& owner) : Control(parent, place), owner_(&owner) {}

    void retire() override {
        owner_ = nullptr;
        Control::retire();
    }

  protected:
    void call(std::function<void()> Owner::*handler) {
        if (owner_ != nullptr) callSlot(owner_->*handler);
    }

  private:
    Owner* owner_;
};

/// Owns a control's face, which goes a little later: one of its own handlers may still be running.
template <class Face>
class FaceHolder {
  public:
    explicit FaceHolder(Face* face) : face_(face) {
        if (face->parentWidget()->isVisible()) face->show();
    }
    ~FaceHolder() {
        if (!face_) return;
        face_->retire();
        face_->hide();
        face_->deleteLater();
    }
    FaceHolder(const FaceHolder&) = delete;
    FaceHolder& operator=(const FaceHolder&) = delete;

    Face* operator->() const { return face_.data(); }
    Face* get() const { return face_.data(); }

  private:
    QPointer<Face> face_;  // Null when the form took it along.
};

/// Gives the widget its place on its parent.
void setPlace(QWidget& widget, const Place& place);

}  // namespace platform::qt

namespace platform {

struct Panel::Impl {
    Impl(QWidget* parent, const Place& place);

    class Face;
    qt::FaceHolder<Face> face;

    QWidget* widget() const;
};

}  // namespace platform
