#include "platform/qt/window/zoom.h"

#include <private/qhighdpiscaling_p.h>
#include <private/qwindow_p.h>
#include <qpa/qplatformwindow.h>
#include <qpa/qwindowsysteminterface.h>

#include <QApplication>
#include <QBackingStore>
#include <QKeyEvent>
#include <QScreen>
#include <QStyle>
#include <QToolTip>
#include <QWheelEvent>
#include <QWidget>
#include <QWindow>
#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <utility>

#include "platform/qt/window/frame.h"

namespace platform::qt {
namespace {

constexpr double stepsInOne = 4;
constexpr double freePart = 0.1;  // of the screen, around the window at the start

double now = 1;
double atStart = 1;
std::optional<double> askedFor;  // 0 for the one that suits the screen

/// How often a window has room, a fraction too.
double roomFor(const QSizeF& window, const QSizeF& room) {
    return std::min(room.width() / window.width(), room.height() / window.height());
}

/// The screen's scale without any zoom, but for the one that QT_SCALE_FACTOR gives to all screens. By name, since a
/// screen may go and come back.
double ownScale(const QScreen& screen) {
    static std::map<QString, double> scales;
    const auto [scale, isNew] = scales.try_emplace(screen.name(), 0);
    const QScreen* const all = nullptr;
    if (isNew) scale->second = QHighDpiScaling::factor(&screen) / QHighDpiScaling::factor(all);
    return scale->second;
}

void scale(QScreen* screen) { QHighDpiScaling::setScreenFactor(screen, ownScale(*screen) * now); }

/// The room for windows on the screen of a window, in pixels at a zoom of 1.
QSizeF roomOnScreen(const QWidget& window) { return QSizeF(window.screen()->availableSize()) * now; }

/// Its picture would keep its size at the first change of scale, and what covers it wholly isn't painted with it.
void paintAnew(QWidget& widget) {
    if (QBackingStore* const picture = widget.backingStore()) picture->resize(widget.size());
    widget.update();
    for (QWidget* const each : widget.findChildren<QWidget*>()) each->update();
}

/// Gives a window the size in the screen's pixels that the zoom asks for; the ratio is that of the zoom before to now.
void follow(QWidget& widget, double ratio) {
    QWindow& window = *widget.windowHandle();
    const auto* const frame = dynamic_cast<const Frame*>(&widget);
    const bool isFilled = (frame != nullptr && frame->isFilled()) || widget.isMaximized() || widget.isFullScreen();
    paintAnew(widget);
    using Now = QWindowSystemInterface::SynchronousDelivery;  // Its own resize() would end the state that it has.
    if (isFilled) return QWindowSystemInterface::handleGeometryChange<Now>(&window, window.handle()->geometry());
    renewLimits(window, widget.minimumSize(), widget.maximumSize());
    const QPoint origin = widget.screen()->geometry().topLeft();
    const QRect room = widget.screen()->availableGeometry().marginsRemoved(window.frameMargins());
    const QSize size = widget.size().boundedTo(widget.minimumSize().expandedTo(room.size()));
    const QPointF toMiddle = QPointF(size.width(), size.height()) / 2;
    const QPointF middle = origin + (QRectF(widget.geometry()).center() - origin) * ratio;
    QRect place((middle - toMiddle).toPoint(), size);
    place.moveRight(std::min(place.right(), room.right()));
    place.moveBottom(std::min(place.bottom(), room.bottom()));
    place.moveTopLeft({std::max(place.left(), room.left()), std::max(place.top(), room.top())});
    window.setGeometry(place);
}

}  // namespace

double largestZoom(const QSizeF& window, const QSizeF& room, double least) {
    return std::max(least, std::floor(roomFor(window, room) * stepsInOne) / stepsInOne);
}

double leastZoom(const QWidget& window) {
    const double scale = window.screen()->devicePixelRatio() / now;
    return std::min(1.0, std::ceil(stepsInOne / scale) / stepsInOne);
}

double startZoom(const QSizeF& window, const QSizeF& room) {
    return std::max(1.0, std::floor(roomFor(window, room * (1 - freePart))));
}

double zoom() { return now; }

bool isWayland() { return QGuiApplication::platformName().startsWith("wayland"); }

void setZoom(double zoom) {
    if (zoom == now) return;
    for (const QScreen* const screen : QGuiApplication::screens()) ownScale(*screen);
    static const auto later = QObject::connect(qApp, &QGuiApplication::screenAdded, qApp, scale);
    const double ratio = std::exchange(now, zoom);
    for (QScreen* const screen : QGuiApplication::screens()) scale(screen);
    QToolTip::hideText();
    for (QWidget* const each : QApplication::topLevelWidgets())
        if (each->windowHandle() != nullptr && each->windowHandle()->handle() != nullptr) follow(*each, ratio / zoom);
}

void renewLimits(QWindow& window, const QSize& least, const QSize& most) {
    constexpr QSize any(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    window.setMinimumSize({});
    window.setMaximumSize(any);
    window.setMinimumSize(least);
    window.setMaximumSize(most);
    if (!isWayland()) return;
    qt_window_private(&window)->minimumSize = {0, 0};
    qt_window_private(&window)->maximumSize = any;
}

/// Qt's scaling is at work from here on. A window that is closed while it isn't would come back with a picture of the
/// old scale.
void askForZoom(double zoom) {
    askedFor = zoom;
    QScreen* const screen = QGuiApplication::primaryScreen();
    QHighDpiScaling::setScreenFactor(screen, ownScale(*screen) * 2);
    QHighDpiScaling::setScreenFactor(screen, ownScale(*screen));
}

void openAtZoom(const QWidget& window) {
    if (!askedFor) return;
    const int titleBar = QApplication::style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const QSizeF whole = window.size().grownBy({0, titleBar, 0, 0}), room = roomOnScreen(window);
    const double wanted = *askedFor > 0 ? *askedFor : startZoom(whole, room);
    atStart = std::min(wanted, largestZoom(whole, room, leastZoom(window)));
    setZoom(atStart);
}

void fitToZoom(QWidget& window) { follow(window, 1); }

QSizeF sizeOnScreen(const QWidget& window) {
    const QWindow& handle = *window.windowHandle();
    return QSizeF(handle.handle()->geometry().size()) / QHighDpiScaling::factor(&handle) * now;
}

ZoomStep zoomStepOf(const QKeyEvent& key) {
    constexpr Qt::KeyboardModifiers others = Qt::AltModifier | Qt::MetaModifier;
    if (!(key.modifiers() & Qt::ControlModifier) || key.modifiers() & others) return ZoomStep::None;
    if (key.key() == Qt::Key_Plus || key.key() == Qt::Key_Equal) return ZoomStep::Larger;
    if (key.key() == Qt::Key_Minus) return ZoomStep::Smaller;
    return key.key() == Qt::Key_0 ? ZoomStep::Back : ZoomStep::None;
}

ZoomStep zoomStepOf(const QWheelEvent& wheel) {
    static int turned = 0;
    turned += wheel.angleDelta().y();
    if (std::abs(turned) < QWheelEvent::DefaultDeltasPerStep) return ZoomStep::None;
    return std::exchange(turned, 0) > 0 ? ZoomStep::Larger : ZoomStep::Smaller;
}

void takeZoomStep(const QWidget& window, ZoomStep step) {
    const QSizeF whole = window.size().grownBy(window.windowHandle()->frameMargins());
    const double most = largestZoom(whole, roomOnScreen(window), leastZoom(window));
    const double wanted = step == ZoomStep::Back      ? atStart
                          : step == ZoomStep::Larger  ? now + 1 / stepsInOne
                          : step == ZoomStep::Smaller ? now - 1 / stepsInOne
                                                      : now;
    setZoom(std::clamp(wanted, std::min(1.0, most), most));
}

}  // namespace platform::qt
