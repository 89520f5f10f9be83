#pragma once

#include <memory>

/// A form's one reference: the object is made at first use and lives as long as someone holds it.
template <class FormObject>
class FormRef {
  public:
    FormObject* operator->() { return hold().get(); }

    std::shared_ptr<FormObject> hold() {
        if (!object_) object_ = std::make_shared<FormObject>();
        return object_;
    }

    /// Shows the form and returns when it has been unloaded; its object outlives the show even if it let go of itself.
    void showModal() {
        const auto held = hold();
        held->form.showModal();
    }

    bool empty() const { return !object_; }
    bool isOpen() const { return object_ && object_->form.loaded(); }  ///< The form is on the screen.

    /// Empties the reference; the object dies here unless it is held elsewhere.
    void clear() {
        const auto last = std::move(object_);
        object_.reset();
    }

  private:
    std::shared_ptr<FormObject> object_;
};
