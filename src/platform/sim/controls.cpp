#include <algorithm>
#include <utility>

#include "platform/base/text.h"
#include "platform/fields.h"
#include "platform/shared/tabOrder.h"
#include "platform/sim/state.h"

namespace sim {
namespace {

using platform::callSlot;
using Kind = Control::Kind;

void setValue(Control& control, bool value) {
    if (value && control.kind == Kind::Option && control.view != nullptr)
        for (Control* other : control.view->controls)
            if (other->kind == Kind::Option) other->value = false;
    control.value = value;
}

void append(Control& field, int character) {
    const bool hasRoom = field.maxLength == 0 || static_cast<int>(field.text.size()) < field.maxLength;
    if (field.kind == Kind::Text && character >= platform::key::Space && hasRoom)
        field.text += platform::fromCodePage(std::string(1, static_cast<char>(character)));
}

}  // namespace

void View::focusOn(Control& control) {
    if (focus == &control || !control.enabled) return;
    Control* const before = std::exchange(focus, &control);
    if (before != nullptr) callSlot(before->owner.onValidate);
    callSlot(control.owner.onGotFocus);
}

void View::focusFirst() {
    if (focus == nullptr && !controls.empty()) focusOn(*controls.front());
}

void View::pressOnControls(platform::Stroke stroke) {
    if (focus != nullptr && stroke.character != 0) {
        if (!platform::desk().passes(focus->owner.onKeyPress, stroke.character)) return;
        append(*focus, stroke.character);
    }
    const auto answering = std::ranges::find(controls, stroke.code, [](auto* control) { return control->answers; });
    if (!stroke.repeat && answering != controls.end()) press((*answering)->owner);
}

void press(const platform::Control& control) {
    arrive();
    Control& pressed = control.impl();
    if (!pressed.enabled || pressed.view == nullptr || !pressed.view->hasKeys()) return;
    pressed.view->focusOn(pressed);
    if (pressed.kind == Kind::Check || pressed.kind == Kind::Option)
        setValue(pressed, pressed.kind == Kind::Option || !pressed.value);
    note("press", pressed.caption);
    if (pressed.onPress != nullptr) callSlot(*pressed.onPress);
}

}  // namespace sim

namespace platform {

struct Shape::Impl {};

Shape::Shape(Form& /*form*/) {}
Shape::~Shape() = default;

void Shape::show(const Look& look) {
    look_ = look;
    if (look.visible) sim::note("frame", look.place.left, look.place.top, look.place.width, look.place.height);
}

struct Label::Impl {
    std::string text;
};

Label::Label(Form& /*form*/, const Place& /*place*/) : impl_(std::make_unique<Impl>()) {}
Label::~Label() = default;
void Label::setLook(const Font& /*font*/, Color /*color*/) {}
void Label::setText(const std::string& text) { impl_->text = text; }
std::string Label::text() const { return impl_->text; }

Panel::Panel(Form& form, const Place& /*place*/) : impl_(new Impl{sim::viewOf(form), ""}) {}
Panel::Panel(Panel& panel, const Place& /*place*/) : impl_(new Impl{panel.impl_->view, ""}) {}
Panel::~Panel() = default;
Panel::Panel(Panel&&) noexcept = default;

void Panel::setLook(const PanelLook& /*look*/) {}
void Panel::setFont(const Font& /*font*/) {}

void Panel::setCaption(const std::string& text) {
    impl_->caption = text;
    sim::note("caption", text);
}

std::string Panel::caption() const { return impl_->caption; }

Control::Control(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}
Control::~Control() = default;

Control::Impl::Impl(Control& control, const Panel::Impl& holder, Kind kindOfControl)
    : owner(control), kind(kindOfControl), view(&holder.view) {
    view->controls.push_back(this);
}

Control::Impl::~Impl() {
    if (view == nullptr) return;
    std::erase(view->controls, this);
    if (view->focus == this) view->focus = nullptr;
}

void Control::setFont(const Font& /*font*/) {}
void Control::setAccessibleName(const std::string& /*name*/) {}
bool Control::enabled() const { return impl_->enabled; }
bool Control::hasFocus() const { return impl_->view != nullptr && impl_->view->focus == impl_.get(); }
int Control::tabIndex() const { return impl_->view != nullptr ? positionOf(impl_->view->controls, impl_.get()) : 0; }

void Control::setEnabled(bool enabled) {
    impl_->enabled = enabled;
    if (!enabled && hasFocus()) impl_->view->focus = nullptr;
}

void Control::setFocus() {
    if (impl_->view != nullptr) impl_->view->focusOn(*impl_);
}

void Control::setTabIndex(int index) {
    if (impl_->view != nullptr) moveTo(impl_->view->controls, impl_.get(), index);
}

CaptionButton::CaptionButton(std::unique_ptr<Impl> impl) : Control(std::move(impl)) { impl_->onPress = &onClick; }
void CaptionButton::setCaption(const std::string& text) { impl_->caption = text; }

CommandButton::CommandButton(Panel& panel, const Place& /*place*/)
    : CaptionButton(std::make_unique<Impl>(*this, panel.impl())) {}
void CommandButton::makeDefault() { impl_->answers = key::Enter; }
void CommandButton::makeCancel() { impl_->answers = key::Escape; }

SpinButton::SpinButton(Panel& panel, const Place& /*place*/) : Control(std::make_unique<Impl>(*this, panel.impl())) {}

std::string EditField::text() const { return impl_->text; }
void EditField::selectAll() {}

TextBox::TextBox(Panel& panel, const Place& /*place*/)
    : EditField(std::make_unique<Impl>(*this, panel.impl(), Impl::Kind::Text)) {}
void TextBox::setText(const std::string& text) { impl_->text = text; }
void TextBox::setMaxLength(int characters) { impl_->maxLength = characters; }
void TextBox::setAlign(Align /*align*/) {}

MaskEdBox::MaskEdBox(Panel& panel, const Place& /*place*/, int digits)
    : EditField(std::make_unique<Impl>(*this, panel.impl())) {
    impl_->text.assign(static_cast<size_t>(digits), ' ');
}
void MaskEdBox::clear() {}

ComboBox::ComboBox(Panel& panel, const Place& /*place*/) : Control(std::make_unique<Impl>(*this, panel.impl())) {}
void ComboBox::setRows(std::span<const char* const> /*texts*/) {}
std::string ComboBox::text() const { return impl_->text; }

CheckBox::CheckBox(Panel& panel, const Place& /*place*/)
    : CaptionButton(std::make_unique<Impl>(*this, panel.impl(), Impl::Kind::Check)) {}
void CheckBox::setValue(bool ticked) { sim::setValue(*impl_, ticked); }
bool CheckBox::value() const { return impl_->value; }

OptionButton::OptionButton(Panel& panel, const Place& /*place*/)
    : CaptionButton(std::make_unique<Impl>(*this, panel.impl(), Impl::Kind::Option)) {}
void OptionButton::setValue(bool chosen) { sim::setValue(*impl_, chosen); }
bool OptionButton::value() const { return impl_->value; }

void sendTab() {
    sim::post([] { sim::pressKey(key::Tab); });
}

}  // namespace platform
