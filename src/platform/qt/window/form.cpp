#include "platform/form.h"

#include "platform/qt/window/accessible.h"
#include "platform/qt/window/formStack.h"
#include "platform/qt/window/formWindow.h"
#include "platform/shared/twips.h"

namespace platform {

using qt::FormWindow;

struct Form::Impl {
    FormWindow* window;
};

namespace qt {

FormWindow* windowOf(Form& form) { return form.impl().window; }

}  // namespace qt

Form::Form() : impl_(new Impl{new FormWindow(*this)}) {}

Form::~Form() { impl_->window->retire(); }

double Form::left() const { return impl_->window->left; }
double Form::top() const { return impl_->window->top; }
double Form::width() const { return scaleWidth() * twipsPerPixel; }
double Form::height() const { return scaleHeight() * twipsPerPixel; }

void Form::move(double left, double top) {
    impl_->window->left = left;
    impl_->window->top = top;
    impl_->window->place();
}

void Form::resize(double width, double height) {
    impl_->window->surface.resize(toPixels(width), toPixels(height));
    impl_->window->fitToSurface();
}

int Form::scaleWidth() const { return impl_->window->surface.width(); }
int Form::scaleHeight() const { return impl_->window->surface.height(); }

void Form::setPicture(const Picture& picture) {
    impl_->window->surface.setPicture(picture);
    impl_->window->fitToSurface();
}

void Form::setCaption(const std::string& text) { impl_->window->setWindowTitle(QString::fromStdString(text)); }

void Form::announce(const std::function<std::string()>& text) {
    if (qt::isListenedTo()) impl_->window->announce(QString::fromStdString(text()));
}

Surface& Form::surface() { return impl_->window->surface; }
void Form::refresh() { impl_->window->showChanges(); }

void Form::show() { impl_->window->showAsMain(); }
void Form::showModal() { impl_->window->runAsDialog(); }
void Form::unload() { impl_->window->unload(); }
bool Form::loaded() const { return impl_->window->loaded; }
bool Form::keyRepeats() const { return qt::formStack().keyRepeats(); }

Form* mainForm() {
    const FormWindow* const window = qt::formStack().mainWindow();
    return window != nullptr ? window->form : nullptr;
}

}  // namespace platform
