#include <QCursor>
#include <QMenu>
#include <QPointer>

#include "platform/qt/controls/control.h"
#include "platform/shared/slots.h"
#include "platform/shared/ticks.h"
#include "platform/toolbar.h"

namespace platform {

namespace {

/// Under the tool button that has the keys, or else at the pointer.
QPoint openingPlace(const qt::FormWindow* window) {
    if (!window || !window->toolsHaveKeys()) return QCursor::pos();
    const QWidget* const button = window->keyTarget();
    return button->mapToGlobal(QPoint(0, button->height()));
}

}  // namespace

struct PopupMenu::Impl {
    QPointer<qt::FormWindow> window;
    QPointer<QMenu> open;
};

PopupMenu::PopupMenu(Form& form) : impl_(std::make_unique<Impl>()) { impl_->window = qt::windowOf(form); }

PopupMenu::~PopupMenu() {
    if (impl_->open) impl_->open->close();
}

void PopupMenu::popUp() {
    const QPointer<QMenu> menu = new QMenu(impl_->window);  // Null when the form took it along.
    menu->setAccessibleName(QString::fromStdString(caption));
    for (int item = 1; item <= itemCount(); ++item) {
        QAction* const action = menu->addAction(QString::fromStdString(itemCaption(item)));
        action->setCheckable(true);
        action->setChecked(checked(item));
        if (checked(item)) menu->setActiveAction(action);  // The arrow keys move on from it.
        // Told at once: a dialog that opened over the menu would hold back the end of exec().
        QObject::connect(action, &QAction::triggered, menu, [slot = onClick, item] { callSlot(slot, item); });
    }
    impl_->open = menu;
    ticks().noteOpening();
    menu->exec(openingPlace(impl_->window));
    delete menu.data();
}

}  // namespace platform
