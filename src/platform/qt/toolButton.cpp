#include "platform/qt/toolButton.h"

#include <QEnterEvent>
#include <QMouseEvent>
#include <QPainter>

#include "platform/qt/bevel.h"
#include "platform/qt/formStack.h"
#include "platform/qt/slots.h"

namespace platform::qt {
namespace {

constexpr double hoverPart = 0.12;
constexpr double downPart = 0.25;

}  // namespace

ToolButton::ToolButton(QWidget* strip, int buttonNumber) : QWidget(strip), number(buttonNumber) {
    setMouseTracking(true);
}

void ToolButton::setImage(const QImage& image) {
    image_ = image;
    update();
}

void ToolButton::setGap(bool gap) {
    gap_ = gap;
    setAttribute(Qt::WA_TransparentForMouseEvents, gap);
    update();
}

void ToolButton::setState(bool hovered, bool down) {
    if (hovered == hovered_ && down == down_) return;
    hovered_ = hovered;
    down_ = down;
    update();
}

void ToolButton::enterEvent(QEnterEvent* /*event*/) { setState(true, down_); }

void ToolButton::leaveEvent(QEvent* /*event*/) { setState(false, down_); }

void ToolButton::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    held_ = true;
    setState(true, true);
}

void ToolButton::mouseMoveEvent(QMouseEvent* event) {
    const bool inside = rect().contains(event->pos());
    setState(inside && !formStack().blocks(this), held_ && inside);
}

void ToolButton::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !held_) return;
    const bool inside = rect().contains(event->pos());
    const bool pressed = inside && !formStack().blocks(this);
    held_ = false;
    setState(pressed, false);
    if (pressed) callSlot(onClick, number);
}

void ToolButton::paintEvent(QPaintEvent* /*event*/) {
    if (gap_) return;
    QPainter painter(this);
    const QRect body = rect().adjusted(1, 1, -1, -1);
    if (hovered_ || down_) {
        const QColor back = palette().color(QPalette::Window);
        const QColor ink = palette().color(QPalette::WindowText);
        painter.fillRect(body, towards(back, ink, down_ ? downPart : hoverPart));
        paintBevel(painter, body, down_ ? Bevel::Inset : Bevel::Raised, 1, back);
    }
    const int sink = down_ ? 1 : 0;
    painter.drawImage((width() - image_.width()) / 2 + sink, (height() - image_.height()) / 2 + sink, image_);
}

}  // namespace platform::qt
