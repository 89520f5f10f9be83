#include "platform/qt/formWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QPainter>
#include <QScreen>
#include <QStyle>
#include <algorithm>
#include <cmath>

#include "platform/qt/control.h"
#include "platform/qt/formStack.h"
#include "platform/qt/images.h"
#include "platform/qt/slots.h"
#include "platform/twips.h"

namespace platform::qt {
namespace {

void paintShape(QPainter& painter, const Shape::Impl& shape) {
    const QRect outer(shape.place.left, shape.place.top, shape.place.width, shape.place.height);
    const QRect inner = outer.adjusted(shape.border, shape.border, -shape.border, -shape.border);
    for (const QRect& side : QRegion(outer) - QRegion(inner)) painter.fillRect(side, colorOf(shape.color));
}

/// Where a window may stand so that its top left corner is on the screen, with its title bar above it.
QPoint onScreen(const QPoint& wanted) {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const QPoint place = wanted + QGuiApplication::primaryScreen()->geometry().topLeft();
    const int titleBar = QApplication::style()->pixelMetric(QStyle::PM_TitleBarHeight);
    return {std::max(place.x(), screen.left()), std::max(place.y(), screen.top() + titleBar)};
}

}  // namespace

FormWindow* formWindowOf(const QWidget* face) {
    QWidget* each = face->parentWidget();
    while (!dynamic_cast<FormWindow*>(each)) each = each->parentWidget();
    return static_cast<FormWindow*>(each);
}

FormWindow::FormWindow(Form& owner) : form(&owner) { setAttribute(Qt::WA_OpaquePaintEvent); }

void FormWindow::fitToSurface() {
    setFixedSize(surface.width(), surface.height());
    update();
}

void FormWindow::showChanges() {
    std::vector<Place> changed;
    collectChanges(surface.changes(), shown_, {0, 0, surface.width(), surface.height()}, changed);
    for (const Place& place : changed) update(place.left, place.top, place.width, place.height);
    shown_ = surface.changes().now();
}

void FormWindow::place() {
    const FormWindow* const main = formStack().mainWindow();
    if (isWindow())
        setGeometry({onScreen({toPixels(left), toPixels(top)}), size()});
    else if (main)
        move(toPixels(left - main->left), toPixels(top - main->top));
}

bool FormWindow::load() {
    if (loaded) return false;
    loaded = true;
    const QPointer<FormWindow> self(this);
    callSlot(form->onLoad);
    return self && loaded;
}

void FormWindow::showAsMain() {
    if (!load()) return;
    formStack().openMain(this);
    place();
    show();
}

void FormWindow::runAsDialog() {
    if (!load()) return;
    if (FormWindow* const main = formStack().mainWindow()) setParent(main);
    formStack().openDialog(this);
    if (!controls_.empty()) focusOn(controls_.front());
    place();
    show();
    raise();
    QEventLoop loop;
    loop_ = &loop;
    const QPointer<FormWindow> self(this);
    loop.exec();
    if (self) self->loop_ = nullptr;  // It still stands when the program's end has ended the loop.
}

void FormWindow::unload() {
    if (!loaded || unloading_) return;
    unloading_ = true;
    const QPointer<FormWindow> self(this);
    formStack().unloadAbove(this);
    if (self && form) callSlot(form->onUnload);
    if (self) leave();
}

void FormWindow::leave() {
    loaded = false;
    unloading_ = false;
    if (QWidget* const menu = QApplication::activePopupWidget()) menu->close();
    hide();
    setParent(nullptr);  // A dialog outlives the main window if its owner does.
    if (loop_) loop_->quit();
    loop_ = nullptr;
    formStack().leave(this);
}

void FormWindow::retire() {
    form = nullptr;
    formStack().unloadAbove(this);
    leave();
    deleteLater();
}

void FormWindow::addControl(Control* control) { controls_.push_back(control); }

void FormWindow::removeControl(Control* control) {
    std::erase(controls_, control);
    for (Control** const role : {&focused_, &default_, &cancel_})
        if (*role == control) *role = nullptr;
}

void FormWindow::focusOn(Control* control) {
    if (focused_ == control) return;
    if (focused_) focused_->update();
    focused_ = control;
    focused_->update();
}

void FormWindow::moveFocus(int step) {
    if (controls_.empty()) return;
    const auto count = static_cast<int>(controls_.size());
    const auto at = static_cast<int>(std::ranges::find(controls_, focused_) - controls_.begin());
    focusOn(controls_[static_cast<size_t>((at + step + count) % count)]);
}

void FormWindow::strokeControls(const Stroke& stroke) {
    if (stroke.code == key::Tab)
        moveFocus(stroke.shift ? -1 : 1);
    else if (stroke.code == key::Escape && cancel_)
        cancel_->answer(stroke);
    else if (focused_ && focused_->stroke(stroke))
        return;
    else if (stroke.code == key::Enter && default_)
        default_->answer(stroke);
}

void FormWindow::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const qreal scale = devicePixelRatio();
    painter.setRenderHint(QPainter::SmoothPixmapTransform, scale != std::floor(scale));
    const QImage image = imageOf(surface);
    if (image.isNull())
        painter.fillRect(rect(), Qt::black);
    else
        painter.drawImage(QPoint(0, 0), image);
    for (const Shape::Impl* shape : shapes)
        if (shape->visible) paintShape(painter, *shape);
}

void FormWindow::closeEvent(QCloseEvent* event) {
    event->ignore();  // The form decides what closing means.
    unload();
}

}  // namespace platform::qt
