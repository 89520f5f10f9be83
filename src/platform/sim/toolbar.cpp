#include "platform/toolbar.h"

#include <algorithm>
#include <utility>

#include "platform/base/runtime.h"
#include "platform/sim/state.h"

namespace platform {

struct ToolBar::Impl {
    Impl(ToolBar& bar, Form& form, int buttonCount) : owner(bar), view(sim::viewOf(form)) {
        buttons.resize(buttonCount);
    }

    struct Button {
        int image = 0;
        std::string toolTip;
        ButtonKeys keys{};
    };

    ToolBar& owner;
    sim::View& view;  ///< Of its form.
    DynamicTable<Button> buttons;
};

ToolBar::ToolBar(Form& form, int /*height*/, int buttonCount, const ImageList& /*images*/)
    : impl_(std::make_unique<Impl>(*this, form, buttonCount)) {
    sim::state().toolBar = impl_.get();
}

ToolBar::~ToolBar() {
    if (sim::state().toolBar == impl_.get()) sim::state().toolBar = nullptr;
}

void ToolBar::stretch(int /*button*/) {}
void ToolBar::setButtonImage(int button, int image) { impl_->buttons[button].image = image; }
void ToolBar::setButtonKeys(int button, const ButtonKeys& keys) { impl_->buttons[button].keys = keys; }

void ToolBar::setToolTip(int button, const std::string& text) {
    impl_->buttons[button].toolTip = text;
    sim::note("tool-tip", button, text);
}

std::string ToolBar::toolTip(int button) const { return impl_->buttons[button].toolTip; }

struct PopupMenu::Impl {};

PopupMenu::PopupMenu(Form& /*form*/) {}

PopupMenu::~PopupMenu() {
    if (sim::state().menu == this) desk().closeBox(std::exchange(sim::state().menu, nullptr));
}

void PopupMenu::popUp() {
    sim::state().menu = this;
    desk().openBox(this);
    sim::note("menu opens");
    sim::serveWhile([this] { return sim::state().menu == this; });
}

}  // namespace platform

namespace sim {

void clickToolButton(int button) {
    arrive();
    platform::ToolBar::Impl* const bar = state().toolBar;
    if (bar == nullptr || !bar->view.hasKeys() || button < 1 || button > bar->buttons.count()) return;
    if (bar->buttons[button].image == 0) return;
    note("tool", button);
    platform::callSlot(bar->owner.onButtonClick, button);
}

bool pressToolButton(const platform::Stroke& stroke) {
    platform::ToolBar::Impl* const bar = state().toolBar;
    if (bar == nullptr || !bar->view.hasKeys()) return false;
    for (int button = 1; button <= bar->buttons.count(); ++button) {
        const auto& row = bar->buttons[button];
        if (row.image == 0 || std::find(row.keys.begin(), row.keys.end(), stroke.code) == row.keys.end()) continue;
        if (!stroke.repeat) clickToolButton(button);
        return true;
    }
    return false;
}

void chooseMenuItem(int item) {
    arrive();
    platform::PopupMenu* const menu = std::exchange(state().menu, nullptr);
    if (menu == nullptr) return;
    platform::desk().closeBox(menu);
    note("menu", item);
    if (item >= 1 && item <= static_cast<int>(menu->items.size())) platform::callSlot(menu->onClick, item);
}

}  // namespace sim
