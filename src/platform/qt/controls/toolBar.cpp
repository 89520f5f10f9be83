#include "platform/toolbar.h"

#include <QCursor>
#include <QFrame>
#include <QHelpEvent>
#include <QIconEngine>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QPointer>
#include <QStyleOptionToolButton>
#include <QToolButton>
#include <QToolTip>
#include <algorithm>
#include <vector>

#include "platform/base/runtime.h"
#include "platform/qt/controls/control.h"
#include "platform/qt/window/accessible.h"
#include "platform/qt/window/images.h"
#include "platform/shared/ticks.h"

namespace platform {
namespace {

constexpr QRgb stripColor = 0xFFEFEFEF;  // The same under every desktop theme, since the images are made for it.
constexpr QRgb edgeColor = 0xFFA8A8A8;   // of the line under it

/// A button of the strip. When it is marked it has all keys of its form; it looks raised then, as under the pointer,
/// and has a frame and its tool-tip. Without a window manager no widget has Qt's focus, so that it isn't asked for
/// that.
class ToolButton : public QToolButton {
  public:
    explicit ToolButton(QWidget* strip);

    ButtonKeys keys{};

    bool isPressedBy(const QKeyEvent& event) const;
    void mark(Qt::FocusReason reason);
    bool isMarked() const { return qt::formWindowOf(this)->keyTarget() == this; }
    void showToolTip() { QToolTip::showText(mapToGlobal(QPoint(0, height())), toolTipWithKey(), this); }

  protected:
    bool event(QEvent* event) override;
    void initStyleOption(QStyleOptionToolButton* option) const override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QString toolTipWithKey() const;
    void goOn(int step);
};

/// The buttons of a strip that are seen, from the left.
std::vector<ToolButton*> buttonsOn(const QWidget* strip) {
    std::vector<ToolButton*> seen;
    for (QObject* child : strip->children())
        if (auto* const button = dynamic_cast<ToolButton*>(child); button && button->isVisible())
            seen.push_back(button);
    return seen;
}

/// Whether a key of its form is one for a strip: F10 goes to the first of the buttons, and their own keys press them.
bool takeKey(const QWidget* strip, const QKeyEvent& event, bool repeat) {
    const auto seen = buttonsOn(strip);
    const bool marks = event.key() == Qt::Key_F10 && !seen.empty() && !qt::formWindowOf(strip)->toolsHaveKeys();
    const auto pressed =
        std::ranges::find_if(seen, [&](const ToolButton* button) { return button->isPressedBy(event); });
    if (!marks && pressed == seen.end()) return false;
    if (repeat) return true;
    marks ? seen.front()->mark(Qt::ShortcutFocusReason) : (*pressed)->click();
    return true;
}

ToolButton::ToolButton(QWidget* strip) : QToolButton(strip) {
    qt::setRole(*this, QAccessible::Button);
    setStyle(qt::classicStyle());
    setAutoRaise(true);
    setFocusPolicy(Qt::NoFocus);
    setVisible(false);
}

// It doesn't rise under the pointer while something on top keeps clicks from it.
void ToolButton::initStyleOption(QStyleOptionToolButton* option) const {
    QToolButton::initStyleOption(option);
    if (qt::formStack().blocks(this)) option->state &= ~QStyle::State_MouseOver;
    if (isMarked()) option->state |= QStyle::State_MouseOver | QStyle::State_HasFocus;
}

bool ToolButton::isPressedBy(const QKeyEvent& event) const {
    const bool isAnother = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return !isAnother && std::ranges::count(keys, qt::strokeOf(event, false).code) > 0;
}

QString ToolButton::toolTipWithKey() const {
    return keys.front() != 0 ? toolTip() + QStringLiteral(" (%1)").arg(qt::nameOfKey(keys.front())) : toolTip();
}

/// Qt knows of no keys, and a screen reader, which is told the key apart, would say its own text once more.
bool ToolButton::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QToolButton::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), toolTipWithKey(), this);
    return true;
}

void ToolButton::mark(Qt::FocusReason reason) {
    setFocus(reason);
    showToolTip();
    update();
}

/// In another window the player means something else.
void ToolButton::focusOutEvent(QFocusEvent* event) {
    QToolButton::focusOutEvent(event);
    if (event->reason() == Qt::ActiveWindowFocusReason) qt::formWindowOf(this)->takeKeysBack();
}

void ToolButton::keyPressEvent(QKeyEvent* event) {
    const int code = qt::strokeOf(*event, event->isAutoRepeat()).code;
    if (code == key::Left || code == key::Pad4) return goOn(-1);
    if (code == key::Right || code == key::Pad6) return goOn(1);
    if (event->isAutoRepeat()) return;
    if (code == key::Enter || code == key::Space) click();
    if (code == key::Escape || event->key() == Qt::Key_F10) qt::formWindowOf(this)->takeKeysBack();
}

void ToolButton::goOn(int step) {
    const auto row = buttonsOn(parentWidget());
    const auto count = static_cast<int>(row.size());
    const auto place = static_cast<int>(std::ranges::find(row, this) - row.begin());
    row[static_cast<size_t>((place + step + count) % count)]->mark(Qt::TabFocusReason);
    update();
}

