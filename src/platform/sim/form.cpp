#include "platform/form.h"

#include <algorithm>

#include "platform/base/text.h"
#include "platform/sim/state.h"

namespace sim {
namespace {

using platform::desk;
using platform::Stroke;

constexpr int typedKey = 255;          // none of those that forms look at
constexpr char32_t latin1End = 0x100;  // the first character beyond Latin-1

constexpr int namelessCharacters[] = {8, platform::key::Tab, platform::key::Enter, platform::key::Escape,
                                      platform::key::Space};

/// The character that a key types; 0 if it types none.
int characterOf(int keyCode) {
    if (keyCode >= 'A' && keyCode <= 'Z') return keyCode - 'A' + 'a';
    if (keyCode >= '0' && keyCode <= '9') return keyCode;
    return std::ranges::find(namelessCharacters, keyCode) != std::end(namelessCharacters) ? keyCode : 0;
}

View* top() { return desk().top() != nullptr ? static_cast<View*>(&desk().top()->view) : nullptr; }

/// A key that the form on top may have.
void offer(Stroke stroke) {
    if (desk().offer(stroke)) top()->pressOnControls(stroke);
}

}  // namespace

void keyGoesDown(int code, int character) {
    comeBack();  // A key is presence.
    if (code <= 0) return;
    note("key", code);
    const bool repeats = !state().keysDown.insert(code).second;
    const platform::Press press = desk().keyDown(static_cast<uint32_t>(code), repeats, desk().keyOwner());
    const Stroke stroke{code, character, press == platform::Press::Repeat};
    const bool isForForm = top() != nullptr && top()->hasKeys() && press != platform::Press::Foreign;
    if (isForForm && !pressToolButton(stroke)) offer(stroke);
}

void movePointer(int x, int y) {
    arrive();
    desk().movePointer(x, y);
}

void buttonDown(int x, int y) {
    arrive();
    desk().buttonDown(x, y);
}

void buttonUp(int x, int y) {
    arrive();
    if (!desk().buttonUp(x, y)) return;
    note("click", x, y);
    offer({platform::key::Enter, platform::key::Enter});
}

void clickAt(int x, int y) {
    movePointer(x, y);
    buttonDown(x, y);
    buttonUp(x, y);
}

void keyDown(int keyCode) { keyGoesDown(keyCode, characterOf(keyCode)); }

void keyUp(int keyCode) {
    arrive();
    state().keysDown.erase(keyCode);
    const void* const owner = desk().keyUp(static_cast<uint32_t>(keyCode));
    const View* const view = owner != nullptr && owner == desk().keyOwner() ? top() : nullptr;
    if (view != nullptr && view->focus != nullptr) platform::callSlot(view->focus->owner.onKeyUp, keyCode);
}

void typeText(const std::string& text) {
    for (const char32_t character : platform::charactersOf(text)) {
        keyGoesDown(typedKey, character < latin1End ? static_cast<int>(character) : platform::key::OtherCharacter);
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

int modalDepth() { return static_cast<int>(desk().dialogs().size()); }

View& viewOf(platform::Form& form) { return static_cast<View&>(form.impl().view); }

bool View::hasKeys() const { return desk().keyOwner() == &form.impl(); }

void View::announce(const std::function<std::string()>& text) {
    if (state().screenReader) state().announcements.push_back(text());
}

void View::open(bool /*asDialog*/) {
    focus = nullptr;
    note("form opens");
}

void View::wait() {
    serveWhile([dialog = form.impl().shared_from_this()] { return dialog->loaded; });
}

void View::retire() {
    for (Control* control : controls) control->view = nullptr;
    delete this;
}

}  // namespace sim

platform::FormView* platform::makeFormView(Form& form) { return new sim::View(form); }
