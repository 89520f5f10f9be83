#include "platform/controls.h"

#include <algorithm>
#include <iomanip>
#include <sstream>

#include "platform/sim/state.h"
#include "platform/tabOrder.h"

namespace sim {
namespace {

using Kind = Control::Kind;
using Controls = std::vector<Control*>;

template <class Condition>
Control* firstOf(const Controls& controls, Condition condition) {
    const auto found = std::find_if(controls.begin(), controls.end(), condition);
    return found == controls.end() ? nullptr : *found;
}

bool canHaveFocus(const Control* control) { return control->enabled; }

/// The control that Tab comes to after this one, or before it; the first or the last if it is null.
Control* neighbour(const Controls& controls, const Control* from, bool back) {
    const int count = static_cast<int>(controls.size());
    const auto at = std::find(controls.begin(), controls.end(), from);
    int position = at != controls.end() ? static_cast<int>(at - controls.begin()) : back ? count : -1;
    for (int tried = 0; tried < count; ++tried) {
        position = (position + (back ? -1 : 1) + count) % count;
        if (controls[static_cast<size_t>(position)]->takesFocus()) return controls[static_cast<size_t>(position)];
    }
    return nullptr;
}

void moveFocus(platform::Form::Impl& form, bool back) {
    Control* const next = neighbour(form.controls, form.focus, back);
    if (next == nullptr) return;
    if (next->kind == Kind::Text) {
        next->selStart = 0;
        next->selLength = next->text.size();
    }
    focusOn(form, *next);
}

bool isOn(const platform::Form::Impl& form, const Control* control) {
    return std::find(form.controls.begin(), form.controls.end(), control) != form.controls.end();
}

/// Presses a control after it has got the focus; nothing if a handler has let go of it or opened another form.
void press(Control* control) {
    if (control == nullptr || !control->enabled) return;
    const Serial serial = control->form->serial;
    focusOn(*control->form, *control);
    if (taker() != serial || !isOn(*openForm(serial), control)) return;
    control->down = false;
    if (control->kind == Kind::Check) control->value = !control->value;
    if (control->kind == Kind::Option) static_cast<platform::OptionButton&>(control->owner).setValue(true);
    note("press", control->shownCaption());
    deliver(*control->onPress);
}

void spin(const std::function<void()>* direction) {
    if (direction != nullptr) deliver(*direction);
}

/// Goes to the option before or behind this one on its panel; if this one was chosen, that one is now.
void moveOption(const Control& from, bool back) {
    Controls group = from.form->controls;
    std::erase_if(group, [&](auto* c) { return c->kind != Kind::Option || c->panel != from.panel || !c->enabled; });
    const int to = platform::positionOf(group, const_cast<Control*>(&from)) + (back ? -1 : 1);
    if (to < 0 || to >= static_cast<int>(group.size())) return;
    Control* const next = group[static_cast<size_t>(to)];
    from.value ? press(next) : focusOn(*next->form, *next);
}

void arrow(Control& control, int code) {
    using namespace platform::key;
    const bool back = code == Up || code == Left;
    const bool upDown = code == Up || code == Down;
    if (control.isPlainButton()) return moveFocus(*control.form, back);
    if (control.kind == Kind::Option) return moveOption(control, back);
    if (control.kind == Kind::Spin && upDown) spin(back ? control.onPress : control.onPressDown);
}

/// Gives the key to the handler of the control; true if it goes on to what the control itself does.
bool passesControl(Control& control, Stroke& stroke) {
    const Serial serial = control.form->serial;
    const int before = stroke.character;
    if (before != 0) deliver(control.owner.onKeyPress, stroke.character);
    if (taker() != serial || !isOn(*openForm(serial), &control)) return false;
    if (stroke.character != before) stroke.typed = static_cast<char32_t>(stroke.character);
    return before == 0 || stroke.character != 0;
}

/// The form on top if a person can click there; null if there is none.
platform::Form::Impl* clickedForm() {
    arrive();
    return openForm(taker());
}

Control* clickedSpin() {
    platform::Form::Impl* const form = clickedForm();
    Control* const found = form != nullptr
                               ? firstOf(form->controls, [](auto* c) { return c->kind == Kind::Spin && c->enabled; })
                               : nullptr;
    if (found != nullptr) focusOn(*form, *found);
    return found;
}

void pressAny(Control* control) {
    if (control != nullptr && control->isPressed()) press(control);
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

void focusOn(platform::Form::Impl& form, Control& control) {
    if (form.focus == &control || !canHaveFocus(&control)) return;
    const Serial serial = form.serial;
    Control* const before = std::exchange(form.focus, &control);
    if (before != nullptr) {
        before->down = false;
        deliver(before->owner.onValidate);
    }
    const platform::Form::Impl* const still = openForm(serial);
    if (still != nullptr && still->focus == &control) deliver(control.owner.onGotFocus);
}

void focusFirst(platform::Form::Impl& form) {
    if (form.focus == nullptr) moveFocus(form, false);
}

void pressOnControls(platform::Form::Impl& form, Stroke stroke) {
    using namespace platform::key;
    focusFirst(form);
    Control* const focus = form.focus;
    if (focus != nullptr && !passesControl(*focus, stroke)) return;
    const auto pressOnce = [&](Control* button) {
        if (!stroke.repeat) press(button);
    };
    switch (stroke.code) {
        case Tab:
            return moveFocus(form, stroke.shift);
        case Enter:
            return pressOnce(focus != nullptr && focus->kind == Kind::Button
                                 ? focus
                                 : firstOf(form.controls, [](auto* c) { return c->isDefault; }));
        case Escape:
            return pressOnce(firstOf(form.controls, [](auto* c) { return c->isCancel; }));
        default:
            break;
    }
    if (focus == nullptr) return;
    if (stroke.code >= Left && stroke.code <= Down) arrow(*focus, stroke.code);
    if (focus->kind == Kind::Spin && (stroke.code == Pad8 || stroke.code == Pad2))
        return spin(stroke.code == Pad8 ? focus->onPress : focus->onPressDown);
    if (stroke.code == Space && focus->isPressed()) focus->down = focus->down || !stroke.repeat;
    if (isOn(form, focus)) typeInto(*focus, stroke);
}

void releaseOnControls(platform::Form::Impl& form, int keyCode) {
    const Serial serial = form.serial;
    Control* const focus = form.focus;
    if (focus == nullptr) return;
    if (keyCode == platform::key::Space && focus->down) press(focus);
    const platform::Form::Impl* const still = openForm(serial);
    if (taker() == serial && isOn(*still, focus)) deliver(focus->owner.onKeyUp, keyCode);
}

void click(const platform::Control& control) {
    platform::Form::Impl* const form = clickedForm();
    Control& clicked = control.impl();
    if (form == nullptr || clicked.form != form || !clicked.enabled) return;
    focusOn(*form, clicked);
    clicked.selStart = clicked.text.size();
    clicked.selLength = 0;
    pressAny(&clicked);
}

void clickButton(const std::string& caption) {
    if (const auto* const form = clickedForm())
        pressAny(firstOf(form->controls, [&](auto* c) { return c->isPressed() && c->shownCaption() == caption; }));
}

void pressAccessKey(char letter) {
    if (const auto* const form = clickedForm())
        pressAny(firstOf(form->controls, [&](auto* c) { return c->accessKey() == letter; }));
}

void clickSpinUp() {
    if (const Control* control = clickedSpin()) spin(control->onPress);
}

void clickSpinDown() {
    if (const Control* control = clickedSpin()) spin(control->onPressDown);
}

}  // namespace sim

namespace platform {

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
    : owner(control), kind(kindOfControl), form(holder.form), panel(&holder), place(itsPlace) {
    form->controls.push_back(this);
}

Control::Impl::~Impl() {
    if (form == nullptr) return;
    std::erase(form->controls, this);
    if (form->focus == this) form->focus = nullptr;
}

bool Control::Impl::takesFocus() const { return enabled && tabStop; }

char Control::Impl::accessKey() const {
    const size_t mark = caption.find('&');
    if (mark == std::string::npos || mark + 1 == caption.size()) return 0;
    const char letter = caption[mark + 1];
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

std::string Control::Impl::shownCaption() const {
    std::string shown = caption;
    std::erase(shown, '&');
    return shown;
}

void Control::setFont(const Font& font) { impl_->font = font; }

void Control::setEnabled(bool enabled) {
    impl_->enabled = enabled;
    if (enabled || impl_->form == nullptr || impl_->form->focus != impl_.get()) return;
    if (sim::Control* const next = sim::neighbour(impl_->form->controls, impl_.get(), false))
        sim::focusOn(*impl_->form, *next);
    else
        impl_->form->focus = nullptr;
}

bool Control::enabled() const { return impl_->enabled; }

void Control::setFocus() {
    if (impl_->form != nullptr) sim::focusOn(*impl_->form, *impl_);
}

bool Control::hasFocus() const { return impl_->form != nullptr && impl_->form->focus == impl_.get(); }

void Control::setTabIndex(int index) {
    if (impl_->form != nullptr) moveTo(impl_->form->controls, impl_.get(), index);
}

int Control::tabIndex() const { return impl_->form != nullptr ? positionOf(impl_->form->controls, impl_.get()) : 0; }
void Control::setTabStop(bool tabStop) { impl_->tabStop = tabStop; }
bool Control::tabStop() const { return impl_->tabStop; }
void Control::setAccessibleName(const std::string& /*name*/) {}

CaptionButton::CaptionButton(std::unique_ptr<Impl> impl) : Control(std::move(impl)) { impl_->onPress = &onClick; }

void CaptionButton::setCaption(const std::string& text) { impl_->caption = text; }

CommandButton::CommandButton(Panel& panel, const Place& place)
    : CaptionButton(std::make_unique<Impl>(*this, Impl::Kind::Button, panel.impl(), place)) {}

void CommandButton::makeDefault() { impl_->isDefault = true; }
void CommandButton::makeCancel() { impl_->isCancel = true; }

SpinButton::SpinButton(Panel& panel, const Place& place)
    : Control(std::make_unique<Impl>(*this, Impl::Kind::Spin, panel.impl(), place)) {
    impl_->onPress = &onSpinUp;
    impl_->onPressDown = &onSpinDown;
}
SpinButton::~SpinButton() = default;

}  // namespace platform
