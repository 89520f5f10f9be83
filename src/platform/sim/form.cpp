#include "platform/form.h"

#include <algorithm>
#include <utility>

#include "platform/sim/state.h"
#include "platform/twips.h"

namespace sim {
namespace {

constexpr int namelessCharacters[] = {8, platform::key::Tab, platform::key::Enter, platform::key::Escape,
                                      platform::key::Space};

/// The character that a key types; 0 if it types none.
int characterOf(int keyCode) {
    if (keyCode >= 'A' && keyCode <= 'Z') return keyCode - 'A' + 'a';
    if (keyCode >= '0' && keyCode <= '9') return keyCode;
    return std::find(std::begin(namelessCharacters), std::end(namelessCharacters), keyCode) !=
                   std::end(namelessCharacters)
               ? keyCode
               : 0;
}

/// Shows a key to one handler of the form; true if the key goes on, that is, neither swallowed nor overtaken by another
/// form.
bool passes(Serial serial, std::function<void(int&)> platform::Form::*handler, int& key) {
    platform::Form::Impl* form = openForm(serial);
    if (form == nullptr) return false;
    deliver(form->owner.*handler, key);
    return key != 0 && taker() == serial;
}

}  // namespace

platform::Form::Impl* openForm(Serial serial) {
    const auto& forms = state().forms;
    const auto found =
        std::find_if(forms.begin(), forms.end(), [&](const auto* form) { return form->serial == serial; });
    return found == forms.end() ? nullptr : *found;
}

Serial taker() {
    const State& d = state();
    if (d.menu != nullptr) return d.menu->serial;
    return d.forms.empty() ? 0 : d.forms.back()->serial;
}

void keyDown(int keyCode) {
    arrive();
    if (keyCode <= 0 || keyCode >= keyCodes) return;
    note("key", keyCode);
    const Serial owner = taker();
    auto& holder = state().held[static_cast<size_t>(keyCode)];
    const bool repeats = holder.has_value();
    if (!holder) holder = owner;
    if (*holder != owner) return;
    int code = keyCode;
    int character = characterOf(keyCode);
    const bool outer = std::exchange(state().keyRepeats, repeats);
    const bool goesOn = passes(owner, &platform::Form::onKeyDown, code);
    state().keyRepeats = outer;
    if (!goesOn) return;
    if (character != 0 && !passes(owner, &platform::Form::onKeyPress, character)) return;
    pressOnControls(*openForm(owner), code);
}

void keyUp(int keyCode) {
    arrive();
    if (keyCode > 0 && keyCode < keyCodes) state().held[static_cast<size_t>(keyCode)].reset();
}

void pressKey(int keyCode) {
    keyUp(keyCode);
    keyDown(keyCode);
    keyUp(keyCode);
}

void closeMainWindow() {
    arrive();
    const auto& forms = state().forms;
    const auto main = std::find_if(forms.begin(), forms.end(), [](const auto* form) { return !form->modal; });
    if (main != forms.end()) (*main)->owner.unload();
}

int modalDepth() {
    const auto& forms = state().forms;
    return static_cast<int>(std::count_if(forms.begin(), forms.end(), [](const auto* form) { return form->modal; }));
}

}  // namespace sim

namespace platform {

Form::Impl::~Impl() {
    close();
    for (sim::Control* control : controls) control->form = nullptr;
}

void Form::Impl::open(bool asModal) {
    modal = asModal;
    focus = nullptr;
    sim::state().forms.push_back(this);
    const sim::Serial self = serial;
    sim::deliver(owner.onLoad);
    if (sim::openForm(self) != nullptr) sim::note("form opens");
}

void Form::Impl::close() {
    if (std::erase(sim::state().forms, this) > 0) sim::note("form closes");
    unloading = false;
}

Form::Form() : impl_(std::make_unique<Impl>(*this)) {}
Form::~Form() = default;

double Form::left() const { return impl_->left; }
double Form::top() const { return impl_->top; }
double Form::width() const { return scaleWidth() * twipsPerPixel; }
double Form::height() const { return scaleHeight() * twipsPerPixel; }
int Form::scaleWidth() const { return impl_->surface.width(); }
int Form::scaleHeight() const { return impl_->surface.height(); }
Surface& Form::surface() { return impl_->surface; }
bool Form::loaded() const { return sim::openForm(impl_->serial) != nullptr; }
bool Form::keyRepeats() const { return sim::state().keyRepeats; }

void Form::move(double left, double top) {
    impl_->left = left;
    impl_->top = top;
}

void Form::resize(double width, double height) { impl_->surface.resize(toPixels(width), toPixels(height)); }
void Form::setPicture(const Picture& picture) { impl_->surface.setPicture(picture); }
void Form::setCaption(const std::string& text) { sim::note("title", text); }
void Form::refresh() { sim::note("show"); }

void Form::show() {
    if (!loaded()) impl_->open(false);
}

void Form::showModal() {
    if (loaded()) return;
    const sim::Serial self = impl_->serial;
    impl_->open(true);
    sim::serveWhile([&] { return sim::openForm(self) != nullptr; });
}

void Form::unload() {
    if (!loaded() || impl_->unloading) return;
    impl_->unloading = true;
    const sim::Serial self = impl_->serial;
    sim::deliver(onUnload);
    if (Impl* still = sim::openForm(self)) still->close();
}

}  // namespace platform
