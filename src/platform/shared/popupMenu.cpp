#include "platform/toolbar.h"

namespace platform {

void PopupMenu::addItem(const std::string& itemCaption) {
    items_.resize(items_.count() + 1);
    items_[items_.count()].caption = itemCaption;
}

int PopupMenu::itemCount() const { return items_.count(); }
std::string PopupMenu::itemCaption(int item) const { return items_[item].caption; }
void PopupMenu::setChecked(int item, bool checked) { items_[item].checked = checked; }
bool PopupMenu::checked(int item) const { return items_[item].checked; }

}  // namespace platform
