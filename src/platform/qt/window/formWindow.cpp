#include "platform/qt/window/formWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QPainter>
#include <QScreen>
#include <QStyle>
#include <QToolButton>
#include <QToolTip>
#include <algorithm>
#include <utility>

#include "platform/base/uncaught.h"
#include "platform/qt/controls/control.h"
#include "platform/qt/window/accessible.h"
#include "platform/qt/window/formStack.h"
#include "platform/qt/window/frame.h"
#include "platform/qt/window/images.h"
#include "platform/qt/window/zoom.h"
#include "platform/shared/tabOrder.h"

namespace platform {

FormView* makeFormView(Form& form) { return new qt::FormWindow(form); }

namespace qt {

QPoint onScreen(const QPoint& wanted, int height, const QRect& screen, int titleBar) {
    const int bottom = screen.top() + screen.height();
    const int highest = std::clamp(bottom - height, screen.top() + titleBar / 2, screen.top() + titleBar);
    return {std::max(wanted.x(), screen.left()), std::max(wanted.y(), highest)};
}

FormWindow* formWindowOf(const QWidget* face) {
    QWidget* each = face->parentWidget();
    while (!dynamic_cast<FormWindow*>(each)) each = each->parentWidget();
    return static_cast<FormWindow*>(each);
}

FormWindow* windowOf(Form& form) { return static_cast<FormWindow*>(&form.impl().view); }

FormWindow::FormWindow(Form& owner) : form(&owner) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setRole(*this, QAccessible::Window);
}

FormWindow::~FormWindow() = default;

void FormWindow::fitToSurface() {
    setFixedSize(form->scaleWidth(), form->scaleHeight());
    if (frame_) frame_->fit();
    update();
}

void FormWindow::showChanges() {
    const Surface& surface = form->surface();
    std::vector<Place> changed;
    surface.changes().collect(shown_, {0, 0, surface.width(), surface.height()}, changed);
    const int edge = devicePixelRatio() == density() ? 0 : 1;  // It is mixed with what is beside it.
    for (const auto& [left, top, width, height] : changed)
        update(left - edge, top - edge, width + 2 * edge, height + 2 * edge);
    shown_ = surface.changes().now();
}

void FormWindow::place() {
    const Form* const main = mainForm();
    QWidget& top = frame_ ? static_cast<QWidget&>(*frame_) : *this;
    if (!top.isWindow() && main) move(toPixels(form->left() - main->left()), toPixels(form->top() - main->top()));
    if (!top.isWindow()) return;
    const QScreen& screen = *QGuiApplication::primaryScreen();
    const QPointF toMiddle = QPointF(width(), height()) / 2;
    const QPointF middle = (QPointF(form->left(), form->top()) / twipsPerPixel + toMiddle) / zoom();
    const QPoint wanted = screen.geometry().topLeft() + (middle - toMiddle).toPoint();
    const int titleBar = QApplication::style()->pixelMetric(QStyle::PM_TitleBarHeight);
    top.setGeometry({onScreen(wanted, height(), screen.availableGeometry(), titleBar), size()});
}

void FormWindow::setCaption(const std::string& text) {
    setWindowTitle(QString::fromStdString(text));
    if (frame_) frame_->setWindowTitle(windowTitle());
}

void FormWindow::announce(const std::function<std::string()>& text) {
    if (!isListenedTo()) return;
    if (isVisible())
        notify(*window(), QString::fromStdString(text()));
    else
        setAccessibleName(QString::fromStdString(text()));  // Until the form is shown its name carries the text.
}

void FormWindow::open(bool asDialog) { asDialog ? openAsDialog() : openAsMain(); }

void FormWindow::openAsMain() {
    setRole(*this, QAccessible::Client);
    openAtZoom(*this);
    frame_ = std::make_unique<Frame>(*this);
    place();
    show();
    frame_->open();
}

void FormWindow::openAsDialog() {
    if (FormWindow* const main = formStack().mainWindow()) {
        main->takeKeysBack();
        setParent(main, Qt::SubWindow);  // Keeps Tab within itself.
    }
    formStack().noteChange();
    setRole(*this, QAccessible::Dialog);
    place();
    if (accessibleName().isEmpty()) setAccessibleName(windowTitle());  // Its loading may have told more.
    show();
}

void FormWindow::wait() {
    QEventLoop loop;
    loop_ = &loop;
    loop.exec();
    formStack().noteChange();  // From now on the form below takes clicks.
}

void FormWindow::leave() {
    focused_ = nullptr;
    if (QWidget* const menu = QApplication::activePopupWidget()) menu->close();
    hide();
    setParent(nullptr);  // A form outlives its window, and a dialog the main window, if its owner does.
    Frame* const frame = frame_.release();
    if (frame) {
        frame->hide();
        frame->deleteLater();  // It may be what is closed just now.
    }
    if (loop_) loop_->quit();
    formStack().noteChange();
    if (frame) formStack().noteEnd();
}

void FormWindow::retire() {
    form = nullptr;
    deleteLater();
}

void FormWindow::focusFirst() {
    const auto first = std::ranges::find_if(
        controls_, [this](const Control::Impl* control) { return control->face->isEnabledTo(this); });
    const bool chooses = focusedControl() == nullptr && first != controls_.end();
    (chooses ? (*first)->face.get() : keyTarget())->setFocus(Qt::TabFocusReason);
    followFocus();
}

void FormWindow::addControl(Control::Impl* control) { controls_.push_back(control); }

void FormWindow::removeControl(const Control::Impl* control) {
    std::erase(controls_, control);
    if (focused_ == control) focused_ = nullptr;
}

void FormWindow::setTabIndex(Control::Impl* control, int index) {
    moveTo(controls_, control, index);
    for (size_t i = 1; i < controls_.size(); ++i) setTabOrder(controls_[i - 1]->face.get(), controls_[i]->face.get());
}

int FormWindow::tabIndex(Control::Impl* control) const { return positionOf(controls_, control); }

QWidget* FormWindow::keyTarget() const {
    QWidget* const focus = focusWidget();
    const bool isOwn =
        focus && focus != this && isAncestorOf(focus) && focus->isVisible() && formWindowOf(focus) == this;
    return isOwn ? focus : const_cast<FormWindow*>(this);
}

bool FormWindow::toolsHaveKeys() const { return qobject_cast<QToolButton*>(keyTarget()) != nullptr; }

void FormWindow::takeKeysBack() {
    if (!toolsHaveKeys()) return;
    QWidget* const button = keyTarget();
    setFocus(Qt::OtherFocusReason);
    button->update();
    QToolTip::hideText();
}

Control::Impl* FormWindow::controlOf(const QWidget* face) const {
    const auto found = std::ranges::find(controls_, face, [](const auto* control) { return control->face.get(); });
    return found != controls_.end() ? *found : nullptr;
}

Control::Impl* FormWindow::focusedControl() const { return controlOf(keyTarget()); }

bool FormWindow::pressesButtonFor(const Stroke& stroke) {
    if (stroke.code != key::Enter && stroke.code != key::Escape) return false;
    auto* const focused = qobject_cast<QPushButton*>(keyTarget());
    QPushButton* const button = stroke.code == key::Escape ? cancel_.data() : focused ? focused : default_.data();
    if (button && !stroke.repeat) button->click();
    return true;
}

void FormWindow::followFocus() {
    Control::Impl* const now = form && form->loaded() ? focusedControl() : nullptr;
    if (now == nullptr || now == focused_) return;
    const Control::Impl* const before = std::exchange(focused_, now);
    const QPointer<FormWindow> self(this);
    if (before) callSlot(before->owner.onValidate);
    if (self && focused_ == now) callSlot(now->owner.onGotFocus);
}

namespace {

/// Where the size is no whole number of the screen's pixels, the last of them belong to the window in part, and would
/// keep what stood there before: the edge goes on in them.
void drawBeyond(QPainter& painter, const QImage& image) {
    const int right = image.width(), bottom = image.height(), step = density();
    painter.drawImage(QRect(right, 0, step, bottom), image, QRect(right - 1, 0, 1, bottom));
    painter.drawImage(QRect(0, bottom, right, step), image, QRect(0, bottom - 1, right, 1));
    painter.drawImage(QRect(right, bottom, step, step), image, QRect(right - 1, bottom - 1, 1, 1));
}

}  // namespace

void FormWindow::paintEvent(QPaintEvent* /*event*/) {
    setDensity(densityFor(devicePixelRatio()));
    QPainter painter(this);
    const QImage image = imageOf(form->surface());
    if (image.size() != size() * density()) painter.fillRect(rect(), Qt::black);
    painter.scale(1.0 / density(), 1.0 / density());
    painter.setRenderHint(QPainter::SmoothPixmapTransform, devicePixelRatio() != density());
    if (image.isNull()) return;
    painter.drawImage(QPoint(0, 0), image);
    drawBeyond(painter, image);
}

void FormWindow::closeEvent(QCloseEvent* event) {
    event->ignore();  // The form decides what closing means.
    if (form) form->unload();
}

}  // namespace qt
}  // namespace platform
