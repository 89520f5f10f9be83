#include "platform/controls.h"

#include <algorithm>

#include "platform/sim/state.h"

namespace sim {
namespace {

using Controls = std::vector<Control*>;

template <class Condition>
Control* firstOf(const Controls& controls, Condition condition) {
    const auto found = std::find_if(controls.begin(), controls.end(), condition);
    return found == controls.end() ? nullptr : *found;
}

Control* focusOf(const platform::Form::Impl& form) {
    return form.focus != nullptr ? form.focus : firstOf(form.controls, [](auto* c) { return c->takesFocus(); });
}

void moveFocus(platform::Form::Impl& form) {
    const auto at = std::find(form.controls.begin(), form.controls.end(), focusOf(form));
    if (at == form.controls.end()) return;
    auto next = std::find_if(at + 1, form.controls.end(), [](auto* c) { return c->takesFocus(); });
    form.focus = next != form.controls.end() ? *next : nullptr;
}

void press(const Control* button) {
    if (button == nullptr) return;
    note("press", button->caption);
    deliver(*button->onPress);
}

void spin(const std::function<void()>* direction) {
    if (direction != nullptr) deliver(*direction);
}

/// The first control of the form on top that a person's click may be meant for; null if a click does nothing there.
template <class Condition>
Control* clicked(Condition condition) {
    arrive();
    platform::Form::Impl* form = openForm(taker());
    Control* const control = form != nullptr ? firstOf(form->controls, condition) : nullptr;
    if (control != nullptr) form->focus = control;
    return control;
}

Control* clickedSpin() {
    return clicked([](auto* c) { return c->kind == Control::Kind::Spin; });
}

platform::Place onForm(const Control& holder, const platform::Place& place) {
    return {holder.place.left + place.left, holder.place.top + place.top, place.width, place.height};
}

}  // namespace

Control::Control(Kind kindOfControl, platform::Form::Impl& holder, const platform::Place& onForm)
    : kind(kindOfControl), form(&holder), place(onForm) {
    form->controls.push_back(this);
}

Control::~Control() {
    if (form == nullptr) return;
    std::erase(form->controls, this);
    if (form->focus == this) form->focus = nullptr;
}

void pressOnControls(platform::Form::Impl& form, int keyCode) {
    const Control* const focus = focusOf(form);
    const bool onButton = focus != nullptr && focus->kind == Control::Kind::Button;
    switch (keyCode) {
        case platform::key::Tab:
            return moveFocus(form);
        case platform::key::Space:
            return press(onButton ? focus : nullptr);
        case platform::key::Enter:
            return press(onButton ? focus : firstOf(form.controls, [](auto* c) { return c->isDefault; }));
        case platform::key::Escape:
            return press(firstOf(form.controls, [](auto* c) { return c->isCancel; }));
        case platform::key::Up:
            return spin(onButton || focus == nullptr ? nullptr : focus->onPress);
        case platform::key::Down:
            return spin(focus != nullptr ? focus->onPressDown : nullptr);
        default:
            return;
    }
}

void clickButton(const std::string& caption) {
    press(clicked([&](auto* c) { return c->kind == Control::Kind::Button && c->caption == caption; }));
}

void clickSpinUp() {
    if (const Control* control = clickedSpin()) spin(control->onPress);
}

void clickSpinDown() {
    if (const Control* control = clickedSpin()) spin(control->onPressDown);
}

}  // namespace sim

namespace platform {

struct Shape::Impl {
    Place place;
    int border = 1;  ///< Pixels.
    Color color = 0;
    bool visible = false;

    void noteFrame() const {
        if (visible) sim::note("frame", place.left, place.top, place.width, place.height);
    }
};

struct Panel::Impl : sim::Control {
    Impl(Form::Impl& holder, const Place& onForm) : Control(Kind::Panel, holder, onForm) {}
};

struct CommandButton::Impl : sim::Control {
    Impl(const Control& panel, const Place& inside, const std::function<void()>& onClick)
        : Control(Kind::Button, *panel.form, sim::onForm(panel, inside)) {
        onPress = &onClick;
    }
};

struct SpinButton::Impl : sim::Control {
    Impl(const Control& panel, const Place& inside, const std::function<void()>& up, const std::function<void()>& down)
        : Control(Kind::Spin, *panel.form, sim::onForm(panel, inside)) {
        onPress = &up;
        onPressDown = &down;
    }
};

Shape::Shape(Form& /*form*/) : impl_(std::make_unique<Impl>()) {}
Shape::~Shape() = default;

void Shape::setBorder(int width, Color color) {
    impl_->border = width;
    impl_->color = color;
}

int Shape::borderWidth() const { return impl_->border; }
Color Shape::borderColor() const { return impl_->color; }

void Shape::setPlace(const Place& place) {
    impl_->place = place;
    impl_->noteFrame();
}

Place Shape::place() const { return impl_->place; }

void Shape::setVisible(bool visible) {
    impl_->visible = visible;
    impl_->noteFrame();
}

bool Shape::visible() const { return impl_->visible; }

Panel::Panel(Form& form, const Place& place) : impl_(std::make_unique<Impl>(form.impl(), place)) {}
Panel::Panel(Panel& panel, const Place& place)
    : impl_(std::make_unique<Impl>(*panel.impl_->form, sim::onForm(*panel.impl_, place))) {}
Panel::~Panel() = default;
Panel::Panel(Panel&&) noexcept = default;

void Panel::setLook(const PanelLook& /*look*/) {}
void Panel::setFont(const Font& /*font*/) {}

void Panel::setCaption(const std::string& text) {
    impl_->caption = text;
    sim::note("caption", text);
}

std::string Panel::caption() const { return impl_->caption; }

CommandButton::CommandButton(Panel& panel, const Place& place)
    : impl_(std::make_unique<Impl>(panel.impl(), place, onClick)) {}
CommandButton::~CommandButton() = default;

void CommandButton::setFont(const Font& /*font*/) {}
void CommandButton::setCaption(const std::string& text) { impl_->caption = text; }
void CommandButton::makeDefault() { impl_->isDefault = true; }
void CommandButton::makeCancel() { impl_->isCancel = true; }

SpinButton::SpinButton(Panel& panel, const Place& place)
    : impl_(std::make_unique<Impl>(panel.impl(), place, onSpinUp, onSpinDown)) {}
SpinButton::~SpinButton() = default;

}  // namespace platform
