#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <cmath>
#include <fstream>
#include <set>

#include "platform/form.h"
#include "platform/qt/application.h"
#include "platform/qt/formStack.h"
#include "platform/qt/formWindow.h"
#include "platform/qt/toolButton.h"
#include "tests/contractDriver.h"
#include "tests/soundFiles.h"

namespace driver {
namespace {

struct KeyRow {
    int code;
    Qt::Key key;
    bool pad;
};

constexpr KeyRow namedKeys[] = {
    {platform::key::Tab, Qt::Key_Tab, false},       {platform::key::Enter, Qt::Key_Return, false},
    {platform::key::Escape, Qt::Key_Escape, false}, {platform::key::Left, Qt::Key_Left, false},
    {platform::key::Up, Qt::Key_Up, false},         {platform::key::Right, Qt::Key_Right, false},
    {platform::key::Down, Qt::Key_Down, false},     {platform::key::Pad2, Qt::Key_2, true},
    {platform::key::Pad4, Qt::Key_Left, true},      {platform::key::Pad6, Qt::Key_6, true},
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
    static int argc = 1;
    static char name[] = "velmora_qt_contract";
    static char* argv[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("SDL_AUDIODRIVER", "dummy");
    static const platform::Application application(argc, argv, "Program", "program");
    static Person thePerson;
    return thePerson;
}

QWidget* mainWindow() { return platform::qt::formStack().top()->window(); }

QKeyEvent keyEvent(QEvent::Type type, int code, bool repeat) {
    for (const KeyRow& row : namedKeys)
        if (row.code == code) return {type, row.key, row.pad ? Qt::KeypadModifier : Qt::NoModifier, QString(), repeat};
    return {type, code, Qt::NoModifier, QString(QChar(code)).toLower(), repeat};
}

void sendKey(QEvent::Type type, int code, bool repeat) {
    QKeyEvent event = keyEvent(type, code, repeat);
    QCoreApplication::sendEvent(mainWindow(), &event);
}

/// Clicks the visible face for which that holds; of several the one that lies on top.
template <class Face, class Condition>
void clickFace(Condition&& holds) {
    Face* found = nullptr;
    for (QWidget* each : mainWindow()->findChildren<QWidget*>())
        if (auto* const face = dynamic_cast<Face*>(each); face && face->isVisible() && holds(*face)) found = face;
    if (found) QTest::mouseClick(found, Qt::LeftButton);
}

}  // namespace

void begin() {
    person().lastMessage.clear();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void run(double milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(static_cast<int>(std::lround(milliseconds)), Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

void post(double afterMilliseconds, std::function<void()> action) {
    QTimer::singleShot(static_cast<int>(std::lround(afterMilliseconds)), Qt::PreciseTimer, qApp, std::move(action));
}

void pressKey(int keyCode) {
    keyDown(keyCode);
    keyUp(keyCode);
}

void keyDown(int keyCode) { sendKey(QEvent::KeyPress, keyCode, !person().held.insert(keyCode).second); }

void keyUp(int keyCode) {
    person().held.erase(keyCode);
    sendKey(QEvent::KeyRelease, keyCode, false);
}

void clickToolButton(int button) {
    clickFace<platform::qt::ToolButton>([=](const auto& face) { return face.number == button; });
}

void clickButton(const std::string& caption) {
    clickFace<QWidget>([&](const QWidget& face) { return face.accessibleName().toStdString() == caption; });
}

void chooseMenuItem(int item) { person().menuItem = item; }

std::string pieceOfMusic(int milliseconds) {
    static const QTemporaryDir folder;
    if (milliseconds == 0) return folder.filePath("none.mid").toStdString();
    const std::string file = folder.filePath(QString::number(milliseconds) + ".mid").toStdString();
    std::ofstream(file, std::ios::binary) << piece(woodBlock, {{0, milliseconds / 2, 60}}, milliseconds);
    return file;
}

std::string lastMessage() { return person().lastMessage; }

}  // namespace driver
