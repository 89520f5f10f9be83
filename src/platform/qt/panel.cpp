#include <QPainter>

#include "platform/qt/bevel.h"
#include "platform/qt/control.h"
#include "platform/qt/fonts.h"
#include "platform/qt/images.h"

namespace platform {

class Panel::Impl::Face : public QWidget {
  public:
    Face(QWidget* parent, const Place& place) : QWidget(parent) {
        qt::setPlace(*this, place);
        setAttribute(Qt::WA_OpaquePaintEvent);
    }

    void retire() {}  // Never has the focus.

    PanelLook look;
    Font font;
    QString caption;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

void Panel::Impl::Face::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QColor back = qt::colorOf(look.back);
    painter.fillRect(rect(), back);
    QRect inside = qt::paintBevel(painter, rect(), look.outer, look.bevelWidth, back);
    inside = qt::paintBevel(painter, inside, look.inner, look.bevelWidth, back);
    if (caption.isEmpty()) return;
    painter.setClipRect(inside);
    painter.setFont(qt::letteringOf(font).font);
    painter.setPen(qt::colorOf(look.fore));
    const Qt::Alignment across = look.align == Align::Left ? Qt::AlignLeft : Qt::AlignHCenter;
    // A line that is higher than its panel loses the room above its letters rather than what hangs below them.
    const bool tooHigh = painter.fontMetrics().height() > inside.height();
    const Qt::Alignment down = tooHigh ? Qt::AlignBottom : Qt::AlignVCenter;
    painter.drawText(inside, static_cast<int>(across | down | Qt::TextDontClip), caption);
}

Panel::Impl::Impl(QWidget* parent, const Place& place) : face(new Face(parent, place)) {}

QWidget* Panel::Impl::widget() const { return face.get(); }

Panel::Panel(Form& form, const Place& place) : impl_(std::make_unique<Impl>(qt::windowOf(form), place)) {}

Panel::Panel(Panel& panel, const Place& place) : impl_(std::make_unique<Impl>(panel.impl().widget(), place)) {}

Panel::~Panel() = default;

Panel::Panel(Panel&&) noexcept = default;

void Panel::setLook(const PanelLook& look) {
    impl_->face->look = look;
    impl_->face->update();
}

void Panel::setFont(const Font& font) {
    impl_->face->font = font;
    impl_->face->update();
}

void Panel::setCaption(const std::string& text) {
    impl_->face->caption = QString::fromStdString(text);
    impl_->face->setAccessibleName(impl_->face->caption.trimmed());
    impl_->face->update();
}

std::string Panel::caption() const { return impl_->face->caption.toStdString(); }

}  // namespace platform
