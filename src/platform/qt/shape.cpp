#include "platform/qt/control.h"

namespace platform {
namespace {

void show(const Shape::Impl& shape) {
    if (shape.window && shape.visible)
        shape.window->update(shape.place.left, shape.place.top, shape.place.width, shape.place.height);
}

/// Changes the shape and has both the old and the new rectangle painted anew.
template <class Change>
void change(Shape::Impl& shape, Change&& body) {
    show(shape);
    const bool wasVisible = shape.visible;
    body();
    if (wasVisible || shape.visible) show(shape);
}

}  // namespace

Shape::Shape(Form& form) : impl_(std::make_unique<Impl>()) {
    impl_->window = qt::windowOf(form);
    impl_->window->shapes.push_back(impl_.get());
}

Shape::~Shape() {
    if (impl_->window) std::erase(impl_->window->shapes, impl_.get());
}

void Shape::setBorder(int width, Color color) {
    change(*impl_, [&] {
        impl_->border = width;
        impl_->color = color;
    });
}

int Shape::borderWidth() const { return impl_->border; }

Color Shape::borderColor() const { return impl_->color; }

void Shape::setPlace(const Place& place) {
    change(*impl_, [&] { impl_->place = place; });
}

Place Shape::place() const { return impl_->place; }

void Shape::setVisible(bool visible) {
    if (visible == impl_->visible) return;
    change(*impl_, [&] { impl_->visible = visible; });
}

bool Shape::visible() const { return impl_->visible; }

}  // namespace platform
