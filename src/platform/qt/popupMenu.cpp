#include <QCursor>
#include <QMenu>

#include "platform/qt/control.h"
#include "platform/qt/slots.h"
#include "platform/toolbar.h"
#include "runtime.h"

namespace platform {

struct PopupMenu::Impl {
    struct Item {
        std::string caption;
        bool checked = false;
    };

    QPointer<qt::FormWindow> window;
    std::vector<Item> items;

    Item& item(int number) {
        if (number < 1 || number > static_cast<int>(items.size())) failure::subscript();
        return items[static_cast<size_t>(number - 1)];
    }
};

PopupMenu::PopupMenu(Form& form) : impl_(std::make_unique<Impl>()) { impl_->window = qt::windowOf(form); }

PopupMenu::~PopupMenu() = default;

void PopupMenu::addItem(const std::string& caption) { impl_->items.push_back({caption}); }

int PopupMenu::itemCount() const { return static_cast<int>(impl_->items.size()); }

std::string PopupMenu::caption(int item) const { return impl_->item(item).caption; }

void PopupMenu::setChecked(int item, bool checked) { impl_->item(item).checked = checked; }

bool PopupMenu::checked(int item) const { return impl_->item(item).checked; }

void PopupMenu::popUp() {
    const QPointer<QMenu> menu = new QMenu(impl_->window);  // Null when the form took it along.
    for (const Impl::Item& item : impl_->items) {
        QAction* const action = menu->addAction(QString::fromStdString(item.caption));
        action->setCheckable(true);
        action->setChecked(item.checked);
    }
    const QList<QAction*> actions = menu->actions();
    const auto chosenSlot = onClick;
    const auto chosen = actions.indexOf(menu->exec(QCursor::pos()));
    delete menu.data();
    if (chosen >= 0) qt::callSlot(chosenSlot, static_cast<int>(chosen) + 1);
}

}  // namespace platform
