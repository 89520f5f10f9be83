#include "platform/form.h"

#include <algorithm>
#include <utility>

#include "platform/base/utf8.h"
#include "platform/shared/ticks.h"
#include "platform/shared/twips.h"
#include "platform/sim/state.h"

namespace sim {
namespace {

constexpr int typedKey = 255;          // none of those that forms look at
constexpr char32_t latin1End = 0x100;  // the first character beyond Latin-1

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
    return key != 0 && inputOwner() == serial;
}

/// A key that the form, the one on top, may have.
void takeStroke(Serial owner, Stroke stroke) {
    int code = stroke.code;
    const bool outer = std::exchange(state().keyRepeats, stroke.repeat);
    const bool goesOn = passes(owner, &platform::Form::onKeyDown, code);
    state().keyRepeats = outer;
    if (!goesOn) return;
    if (stroke.character != 0 && !passes(owner, &platform::Form::onKeyPress, stroke.character)) return;
    pressOnControls(*openForm(owner), stroke);
}

}  // namespace

platform::Form::Impl* openForm(Serial serial) {
    const auto& forms = state().forms;
    const auto found =
        std::find_if(forms.begin(), forms.end(), [&](const auto* form) { return form->serial == serial; });
    return found == forms.end() ? nullptr : *found;
}

Serial inputOwner() {
    const State& d = state();
    if (d.menu != nullptr) return d.menu->serial;
    return d.forms.empty() ? 0 : d.forms.back()->serial;
}

void keyGoesDown(Stroke stroke) {
    comeBack();  // A key is presence.
    if (stroke.code <= 0 || stroke.code >= keyCodes) return;
    note("key", stroke.code);
    const Serial owner = inputOwner();
    auto& holder = state().held[static_cast<size_t>(stroke.code)];
    stroke.repeat = holder.has_value();
    if (!holder) holder = owner;
    if (*holder == owner && !pressToolButton(stroke)) takeStroke(owner, stroke);
}

namespace {

/// Tells the form on top where the pointer is; the form's serial if Enter means something there, or else 0.
Serial formWithEnterAt(int x, int y) {
    platform::Form::Impl* const form = openForm(inputOwner());
    bool answered = false;
    const bool on = form != nullptr && x >= 0 && y >= 0 && x < form->surface.width() && y < form->surface.height();
    if (on && form->owner.onPoint)
        deliver(std::function<void()>([&, slot = form->owner.onPoint] { answered = slot(x, y); }));
    return answered ? form->serial : 0;
}

}  // namespace

void movePointer(int x, int y) {
    arrive();
    formWithEnterAt(x, y);
}

void buttonDown(int x, int y) {
    arrive();
    state().clicked = formWithEnterAt(x, y);
}

void buttonUp(int x, int y) {
    arrive();
    const Serial clicked = std::exchange(state().clicked, 0);
    if (formWithEnterAt(x, y) != clicked || clicked == 0) return;
    note("click", x, y);
    takeStroke(clicked, {platform::key::Enter, platform::key::Enter});
}

void clickAt(int x, int y) {
    movePointer(x, y);
    buttonDown(x, y);
    buttonUp(x, y);
}

void keyDown(int keyCode) { keyGoesDown({keyCode, characterOf(keyCode)}); }

void keyUp(int keyCode) {
    arrive();
    if (keyCode <= 0 || keyCode >= keyCodes) return;
    const auto holder = std::exchange(state().held[static_cast<size_t>(keyCode)], std::nullopt);
    platform::Form::Impl* const form = holder && *holder == inputOwner() ? openForm(*holder) : nullptr;
    if (form != nullptr && form->focus != nullptr) deliver(form->focus->owner.onKeyUp, keyCode);
}

void typeText(const std::string& text) {
    for (size_t at = 0; at < text.size();) {
        const char32_t character = platform::nextCharacter(text, at);
        keyGoesDown({typedKey, character < latin1End ? static_cast<int>(character) : platform::key::OtherCharacter});
        keyUp(typedKey);
    }
}

void pressKey(int keyCode) {
    keyUp(keyCode);
    keyDown(keyCode);
    keyUp(keyCode);
}

void closeMainWindow() {
    arrive();
    if (platform::Form* const main = platform::mainForm()) main->unload();
}

void setScreenReader(bool listens) { state().screenReader = listens; }
const std::vector<std::string>& announcements() { return state().announcements; }

int modalDepth() {
    const auto& forms = state().forms;
    return static_cast<int>(std::count_if(forms.begin(), forms.end(), [](const auto* form) { return form->modal; }));
}

}  // namespace sim

namespace platform {

Form::Impl::~Impl() {
    close();
    for (Control::Impl* control : controls) control->form = nullptr;
}

void Form::Impl::open(bool asModal) {
    modal = asModal;
    if (modal) ticks().noteOpening();
    focus = nullptr;
    sim::state().forms.push_back(this);
    sim::state().clicked = 0;
    const sim::Serial self = serial;
    sim::deliver(owner.onLoad);
    if (sim::openForm(self) == nullptr) return;
    sim::note("form opens");
    sim::deliver(owner.onActivate);
    if (Impl* const still = sim::openForm(self)) sim::focusFirst(*still);
}

void Form::Impl::close() {
    unloading = false;
    const bool wasOnTop = sim::inputOwner() == serial;
    if (std::erase(sim::state().forms, this) == 0) return;
    sim::note("form closes");
    const Impl* const under = wasOnTop ? sim::openForm(sim::inputOwner()) : nullptr;
    if (under != nullptr) sim::deliver(under->owner.onActivate);
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
void Form::announce(const std::function<std::string()>& text) {
    if (sim::state().screenReader) sim::state().announcements.push_back(text());
}

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

Form* mainForm() {
    const auto& forms = sim::state().forms;
    const auto main = std::find_if(forms.begin(), forms.end(), [](const auto* form) { return !form->modal; });
    return main != forms.end() ? &(*main)->owner : nullptr;
}

}  // namespace platform
