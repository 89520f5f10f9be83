#include "platform/shared/desk.h"

#include <algorithm>
#include <utility>

#include "platform/base/uncaught.h"
#include "platform/shared/ticks.h"

namespace platform {

Desk& desk() {
    static Desk& theDesk = *new Desk;
    return theDesk;
}

void Desk::open(Form::Impl& form, bool asDialog) {
    if (asDialog) {
        dialogs_.push_back(&form);
        ticks().noteOpening();
    } else {
        main_ = &form;
    }
    ++changes_;
    clicked_ = nullptr;
}

void Desk::wait(Form::Impl& dialog) {
    struct Shown {
        std::vector<const Form::Impl*>& all;
        ~Shown() { all.pop_back(); }
    } const shown{shown_};
    shown_.push_back(&dialog);
    dialog.view.wait();
}

const void* Desk::keyOwner() const {
    if (isReturning()) return nullptr;
    return boxes_.empty() ? top() : boxes_.back();
}

bool Desk::isReturning() const { return !boxIsOpen() && !shown_.empty() && !shown_.back()->loaded; }

/// Takes a form off the desk and off the screen; the one that comes to light is told.
void Desk::close(Form::Impl& form) {
    const bool wasOnTop = top() == &form;
    if (main_ == &form) main_ = nullptr;
    std::erase(dialogs_, &form);
    ++changes_;
    clicked_ = nullptr;
    ignoreRepeatsFor(&form);
    form.view.leave();
    if (wasOnTop && top() != nullptr) top()->activate();
}

void Desk::unloadAbove(const Form::Impl& form) {
    const bool open = main_ == &form || std::ranges::find(dialogs_, &form) != dialogs_.end();
    while (open && top() != &form) {
        const auto dialog = top()->shared_from_this();
        dialog->unload();
        dialog->leave();  // Even if it is on its way out already.
    }
}

void Desk::openBox(void* box) {
    boxes_.push_back(box);
    ticks().noteOpening();
    clicked_ = nullptr;
}

void Desk::closeBox(const void* box) {
    std::erase(boxes_, box);
    ignoreRepeatsFor(box);
}

Press Desk::keyDown(uint32_t key, bool repeats, const void* owner) {
    const void*& owned = owners_[key];
    if (repeats) return owner != nullptr && owned == owner ? Press::Repeat : Press::Foreign;
    owned = owner;
    return Press::New;
}

const void* Desk::keyUp(uint32_t key) { return owners_[key]; }

void Desk::ignoreRepeatsFor(const void* owner) {
    for (auto& [key, owned] : owners_)
        if (owned == owner) owned = nullptr;
}

void Desk::letGoOfKeys() { owners_.clear(); }

bool Desk::passes(const std::function<void(int&)>& handler, int& value) {
    const int changesBefore = changes_;
    callSlot(handler, value);
    return value != 0 && changes_ == changesBefore;
}

bool Desk::offer(Stroke& stroke) {
    const Form* const form = top()->form;
    const bool outer = std::exchange(keyRepeats_, stroke.repeat);  // A handler may serve events, further keys too.
    int code = stroke.code;
    const bool goesOn = passes(form->onKeyDown, code);
    keyRepeats_ = outer;
    return goesOn && (stroke.character == 0 || passes(form->onKeyPress, stroke.character));
}

/// Tells the form on top where the pointer is; whether Enter means something there.
bool Desk::meansEnterAt(int x, int y) {
    const Form::Impl* const form = boxIsOpen() || isReturning() ? nullptr : top();
    if (form == nullptr || x < 0 || y < 0 || x >= form->surface.width() || y >= form->surface.height()) return false;
    bool answer = false;
    if (form->form->onPoint) callSlot(std::function<void()>([&, slot = form->form->onPoint] { answer = slot(x, y); }));
    return answer;
}

void Desk::buttonDown(int x, int y) { clicked_ = meansEnterAt(x, y) ? top() : nullptr; }

bool Desk::buttonUp(int x, int y) {
    const Form::Impl* const clicked = std::exchange(clicked_, nullptr);
    return meansEnterAt(x, y) && clicked == top();
}

}  // namespace platform
