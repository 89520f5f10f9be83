#include <QMouseEvent>
#include <QPainter>

#include "platform/qt/bevel.h"
#include "platform/qt/control.h"
#include "platform/qt/fonts.h"
#include "platform/qt/formStack.h"
#include "platform/qt/images.h"

namespace platform {
namespace {

constexpr int bevelWidth = 2;
constexpr int focusInset = 2;  // from the bevel inward
constexpr double outlinePart = 0.55;
constexpr double defaultOutlinePart = 0.9;

class ButtonFace : public qt::OwnedControl<CommandButton> {
  public:
    using OwnedControl::OwnedControl;

    Font font;

    bool stroke(const qt::Stroke& stroke) override;
    void answer(const qt::Stroke& stroke) override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    void press();
    void setDown(bool down);
    QRect paintBody(QPainter& painter) const;

    bool held_ = false;  // the mouse button went down on it
    bool down_ = false;  // and the pointer is still on it
};

bool ButtonFace::stroke(const qt::Stroke& stroke) {
    if (stroke.code != key::Enter && stroke.code != key::Space) return false;
    answer(stroke);
    return true;
}

void ButtonFace::answer(const qt::Stroke& stroke) {
    if (!stroke.repeat) press();
}

void ButtonFace::press() { call(&CommandButton::onClick); }

void ButtonFace::setDown(bool down) {
    down_ = down;
    update();
}

void ButtonFace::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    takeFocus();
    held_ = true;
    setDown(true);
}

void ButtonFace::mouseMoveEvent(QMouseEvent* event) {
    const bool down = held_ && rect().contains(event->pos());
    if (down != down_) setDown(down);
}

void ButtonFace::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !held_) return;
    held_ = false;
    setDown(false);
    if (rect().contains(event->pos()) && !qt::formStack().blocks(this)) press();
}

QRect ButtonFace::paintBody(QPainter& painter) const {
    const QColor back = qt::colorOf(qt::buttonBack);
    const bool isDefault = qt::formWindowOf(this)->defaultControl() == this;
    painter.fillRect(rect(), qt::towards(back, Qt::black, isDefault ? defaultOutlinePart : outlinePart));
    const QRect body = rect().adjusted(1, 1, -1, -1);
    painter.fillRect(body, back);
    const QRect inside = qt::paintBevel(painter, body, down_ ? Bevel::Inset : Bevel::Raised, bevelWidth, back);
    if (focused()) qt::paintFocus(painter, inside.adjusted(focusInset, focusInset, -focusInset, -focusInset), back);
    return inside;
}

void ButtonFace::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QRect inside = paintBody(painter);
    painter.setClipRect(inside);
    painter.setFont(qt::letteringOf(font).font);
    painter.setPen(Qt::black);
    const int sink = down_ ? 1 : 0;
    painter.drawText(inside.translated(sink, sink), static_cast<int>(Qt::AlignCenter | Qt::TextDontClip),
                     accessibleName());
}

}  // namespace

struct CommandButton::Impl {
    qt::FaceHolder<ButtonFace> face;

    qt::FormWindow& window() const { return *qt::formWindowOf(face.get()); }
};

CommandButton::CommandButton(Panel& panel, const Place& place)
    : impl_(new Impl{qt::FaceHolder(new ButtonFace(panel.impl().widget(), place, *this))}) {}

CommandButton::~CommandButton() = default;

void CommandButton::setFont(const Font& font) {
    impl_->face->font = font;
    impl_->face->update();
}

void CommandButton::setCaption(const std::string& text) {
    impl_->face->setAccessibleName(QString::fromStdString(text));
    impl_->face->update();
}

void CommandButton::makeDefault() {
    impl_->window().setDefaultControl(impl_->face.get());
    impl_->face->update();
}

void CommandButton::makeCancel() { impl_->window().setCancelControl(impl_->face.get()); }

}  // namespace platform
