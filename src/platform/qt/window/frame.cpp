#include "platform/qt/window/frame.h"

#include <QCloseEvent>
#include <QPainter>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <cmath>

#include "platform/qt/window/accessible.h"
#include "platform/qt/window/formStack.h"
#include "platform/qt/window/formWindow.h"
#include "platform/qt/window/zoom.h"

namespace platform::qt {
namespace {

constexpr Qt::WindowFlags flags = Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                  Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint;
constexpr QRgb groundColor = 0xFF0A2A20;  // around the table: the cloth where it is darkest
constexpr int moment = 200;               // milliseconds in which a change of size is over

}  // namespace

Frame::Frame(FormWindow& table) : QWidget(nullptr, flags), table_(table) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setRole(*this, QAccessible::Window);
    setWindowTitle(table.windowTitle());
    table.setParent(this);
    table.move(0, 0);
    fit();
}

void Frame::open() {
    show();
    connect(windowHandle(), &QWindow::screenChanged, this, &Frame::settleOnScreen, Qt::QueuedConnection);
    fit();
}

void Frame::fit() {
    if (isFilled()) return fill();
    setFixedSize(table_.size());
    if (windowHandle() != nullptr) renewLimits(*windowHandle(), table_.size(), table_.size());
}

/// Some desktops fill the screen with no window that has limits, and some look at them once, as it goes back.
void Frame::fillScreen(bool fills) {
    const QSize before = (QSizeF(table_.size()) * zoomBefore_.value_or(zoom()) / zoom()).toSize();
    fills ? takeAnySize() : renewLimits(*windowHandle(), before, before);
    setWindowState(fills ? windowState() | Qt::WindowFullScreen : windowState() & ~Qt::WindowFullScreen);
}

void Frame::zoomBy(ZoomStep step) {
    if (!isFilled()) takeZoomStep(*this, step);
}

void Frame::takeAnySize() {
    setMinimumSize(0, 0);
    setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
}

/// Its limits stay: on Wayland each change of theirs shows the desktop the old size once more, which ends the program.
void Frame::fill() {
    if (!isFilled()) {
        zoomBefore_ = zoom();
        cornerBefore_ = normalGeometry().topLeft();
    }
    hadState_ = isSized();
    setZoom(largestZoom(table_.size(), sizeOnScreen(*this), leastZoom(*this)));
}

void Frame::goBack() {
    setZoom(*zoomBefore_);
    zoomBefore_.reset();
    setGeometry({cornerBefore_, table_.size()});
    fit();
}

void Frame::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange) return;
    formStack().lookForPlayer();
    if (isSized() && size() != table_.size()) fill();
    if (!isSized() && !isFilled()) fit();
    settles_.start(moment, this);
}

/// What the desktop tells of a size and of a state comes in any order, and a size may be an old one. Nor is a size
/// asked for before the desktop has given one: Wayland ends a program that has another than its state asks for.
void Frame::resizeEvent(QResizeEvent* /*event*/) {
    const QSize around = (size() - table_.size()) / 2;
    table_.move(std::max(0, around.width()), std::max(0, around.height()));
    if (isSized()) return fill();
    if (isFilled() && hasOwnSize()) return goBack();
    settles_.start(moment, this);
}

/// Some desktops lay windows beside each other without any state. And without a window manager nobody sees to the size
/// that a state asks for.
void Frame::timerEvent(QTimerEvent* /*event*/) {
    settles_.stop();
    if (isMinimized()) return;
    if (!isWayland() && isFullScreen() && hasOwnSize()) return windowHandle()->setGeometry(screen()->geometry());
    if (!isWayland() && !isSized() && isFilled() && hadState_) return goBack();
    if (!hasOwnSize()) fill();
}

bool Frame::isSized() const { return windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen); }

/// But for what is lost where its size is no whole number of the screen's pixels.
bool Frame::hasOwnSize() const {
    const QSizeF off = sizeOnScreen(*this) - QSizeF(table_.size()) * zoomBefore_.value_or(zoom());
    return std::abs(off.width()) < 2 && std::abs(off.height()) < 2;
}

/// The other screen may have another scale, and less room.
void Frame::settleOnScreen() {
    if (!isVisible() || isFilled()) return;
    zoomBy(ZoomStep::None);
    if (windowHandle()->size() != size()) fitToZoom(*this);
}

void Frame::paintEvent(QPaintEvent* event) { QPainter(this).fillRect(event->rect(), QColor(groundColor)); }

void Frame::closeEvent(QCloseEvent* event) {
    event->ignore();  // The form decides what closing means.
    table_.close();
}

}  // namespace platform::qt
