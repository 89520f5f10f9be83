#include <QBasicTimer>
#include <QMouseEvent>
#include <QPainter>
#include <QTimerEvent>

#include "platform/qt/bevel.h"
#include "platform/qt/control.h"
#include "platform/qt/formStack.h"
#include "platform/qt/images.h"

namespace platform {
namespace {

constexpr int bevelWidth = 1;
constexpr int firstRepeat = 400;  // milliseconds
constexpr int nextRepeats = 60;   // milliseconds
constexpr int arrowHalfWidth = 4;
constexpr double outlinePart = 0.55;

enum class Half { None, Upper, Lower };

class SpinFace : public qt::OwnedControl<SpinButton> {
  public:
    SpinFace(QWidget* parent, const Place& place, SpinButton& button);

    bool stroke(const qt::Stroke& stroke) override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

  private:
    QRect placeOf(Half half) const;
    Half halfAt(const QPoint& point) const;
    void spin(Half half);
    void letGo();
    void paintHalf(QPainter& painter, Half half) const;

    Half held_ = Half::None;
    QBasicTimer repeat_;
};

SpinFace::SpinFace(QWidget* parent, const Place& place, SpinButton& button) : OwnedControl(parent, place, button) {
    setAccessibleName(QStringLiteral("Up or down"));
}

QRect SpinFace::placeOf(Half half) const {
    const int middle = height() / 2;
    return half == Half::Upper ? QRect(0, 0, width(), middle) : QRect(0, middle, width(), height() - middle);
}

Half SpinFace::halfAt(const QPoint& point) const {
    if (!rect().contains(point)) return Half::None;
    return placeOf(Half::Upper).contains(point) ? Half::Upper : Half::Lower;
}

void SpinFace::spin(Half half) { call(half == Half::Upper ? &SpinButton::onSpinUp : &SpinButton::onSpinDown); }

bool SpinFace::stroke(const qt::Stroke& stroke) {
    const bool up = stroke.code == key::Up || stroke.code == key::Pad8;
    const bool down = stroke.code == key::Down || stroke.code == key::Pad2;
    if (up || down) spin(up ? Half::Upper : Half::Lower);
    return up || down;
}

void SpinFace::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    takeFocus();
    held_ = halfAt(event->pos());
    update();
    repeat_.start(firstRepeat, this);
    spin(held_);
}

void SpinFace::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) letGo();
}

void SpinFace::hideEvent(QHideEvent* /*event*/) { letGo(); }

void SpinFace::letGo() {
    repeat_.stop();
    held_ = Half::None;
    update();
}

void SpinFace::timerEvent(QTimerEvent* /*event*/) {
    if (qt::formStack().blocks(this)) return letGo();
    repeat_.start(nextRepeats, this);
    if (halfAt(mapFromGlobal(QCursor::pos())) == held_) spin(held_);
}

void SpinFace::paintHalf(QPainter& painter, Half half) const {
    const QColor back = qt::colorOf(qt::buttonBack);
    const QRect place = placeOf(half).adjusted(1, half == Half::Upper ? 1 : 0, -1, -1);
    painter.fillRect(place, back);
    qt::paintBevel(painter, place, half == held_ ? Bevel::Inset : Bevel::Raised, bevelWidth, back);
    const int sink = half == held_ ? 1 : 0;
    const int tip = half == Half::Upper ? -1 : 1;
    const QPoint middle = place.center() + QPoint(sink, sink);
    for (int line = 0; line < arrowHalfWidth; ++line) {
        const int y = middle.y() + tip * (line - arrowHalfWidth / 2);
        const int reach = arrowHalfWidth - 1 - line;
        painter.fillRect(middle.x() - reach, y, 2 * reach + 1, 1, Qt::black);
    }
}

void SpinFace::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QColor back = qt::colorOf(qt::buttonBack);
    painter.fillRect(rect(), qt::towards(back, Qt::black, outlinePart));
    paintHalf(painter, Half::Upper);
    paintHalf(painter, Half::Lower);
    constexpr int focusInset = 3;
    if (focused()) qt::paintFocus(painter, rect().adjusted(focusInset, focusInset, -focusInset, -focusInset), back);
}

}  // namespace

struct SpinButton::Impl {
    qt::FaceHolder<SpinFace> face;
};

SpinButton::SpinButton(Panel& panel, const Place& place)
    : impl_(new Impl{qt::FaceHolder(new SpinFace(panel.impl().widget(), place, *this))}) {}

SpinButton::~SpinButton() = default;

}  // namespace platform
