#include <algorithm>
#include <cmath>
#include <iomanip>
#include <sstream>
#include <utility>

#include "platform/fields.h"
#include "platform/sim/state.h"
#include "platform/tabOrder.h"
#include "platform/text.h"
#include "platform/utf8.h"

namespace sim {
namespace {

using Kind = Control::Kind;

void setValue(Control& control, bool value) {
    if (value && control.kind == Kind::Option && control.form != nullptr)
        for (Control* other : control.form->controls)
            if (other->kind == Kind::Option) other->value = false;
    control.value = value;
}

void focusOn(platform::Form::Impl& form, Control& control) {
    if (form.focus == &control || !control.enabled) return;
    Control* const before = std::exchange(form.focus, &control);
    if (before != nullptr) deliver(before->owner.onValidate);
    deliver(control.owner.onGotFocus);
}

void append(Control& field, int character) {
    const bool hasRoom = field.maxLength == 0 || static_cast<int>(field.text.size()) < field.maxLength;
    if (field.kind == Kind::Text && character >= platform::key::Space && hasRoom)
        platform::appendCharacter(field.text, static_cast<char32_t>(character));
}

std::string nameOf(platform::Bevel bevel) {
    return bevel == platform::Bevel::None ? "flat" : bevel == platform::Bevel::Inset ? "inset" : "raised";
}

std::string nameOf(platform::Align align) {
    return align == platform::Align::Left ? "left" : align == platform::Align::Right ? "right" : "centre";
}

/// Writes what all controls have: place, caption and font.
std::ostream& writeBasics(std::ostream& line, const platform::Place& place, const std::string& caption,
                          const platform::Font& font) {
    return line << place.left << ',' << place.top << ' ' << place.width << 'x' << place.height << " '" << caption
                << "' " << font.name << ' ' << font.points << (font.bold ? " bold" : "");
}

std::string lineOf(const platform::Panel::Impl& panel) {
    std::ostringstream line;
    const platform::PanelLook& look = panel.look;
    writeBasics(line, panel.place, panel.caption, panel.font);
    line << ' ' << nameOf(look.align) << ' ' << nameOf(look.outer) << ' ' << nameOf(look.inner) << ' '
         << look.bevelWidth << std::hex << std::uppercase << std::setfill('0') << ' ' << std::setw(6) << look.fore
         << " on " << std::setw(6) << look.back;
    return line.str();
}

}  // namespace

std::vector<std::string> layout() {
    std::vector<std::string> lines;
    const platform::Form::Impl* const form = openForm(taker());
    if (form == nullptr) return lines;
    for (const auto* panel : form->panels) lines.push_back(lineOf(*panel));
    for (const Control* control : form->controls) {
        std::ostringstream line;
        writeBasics(line, control->place, control->caption, control->font);
        lines.push_back(line.str());
    }
    return lines;
}

void focusFirst(platform::Form::Impl& form) {
    if (form.focus == nullptr && !form.controls.empty()) focusOn(form, *form.controls.front());
}

void pressOnControls(platform::Form::Impl& form, Stroke stroke) {
    const Serial serial = form.serial;
    if (form.focus != nullptr && stroke.character != 0) {
        deliver(form.focus->owner.onKeyPress, stroke.character);
        if (stroke.character == 0 || taker() != serial) return;
        append(*form.focus, stroke.character);
    }
    const auto answering =
        std::ranges::find(form.controls, stroke.code, [](auto* control) { return control->answers; });
    if (!stroke.repeat && answering != form.controls.end()) press((*answering)->owner);
}

void press(const platform::Control& control) {
    arrive();
    Control& pressed = control.impl();
    if (!pressed.enabled || pressed.form == nullptr || taker() != pressed.form->serial) return;
    focusOn(*pressed.form, pressed);
    if (pressed.kind == Kind::Check || pressed.kind == Kind::Option)
        setValue(pressed, pressed.kind == Kind::Option || !pressed.value);
    note("press", pressed.caption);
    if (pressed.onPress != nullptr) deliver(*pressed.onPress);
}

}  // namespace sim

