#include "tools/album/hands.h"

#include <QApplication>
#include <QCursor>
#include <QHelpEvent>
#include <QPainter>
#include <QScreen>
#include <QTest>
#include <QToolTip>
#include <QWindow>
#include <map>
#include <stdexcept>

#include "frmMain.h"
#include "platform/qt/window/formStack.h"

namespace album {
namespace {

constexpr QPoint emptyPlace{690, 440};  // on the table, clear of all dialogs of a match

const std::map<int, Qt::Key> keys = {{platform::key::Left, Qt::Key_Left},
                                     {platform::key::Right, Qt::Key_Right},
                                     {platform::key::Down, Qt::Key_Down},
                                     {platform::key::Enter, Qt::Key_Return},
                                     {platform::key::Escape, Qt::Key_Escape}};

}  // namespace

QWidget& faceOf(const QWidget& window, int button) {
    const QString toolTip = QString::fromStdString(gfrmMain->tbrZQT.toolTip(button));
    for (QWidget* const each : window.findChildren<QWidget*>())
        if (each->toolTip() == toolTip) return *each;
    throw std::logic_error("No button says " + toolTip.toStdString());
}

Hands::Hands(QWidget* window) : window_(window) { pointTo(emptyPlace); }

void Hands::press(int keyCode) const {
    QWidget* const focus = QApplication::focusWidget();
    QTest::keyClick(focus != nullptr ? focus : window_, keys.at(keyCode));
}

void Hands::click(int button) const {
    QWidget& face = faceOf(*window_, button);
    pointTo(face.mapTo(window_, face.rect().center()));
    QTest::mouseClick(&face, Qt::LeftButton);
    pointTo(emptyPlace);
}

void Hands::restOn(int button) const {
    QWidget& face = faceOf(*window_, button);
    const QPoint centre = face.rect().center();
    pointTo(face.mapTo(window_, centre));
    QHelpEvent event(QEvent::ToolTip, centre, face.mapToGlobal(centre));
    QApplication::sendEvent(&face, &event);
}

void Hands::leave() const {
    QToolTip::hideText();
    for (QWidget* const each : inFront()) each->close();
    window_->activateWindow();  // As the desktop does when a window that had the keys is closed.
    for (const int key : {platform::key::Escape, platform::key::Enter})
        if (!seesTableOnly()) press(key);
    pointTo(emptyPlace);
}

bool Hands::seesWindow() const { return window_->windowHandle()->isExposed(); }

bool Hands::seesTableOnly() const {
    return inFront().isEmpty() && platform::qt::formStack().top() == platform::qt::formStack().mainWindow();
}

QImage Hands::look() const {
    const QPoint origin = window_->mapToGlobal(QPoint(0, 0));
    QRect seen = window_->rect();
    for (const QWidget* const each : inFront()) seen |= each->geometry().translated(-origin);
    const qreal scale = window_->devicePixelRatio();
    QImage picture(seen.size() * scale, QImage::Format_RGB888);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.drawPixmap(-seen.topLeft(), window_->grab());
    for (QWidget* const each : inFront()) painter.drawPixmap(each->pos() - origin - seen.topLeft(), each->grab());
    return picture;
}

QImage Hands::lookAtScreen() const {
    window_->repaint();
    return window_->screen()->grabWindow().toImage();
}

void Hands::pointTo(const QPoint& place) const { QCursor::setPos(window_->mapToGlobal(place)); }

/// The windows of their own that stand before the main one: menus, tool-tips, boxes.
QWidgetList Hands::inFront() const {
    QWidgetList windows;
    for (QWidget* const each : QApplication::topLevelWidgets())
        if (each != window_ && each->isVisible()) windows.append(each);
    return windows;
}

}  // namespace album
