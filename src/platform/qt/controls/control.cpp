#include "platform/qt/controls/control.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QKeyEvent>
#include <QProxyStyle>
#include <QPushButton>
#include <QStyleOption>
#include <QStylePainter>
#include <algorithm>

#include "platform/qt/window/fonts.h"
#include "platform/qt/window/images.h"

namespace platform {
namespace {

constexpr Color lightGrey = 0xC0C0C0;

/// Qt's classic style, but for a spin box: none has a field, and its two arrows share the whole of it.
class ClassicStyle : public QProxyStyle {
  public:
    ClassicStyle() : QProxyStyle(QStringLiteral("Windows")) {}

    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override {
        const QRect all = option->rect;
        const int middle = all.height() / 2;
        if (control != CC_SpinBox) return QProxyStyle::subControlRect(control, option, part, widget);
        if (part == SC_SpinBoxUp) return {all.left(), all.top(), all.width(), middle};
        if (part == SC_SpinBoxDown) return {all.left(), all.top() + middle, all.width(), all.height() - middle};
        return {};
    }
};

class Arrows : public QAbstractSpinBox {
  public:
    Arrows() {
        setFrame(false);
        setContextMenuPolicy(Qt::NoContextMenu);
        setAttribute(Qt::WA_InputMethodEnabled, false);
        setAccessibleName(QStringLiteral("Up or down"));
    }

    void stepBy(int steps) override {
        const Control::Impl* const control = qt::formWindowOf(this)->controlOf(this);
        if (control == nullptr) return;  // It is gone, and its face goes soon.
        const auto& spin = static_cast<const SpinButton&>(control->owner);
        qt::callUnlessBlocked(this, steps > 0 ? spin.onSpinUp : spin.onSpinDown);
    }

  protected:
    StepEnabled stepEnabled() const override { return StepUpEnabled | StepDownEnabled; }

    // Qt's own answer to a held key comes by a clock of its own; ours once for each repeat.
    void keyPressEvent(QKeyEvent* event) override {
        const int code = qt::strokeOf(*event, event->isAutoRepeat()).code;
        const bool up = code == key::Up || code == key::Pad8;
        const bool down = code == key::Down || code == key::Pad2;
        if (up || down) stepBy(up ? 1 : -1);
        event->setAccepted(up || down);
    }

    void paintEvent(QPaintEvent* event) override {
        QAbstractSpinBox::paintEvent(event);
        if (!hasFocus()) return;
        constexpr int inset = 3;
        QStyleOptionFocusRect mark;
        mark.initFrom(this);
        mark.rect.adjust(inset, inset, -inset, -inset);
        QStylePainter(this).drawPrimitive(QStyle::PE_FrameFocusRect, mark);
    }
};

}  // namespace

QStyle* qt::classicStyle() {
    static QStyle* const style = new ClassicStyle;
    return style;
}

const QPalette& qt::classicPalette() {
    static const QPalette palette(colorOf(lightGrey));
    return palette;
}

void qt::setPlace(QWidget& widget, const Place& place) {
    widget.setGeometry(place.left, place.top, place.width, place.height);
}

void qt::makeRoom(QWidget& widget) {
    widget.resize(std::max(widget.width(), widget.sizeHint().width()), widget.height());
}

Qt::Alignment qt::alignmentOf(Align align) {
    return align == Align::Left ? Qt::AlignLeft : align == Align::Right ? Qt::AlignRight : Qt::AlignHCenter;
}

Control::Impl::Impl(Control& control, QWidget* widget, Panel& panel, const Place& place)
    : owner(control), face(widget), window(qt::formWindowOf(panel.impl().face.get())) {
    widget->setParent(panel.impl().face.get());
    widget->setStyle(qt::classicStyle());
    widget->setPalette(qt::classicPalette());
    widget->setFocusPolicy(Qt::StrongFocus);
    qt::setPlace(*widget, place);
    widget->setVisible(true);
    window->addControl(this);
}

Control::Impl::~Impl() {
    if (window) window->removeControl(this);
}

Control::Control(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}

Control::~Control() = default;

void Control::setFont(const Font& font) { impl_->face->setFont(qt::fontOf(font)); }

void Control::setEnabled(bool enabled) { impl_->face->setEnabled(enabled); }

bool Control::enabled() const { return impl_->face->isEnabledTo(impl_->window); }

void Control::setFocus() {
    impl_->face->setFocus(Qt::OtherFocusReason);
    impl_->window->followFocus();
}

bool Control::hasFocus() const { return impl_->window->keyTarget() == impl_->face.get(); }

void Control::setTabIndex(int index) { impl_->window->setTabIndex(impl_.get(), index); }

int Control::tabIndex() const { return impl_->window->tabIndex(impl_.get()); }

void Control::setAccessibleName(const std::string& name) {
    impl_->face->setAccessibleName(QString::fromStdString(name));
}

CaptionButton::CaptionButton(std::unique_ptr<Impl> impl) : Control(std::move(impl)) {
    auto* const button = qt::faceOf<QAbstractButton>(*this);
    // An access key reaches a button without the focus, also on a form that lies under another one.
    QObject::connect(button, &QAbstractButton::pressed, button, [this, button] {
        if (!qt::formStack().blocks(button)) setFocus();
    });
    QObject::connect(button, &QAbstractButton::clicked, button,
                     [this, button] { qt::callUnlessBlocked(button, onClick); });
}

void CaptionButton::setCaption(const std::string& text) {
    auto* const button = qt::faceOf<QAbstractButton>(*this);
    button->setText(QString::fromStdString(text));
    if (button->isCheckable()) qt::makeRoom(*button);
}

CommandButton::CommandButton(Panel& panel, const Place& place)
    : CaptionButton(std::make_unique<Impl>(*this, new QPushButton, panel, place)) {}

void CommandButton::makeDefault() {
    qt::faceOf<QPushButton>(*this)->setDefault(true);
    impl_->window->setDefaultButton(qt::faceOf<QPushButton>(*this));
}

void CommandButton::makeCancel() { impl_->window->setCancelButton(qt::faceOf<QPushButton>(*this)); }

SpinButton::SpinButton(Panel& panel, const Place& place)
    : Control(std::make_unique<Impl>(*this, new Arrows, panel, place)) {}

}  // namespace platform
