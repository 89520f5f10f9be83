#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <cmath>
#include <list>
#include <set>

#include "platform/form.h"
#include "platform/qt/controls/control.h"
#include "platform/qt/window/clock.h"
#include "platform/qt/window/formStack.h"
#include "platform/qt/window/formWindow.h"
#include "platform/timer.h"
#include "tests/application.h"
#include "tests/contractDriver.h"

namespace driver {
namespace {

struct KeyRow {
    int code;
    Qt::Key key;
    bool pad;
};

constexpr KeyRow namedKeys[] = {
    {8, Qt::Key_Backspace, false},
    {platform::key::Tab, Qt::Key_Tab, false},
    {platform::key::Enter, Qt::Key_Return, false},
    {platform::key::Escape, Qt::Key_Escape, false},
    {platform::key::Pause, Qt::Key_Pause, false},
    {platform::key::Left, Qt::Key_Left, false},
    {platform::key::Up, Qt::Key_Up, false},
    {platform::key::Right, Qt::Key_Right, false},
    {platform::key::Down, Qt::Key_Down, false},
    {platform::key::Pad2, Qt::Key_2, true},
    {platform::key::Pad4, Qt::Key_Left, true},
    {platform::key::Pad6, Qt::Key_6, true},
    {platform::key::Pad8, Qt::Key_Up, true},
};

/// Answers what opens in windows of its own, as soon as it is seen.
class Person : public QObject {
  public:
    Person() { qApp->installEventFilter(this); }

    std::string lastMessage;
    int menuItem = 0;
    std::set<int> held;  // key codes

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Show) return false;
        if (auto* const box = dynamic_cast<QMessageBox*>(watched)) answer(box);
        if (auto* const menu = dynamic_cast<QMenu*>(watched)) answer(menu);
        return false;
    }

  private:
    void answer(QMessageBox* box) {
        lastMessage = (box->windowTitle() + ": " + box->text()).toStdString();
        QTimer::singleShot(0, box, [box] { box->button(QMessageBox::Ok)->click(); });
    }

    void answer(QMenu* menu) {
        QTimer::singleShot(0, menu, [menu, item = menuItem] {
            if (item > 0) menu->setActiveAction(menu->actions().at(item - 1));
            QTest::keyClick(menu, item > 0 ? Qt::Key_Return : Qt::Key_Escape);
        });
    }
};

Person& person() {
    qputenv("SDL_AUDIODRIVER", "dummy");
    setUpApplication("offscreen:configfile=" VELMORA_SOURCE "/tests/screens.json", "Program");
    static Person thePerson;
    return thePerson;
}

/// Something to come, for which time passes.
struct Event {
    platform::Timer timer{platform::Timer::WhileAway::GoesOn};
    platform::qt::TimePasses timePasses;
};

QWidget* mainWindow() { return platform::qt::formStack().top()->window(); }

QPoint onWindow(int x, int y) { return platform::qt::formStack().top()->mapTo(mainWindow(), QPoint(x, y)); }

QKeyEvent keyEvent(QEvent::Type type, int code, bool repeat) {
    for (const KeyRow& row : namedKeys)
        if (row.code == code) return {type, row.key, row.pad ? Qt::KeypadModifier : Qt::NoModifier, QString(), repeat};
    return {type, code, Qt::NoModifier, QString(QChar(code)).toLower(), repeat};
}

void send(QKeyEvent event) { QCoreApplication::sendEvent(mainWindow(), &event); }

}  // namespace

void begin() {
    person().lastMessage.clear();
    platform::qt::holdTime();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void run(double milliseconds) {
    QEventLoop loop;
    post(milliseconds, [&loop] { loop.quit(); });
    loop.exec();
}

void post(double afterMilliseconds, std::function<void()> action) {
    if (afterMilliseconds == 0) return QTimer::singleShot(0, qApp, std::move(action));
    static std::list<Event> events;
    const auto event = events.emplace(events.end());
    event->timer.onTick = [event, action = std::move(action)] {
        events.erase(event);
        action();
    };
    event->timer.setInterval(static_cast<int>(std::lround(afterMilliseconds)));
    event->timer.setEnabled(true);
}

void pressKey(int keyCode) {
    keyDown(keyCode);
    keyUp(keyCode);
}

void keyDown(int keyCode) {
    const bool repeat = !person().held.insert(keyCode).second;
    if (repeat) send(keyEvent(QEvent::KeyRelease, keyCode, true));  // As Qt tells of a held key.
    send(keyEvent(QEvent::KeyPress, keyCode, repeat));
}

void keyUp(int keyCode) {
    person().held.erase(keyCode);
    send(keyEvent(QEvent::KeyRelease, keyCode, false));
}

void click(const platform::Control& control) {
    constexpr int onIndicator = 8;  // pixels from the left of a box or an option
    QWidget* const face = control.impl().face.get();
    QTest::mouseClick(face, Qt::LeftButton, Qt::NoModifier, {onIndicator, face->height() / 2});
}

void movePointer(int x, int y) { QTest::mouseMove(mainWindow()->windowHandle(), onWindow(x, y)); }

void buttonDown(int x, int y) {
    QTest::mousePress(mainWindow()->windowHandle(), Qt::LeftButton, Qt::NoModifier, onWindow(x, y));
}

void buttonUp(int x, int y) {
    QTest::mouseRelease(mainWindow()->windowHandle(), Qt::LeftButton, Qt::NoModifier, onWindow(x, y));
}

void clickToolButton(int button) {
    QToolButton* const face = mainWindow()->findChildren<QToolButton*>().value(button - 1);
    if (face && face->isVisible()) QTest::mouseClick(face, Qt::LeftButton);
}

void goAway() {
    static QWidget& elsewhere = *new QWidget;  // The desktop would warn of a widget that outlives it.
    elsewhere.show();
    elsewhere.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&elsewhere));
}

void comeBack() {
    mainWindow()->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(mainWindow()));
}

void chooseMenuItem(int item) { person().menuItem = item; }

std::string lastMessage() { return person().lastMessage; }

}  // namespace driver
