#include "platform/form.h"

#include "platform/base/uncaught.h"
#include "platform/shared/desk.h"

namespace platform {

void Form::Impl::show(bool asDialog) {
    if (loaded) return;
    const auto held = shared_from_this();
    loaded = true;
    callSlot(form->onLoad);
    if (!loaded) return;
    desk().open(*this, asDialog);
    view.open(asDialog);
    activate();
    if (asDialog && loaded) desk().wait(*this);
}

void Form::Impl::activate() {
    const auto held = shared_from_this();
    if (form != nullptr) callSlot(form->onActivate);
    if (loaded && desk().top() == this) view.focusFirst();
}

void Form::Impl::unload() {
    if (!loaded || unloading) return;
    const auto held = shared_from_this();
    unloading = true;
    if (form != nullptr) callSlot(form->onUnload);
    if (unloading) leave();
}

void Form::Impl::leave() {
    if (!loaded) return;
    loaded = false;
    unloading = false;
    desk().close(*this);
}

Form::Form() : impl_(std::make_shared<Impl>(*this)) {}

Form::~Form() {
    impl_->form = nullptr;
    desk().unloadAbove(*impl_);
    impl_->leave();
    impl_->view.retire();
}

double Form::left() const { return impl_->left; }
double Form::top() const { return impl_->top; }
double Form::width() const { return scaleWidth() * twipsPerPixel; }
double Form::height() const { return scaleHeight() * twipsPerPixel; }
int Form::scaleWidth() const { return impl_->surface.width(); }
int Form::scaleHeight() const { return impl_->surface.height(); }
Surface& Form::surface() { return impl_->surface; }
bool Form::loaded() const { return impl_->loaded; }
bool Form::keyRepeats() const { return desk().keyRepeats(); }

void Form::move(double left, double top) {
    impl_->left = left;
    impl_->top = top;
    impl_->view.place();
}

void Form::resize(double width, double height) {
    impl_->surface.resize(toPixels(width), toPixels(height));
    impl_->view.fitToSurface();
}

void Form::setPicture(const Picture& picture) {
    impl_->surface.setPicture(picture);
    impl_->view.fitToSurface();
}

void Form::setCaption(const std::string& text) { impl_->view.setCaption(text); }
void Form::announce(const std::function<std::string()>& text) { impl_->view.announce(text); }
void Form::refresh() { impl_->view.showChanges(); }

void Form::show() { impl_->show(false); }
void Form::showModal() { impl_->show(true); }
void Form::unload() { impl_->unload(); }

Form* mainForm() { return desk().main() != nullptr ? desk().main()->form : nullptr; }

}  // namespace platform