namespace platform {
namespace {

constexpr double lineHeightPerPoint = 1.5;  // pixels

/// How many lines a caption takes in that width, broken at blanks.
int linesOf(const std::string& caption, const Font& font, int width) {
    int lines = 1;
    std::string line;
    for (size_t start = 0; start < caption.size();) {
        const size_t end = std::min(caption.find(' ', start), caption.size() - 1) + 1;
        const std::string word = caption.substr(start, end - start);
        const std::string seen = word.back() == ' ' ? word.substr(0, word.size() - 1) : word;
        if (!line.empty() && measureText(line + seen, font) > width) {
            ++lines;
            line.clear();
        }
        line += word;
        start = end;
    }
    return lines;
}

}  // namespace

struct Shape::Impl {};

Shape::Shape(Form& /*form*/) {}
Shape::~Shape() = default;

void Shape::present() {
    if (visible_) sim::note("frame", place_.left, place_.top, place_.width, place_.height);
}

struct Label::Impl {
    std::string text;
};

Label::Label(Form& /*form*/, const Place& /*place*/) : impl_(std::make_unique<Impl>()) {}
Label::~Label() = default;
void Label::setLook(const Font& /*font*/, Color /*color*/) {}
void Label::setText(const std::string& text) { impl_->text = text; }
std::string Label::text() const { return impl_->text; }

Panel::Impl::Impl(Form::Impl* itsForm, const Place& itsPlace) : form(itsForm), place(itsPlace) {
    form->panels.push_back(this);
}

Panel::Impl::~Impl() {
    if (form != nullptr) std::erase(form->panels, this);
}

void Panel::Impl::fit() {
    const int bevels =
        ((look.outer != Bevel::None ? 1 : 0) + (look.inner != Bevel::None ? 1 : 0)) * 2 * look.bevelWidth;
    if (look.fit == Fit::Width) place.width = measureText(caption, font) + bevels;
    if (look.fit != Fit::Height) return;
    const int lineHeight = static_cast<int>(std::lround(font.points * lineHeightPerPoint));
    place.height = linesOf(caption, font, place.width - bevels) * lineHeight + bevels;
}

Panel::Panel(Form& form, const Place& place) : impl_(std::make_unique<Impl>(&form.impl(), place)) {}
Panel::Panel(Panel& panel, const Place& place) : impl_(std::make_unique<Impl>(panel.impl_->form, place)) {}
Panel::~Panel() = default;
Panel::Panel(Panel&&) noexcept = default;

void Panel::setLook(const PanelLook& look) {
    impl_->look = look;
    impl_->fit();
}

void Panel::setFont(const Font& font) {
    impl_->font = font;
    impl_->fit();
}

void Panel::setCaption(const std::string& text) {
    impl_->caption = text;
    impl_->fit();
    sim::note("caption", text);
}

std::string Panel::caption() const { return impl_->caption; }
Place Panel::place() const { return impl_->place; }

Control::Control(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}
Control::~Control() = default;

Control::Impl::Impl(Control& control, Kind kindOfControl, const Panel::Impl& holder, const Place& itsPlace)
    : owner(control), kind(kindOfControl), form(holder.form), place(itsPlace) {
    form->controls.push_back(this);
}

Control::Impl::~Impl() {
    if (form == nullptr) return;
    std::erase(form->controls, this);
    if (form->focus == this) form->focus = nullptr;
}

void Control::setFont(const Font& font) { impl_->font = font; }
void Control::setAccessibleName(const std::string& /*name*/) {}
void Control::setTabStop(bool /*tabStop*/) {}
bool Control::enabled() const { return impl_->enabled; }
bool Control::hasFocus() const { return impl_->form != nullptr && impl_->form->focus == impl_.get(); }
int Control::tabIndex() const { return impl_->form != nullptr ? positionOf(impl_->form->controls, impl_.get()) : 0; }

void Control::setEnabled(bool enabled) {
    impl_->enabled = enabled;
    if (!enabled && hasFocus()) impl_->form->focus = nullptr;
}

void Control::setFocus() {
    if (impl_->form != nullptr) sim::focusOn(*impl_->form, *impl_);
}

void Control::setTabIndex(int index) {
    if (impl_->form != nullptr) moveTo(impl_->form->controls, impl_.get(), index);
}

CaptionButton::CaptionButton(std::unique_ptr<Impl> impl) : Control(std::move(impl)) { impl_->onPress = &onClick; }
void CaptionButton::setCaption(const std::string& text) { impl_->caption = text; }

CommandButton::CommandButton(Panel& panel, const Place& place)
    : CaptionButton(std::make_unique<Impl>(*this, Impl::Kind::Other, panel.impl(), place)) {}
void CommandButton::makeDefault() { impl_->answers = key::Enter; }
void CommandButton::makeCancel() { impl_->answers = key::Escape; }

SpinButton::SpinButton(Panel& panel, const Place& place)
    : Control(std::make_unique<Impl>(*this, Impl::Kind::Other, panel.impl(), place)) {}
SpinButton::~SpinButton() = default;

std::string EditField::text() const { return impl_->text; }
void EditField::select(int /*selStart*/, int /*selLength*/) {}

TextBox::TextBox(Panel& panel, const Place& place)
    : EditField(std::make_unique<Impl>(*this, Impl::Kind::Text, panel.impl(), place)) {}
void TextBox::setText(const std::string& text) { impl_->text = text; }
void TextBox::setMaxLength(int characters) { impl_->maxLength = characters; }
void TextBox::setAlign(Align /*align*/) {}

MaskEdBox::MaskEdBox(Panel& panel, const Place& place, const std::string& mask)
    : EditField(std::make_unique<Impl>(*this, Impl::Kind::Other, panel.impl(), place)) {
    impl_->text.assign(mask.size(), ' ');
}
void MaskEdBox::clear() {}

ComboBox::ComboBox(Panel& panel, const Place& place)
    : Control(std::make_unique<Impl>(*this, Impl::Kind::Other, panel.impl(), place)) {}
void ComboBox::clear() {}
void ComboBox::addItem(const std::string& /*text*/) {}
std::string ComboBox::text() const { return impl_->text; }

CheckBox::CheckBox(Panel& panel, const Place& place)
    : CaptionButton(std::make_unique<Impl>(*this, Impl::Kind::Check, panel.impl(), place)) {}
void CheckBox::setValue(bool ticked) { sim::setValue(*impl_, ticked); }
bool CheckBox::value() const { return impl_->value; }

OptionButton::OptionButton(Panel& panel, const Place& place)
    : CaptionButton(std::make_unique<Impl>(*this, Impl::Kind::Option, panel.impl(), place)) {}
void OptionButton::setValue(bool chosen) { sim::setValue(*impl_, chosen); }
bool OptionButton::value() const { return impl_->value; }

void sendTab() {
    sim::post([] { sim::pressKey(key::Tab); });
}

}  // namespace platform