/// One of the images, the mask colour left out, at the density of the screen that it is shown on. It is cut when it is
/// painted, since those of higher densities would weigh on the start.
class Icon : public QIconEngine {
  public:
    Icon(const ImageList& images, int number) : images_(images), number_(number) {}

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return scaledPixmap(size, mode, state, 1);
    }
    QPixmap scaledPixmap(const QSize& /*size*/, QIcon::Mode /*mode*/, QIcon::State /*state*/, qreal scale) override {
        const QImage strip = qt::imageOf(images_.strip, qt::densityFor(scale));
        const int side = images_.imageWidth * strip.height() / images_.strip.height;
        QImage image = strip.copy((number_ - 1) * side, 0, side, strip.height());
        image.setAlphaChannel(image.createMaskFromColor(pixelOf(images_.maskColor), Qt::MaskOutColor));
        return QPixmap::fromImage(image);
    }
    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State state) override {
        painter->drawPixmap(place, scaledPixmap(place.size(), mode, state, painter->device()->devicePixelRatio()));
    }
    QIconEngine* clone() const override { return new Icon(*this); }

  private:
    ImageList images_;
    int number_;
};

/// Under the tool button that has the keys, or else at the pointer.
QPoint openingPlace(const qt::FormWindow* window) {
    if (!window || !window->toolsHaveKeys()) return QCursor::pos();
    const QWidget* const button = window->keyTarget();
    return button->mapToGlobal(QPoint(0, button->height()));
}

}  // namespace

/// Nothing is heard of clicks when it is gone.
struct ToolBar::Impl : QObject {
    explicit Impl(qt::FormWindow* parent, const ImageList& list) : strip(new QWidget(parent)), images(list) {}

    qt::Owned<QWidget> strip;
    QFrame* edge = nullptr;
    DynamicTable<ToolButton*> buttons;
    ImageList images;

    void layOut();
};

void ToolBar::Impl::layOut() {
    edge->setGeometry(0, strip->height() - 1, strip->width(), 1);
    int left = 0;
    for (int number = 1; number <= buttons.count(); ++number) {
        buttons[number]->move(left, 0);
        left += buttons[number]->width();
    }
}

ToolBar::ToolBar(Form& form, int height, int buttonCount, const ImageList& images)
    : impl_(std::make_unique<Impl>(qt::windowOf(form), images)) {
    QWidget* const strip = impl_->strip.get();
    qt::windowOf(form)->takeToolKey = [strip = QPointer<QWidget>(strip)](const QKeyEvent& event, bool repeat) {
        return strip && takeKey(strip, event, repeat);
    };
    QPalette palette{QColor(stripColor)};
    palette.setColor(QPalette::WindowText, QColor(edgeColor));
    qt::setRole(*strip, QAccessible::ToolBar);
    strip->setAccessibleName(QStringLiteral("Toolbar"));
    strip->setPalette(palette);
    strip->setAutoFillBackground(true);
    strip->resize(form.scaleWidth(), height);
    impl_->edge = new QFrame(strip);
    impl_->edge->setFrameStyle(QFrame::HLine | QFrame::Plain);
    impl_->buttons.resize(buttonCount);
    for (int number = 1; number <= buttonCount; ++number) {
        auto* const button = new ToolButton(strip);
        button->resize(buttonWidth, height);
        QObject::connect(button, &QToolButton::clicked, impl_.get(),
                         [this, button, number] { qt::callUnlessBlocked(button, onButtonClick, number); });
        impl_->buttons[number] = button;
    }
    impl_->layOut();
    if (strip->parentWidget()->isVisible()) strip->show();
}

ToolBar::~ToolBar() = default;

void ToolBar::stretch(int button) {
    const int width = impl_->strip->parentWidget()->width();
    impl_->strip->resize(width, impl_->strip->height());
    impl_->buttons[button]->resize(width - (impl_->buttons.count() - 1) * buttonWidth, impl_->strip->height());
    impl_->layOut();
}

void ToolBar::setButtonImage(int button, int image) {
    const auto& [strip, width, maskColor] = impl_->images;
    const bool isThere = image >= 1 && image * width <= strip.width;
    impl_->buttons[button]->setIcon(isThere ? QIcon(new Icon(impl_->images, image)) : QIcon());
    impl_->buttons[button]->setIconSize({width, strip.height});
    impl_->buttons[button]->setVisible(image != 0);
}

void ToolBar::setButtonKeys(int button, const ButtonKeys& keys) {
    impl_->buttons[button]->keys = keys;
    qt::setAccelerator(*impl_->buttons[button], keys.front() != 0 ? qt::nameOfKey(keys.front()) : QString());
}

void ToolBar::setToolTip(int button, const std::string& text) {
    const QString tip = QString::fromStdString(text);
    ToolButton& face = *impl_->buttons[button];
    face.setToolTip(tip);
    face.setAccessibleName(tip);
    if (face.isMarked() || face.underMouse()) face.showToolTip();
}

std::string ToolBar::toolTip(int button) const { return impl_->buttons[button]->toolTip().toStdString(); }

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
    for (int item = 0; const std::string& text : items) {
        QAction* const action = menu->addAction(QString::fromStdString(text));
        action->setCheckable(true);
        action->setChecked(++item == checkedItem);
        if (item == checkedItem) menu->setActiveAction(action);  // The arrow keys move on from it.
        // Told at once: a dialog that opened over the menu would hold back the end of exec().
        QObject::connect(action, &QAction::triggered, menu, [slot = onClick, item] { callSlot(slot, item); });
    }
    impl_->open = menu;
    ticks().noteOpening();
    menu->exec(openingPlace(impl_->window));
    delete menu.data();
}

}  // namespace platform
