#include "platform/qt/window/accessible.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QPointer>
#include <QVariant>
#include <QWidget>

namespace platform::qt {
namespace {

constexpr const char* roleProperty = "accessibleRole";
constexpr const char* acceleratorProperty = "accelerator";

struct Listener : QAccessible::ActivationObserver {
    void accessibilityActiveChanged(bool active) override { listens = active; }
    bool listens = QAccessible::isActive();
};

Listener& listener() {
    static Listener& theListener = *new Listener;  // Forms that are let go at the very end may still ask for it.
    return theListener;
}

/// Tells the role that the widget has now: Qt keeps this object for as long as the widget lives, and a form becomes a
/// dialog only after it has been made.
class WithRole : public QAccessibleWidget {
  public:
    using QAccessibleWidget::QAccessibleWidget;
    QAccessible::Role role() const override {
        return static_cast<QAccessible::Role>(object()->property(roleProperty).toInt());
    }
};

/// A button that tells its key too, which Qt's own object for a button doesn't.
class AsButton : public WithRole {
  public:
    using WithRole::WithRole;

    QString text(QAccessible::Text part) const override {
        return part == QAccessible::Accelerator ? accelerator() : WithRole::text(part);
    }
    QStringList actionNames() const override { return {pressAction()}; }
    QStringList keyBindingsForAction(const QString& /*action*/) const override { return {accelerator()}; }
    void doAction(const QString& action) override {
        // Who asks isn't kept waiting by a dialog that opens.
        if (action == pressAction()) static_cast<QAbstractButton*>(object())->animateClick();
    }

  private:
    QString accelerator() const { return object()->property(acceleratorProperty).toString(); }
};

QAccessibleInterface* interfaceFor(const QString& /*className*/, QObject* object) {
    if (!object->property(roleProperty).isValid()) return nullptr;
    if (auto* const button = qobject_cast<QAbstractButton*>(object)) return new AsButton(button);
    return new WithRole(static_cast<QWidget*>(object));
}

}  // namespace

void startAccessibility() {
    QAccessible::installFactory(interfaceFor);
    QAccessible::installActivationObserver(&listener());
}

void setRole(QWidget& widget, QAccessible::Role role) { widget.setProperty(roleProperty, static_cast<int>(role)); }

void setAccelerator(QWidget& button, const QString& key) { button.setProperty(acceleratorProperty, key); }

// A notification is spoken of when it comes up. One on a dialog would be told with the dialog's name before it.
void notify(QWidget& mainWindow, const QString& text) {
    static QPointer<QWidget> notice;
    if (!notice) {
        notice = new QWidget;
        setRole(*notice, QAccessible::Notification);
        notice->setParent(&mainWindow);
        notice->resize(0, 0);
    }
    notice->setAccessibleName(text);
    notice->hide();
    notice->show();
}

bool isListenedTo() { return listener().listens; }

}  // namespace platform::qt
