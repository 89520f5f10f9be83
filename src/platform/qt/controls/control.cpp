#include "platform/qt/controls/control.h"

#include <QStyleFactory>
#include <algorithm>

#include "platform/qt/window/fonts.h"
#include "platform/qt/window/images.h"

namespace platform {
namespace {

constexpr Color lightGrey = 0xC0C0C0;

}  // namespace

QStyle* qt::classicStyle() {
    static QStyle* const style = QStyleFactory::create(QStringLiteral("Windows"));
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
    : owner(control), face(widget), window(qt::formWindowOf(panel.impl().widget())) {
    widget->setParent(panel.impl().widget());
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

void Control::setFont(const Font& font) { impl_->face->setFont(qt::letteringOf(font).font); }

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

}  // namespace platform
