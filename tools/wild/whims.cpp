#include "tools/wild/whims.h"

#include <qpa/qwindowsysteminterface.h>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QScreen>
#include <QWidget>
#include <algorithm>
#include <utility>
#include <vector>

#include "frmMain.h"
#include "platform/shared/desk.h"
#include "tools/album/hands.h"
#include "tools/wild/heldClock.h"

namespace wild {

namespace {

using Now = QWindowSystemInterface::SynchronousDelivery;
using Qt::AltModifier, Qt::ControlModifier, Qt::KeypadModifier, Qt::NoModifier, Qt::ShiftModifier;

struct KeyRow {
    int weight;
    Qt::Key key;
    Qt::KeyboardModifiers modifiers = NoModifier;
    const char* text = "";
};

constexpr KeyRow keys[] = {
    {16, Qt::Key_Left},
    {16, Qt::Key_Right},
    {12, Qt::Key_Down},
    {8, Qt::Key_Up},
    {4, Qt::Key_4, KeypadModifier, "4"},
    {4, Qt::Key_6, KeypadModifier, "6"},
    {4, Qt::Key_2, KeypadModifier, "2"},
    {2, Qt::Key_8, KeypadModifier, "8"},
    {2, Qt::Key_Left, KeypadModifier},
    {2, Qt::Key_Down, KeypadModifier},
    {10, Qt::Key_Return, NoModifier, "\r"},
    {4, Qt::Key_Enter, KeypadModifier, "\r"},
    {8, Qt::Key_Escape, NoModifier, "\x1b"},
    {8, Qt::Key_Tab, NoModifier, "\t"},
    {4, Qt::Key_Backtab, ShiftModifier},
    {8, Qt::Key_Space, NoModifier, " "},
    {3, Qt::Key_P, NoModifier, "p"},
    {2, Qt::Key_Pause},
    {1, Qt::Key_F1},
    {1, Qt::Key_F2},
    {4, Qt::Key_F10},
    {2, Qt::Key_F11},
    {2, Qt::Key_Plus, ControlModifier},
    {2, Qt::Key_Minus, ControlModifier},
    {1, Qt::Key_0, ControlModifier},
    {1, Qt::Key_Equal, ControlModifier},
    {2, Qt::Key_P, AltModifier, "p"},
    {2, Qt::Key_C, AltModifier, "c"},
    {1, Qt::Key_Alt},
    {1, Qt::Key_Control},
    {1, Qt::Key_Shift},
    {2, Qt::Key_A, ControlModifier},
    {2, Qt::Key_X, ControlModifier},
    {2, Qt::Key_C, ControlModifier},
    {3, Qt::Key_Z, ControlModifier},
    {2, Qt::Key_Z, ControlModifier | ShiftModifier},
    {1, Qt::Key_F, ControlModifier},
    {1, Qt::Key_F3},
    {1, Qt::Key_F4},
    {1, Qt::Key_Down, AltModifier},
    {3, Qt::Key_Backspace, NoModifier, "\b"},
    {2, Qt::Key_Delete, NoModifier, "\x7f"},
    {2, Qt::Key_Left, ShiftModifier},
    {2, Qt::Key_Home},
    {2, Qt::Key_End, ShiftModifier},
    {1, Qt::Key_PageUp},
    {1, Qt::Key_PageDown},
    {1, Qt::Key_Menu},
    {1, Qt::Key_Insert, ShiftModifier},
};

Key keyOf(const KeyRow& row) { return {row.key, row.modifiers, QString::fromUtf8(row.text)}; }

/// What is typed, pasted and composed.
constexpr const char32_t* texts[] = {
    U"a",
    U"Mei Ling",
    U"12",
    U"9999",
    U"40001",
    U"x@y.org",
    U"\u00e9\u00df\u00c5",
    U"\u4e2d\u6587",
    U"\U0001F004\U0001F600",
    U"e\u0301\u0302\u0303",
    U"\u202e\u05d0\u0628",
    U"line\nline\r\n\tline",
    U"\x01\x7f\u0085\u2028\ufeff",
    U"\"'<>&%s%n\\",
    U"",
    U"a text that is longer than any of the fields has room for, and goes on and on, with 1234567890 at its end",
};

/// The windows on the screen, in the order of their making.
std::vector<QWindow*> windows() {
    std::vector<QWindow*> all;
    for (QWindow* const each : QGuiApplication::topLevelWindows())
        if (each->isVisible() && each->handle() != nullptr && each->type() != Qt::ToolTip) all.push_back(each);
    return all;
}

QWidget* widgetOf(const QWindow& window) {
    for (QWidget* const each : QApplication::topLevelWidgets())
        if (each->windowHandle() == &window) return each;
    return nullptr;
}

/// Any pixel of a window or of a part of it.
template <class Area>
QPointF anyPlaceOn(const Area& area, tools::Dice& dice) {
    return QPointF(dice.below(std::max(1, area.width())), dice.below(std::max(1, area.height())));
}

constexpr int rarely = 40;  // A click hits Exit once in so many times.

bool isExit(const QWidget& face) { return face.toolTip() == QStringLiteral("Exit"); }

constexpr Qt::MouseButton buttons[] = {Qt::LeftButton, Qt::LeftButton, Qt::LeftButton,  Qt::LeftButton,
                                       Qt::LeftButton, Qt::LeftButton, Qt::RightButton, Qt::MiddleButton};

/// A menu or list that is open takes the mouse from all others.
QWindow* anyWindow(const Whims& w) {
    if (const QWidget* const popup = QApplication::activePopupWidget()) return popup->windowHandle();
    const std::vector<QWindow*> all = windows();
    return all.empty() ? nullptr : w.dice.oneOf(all);
}

/// Once, twice, or with a button that stays down.
void click(const Whims& w, QWindow& window, const QPointF& at) {
    const QPointer<QWindow> target(&window);
    const Qt::MouseButton button = w.dice.oneOf(buttons);
    const int times = w.dice.oneIn(5) ? w.dice.between(2, 4) : 1;
    const bool staysDown = w.dice.oneIn(12);
    const Qt::KeyboardModifiers modifiers = w.dice.oneIn(10) ? Qt::KeyboardModifiers(ShiftModifier) : NoModifier;
    for (int time = 1; time <= times && target && target->isVisible(); ++time) {
        w.hands.buttonDown(*target, at, button, modifiers);
        if (time == times && staysDown) return;
        letTimePass(20);
        w.hands.buttonUp(button);
        letTimePass(20);
    }
}

void clickOnTool(const Whims& w) {
    const int button = w.dice.between(1, toolbarButtons);
    const bool isAvoided = button == Button::Gap || (button == Button::Exit && !w.dice.oneIn(rarely));
    if (isAvoided || !w.hands.window().isVisible()) return;
    const QWidget& face = album::faceOf(w.hands.window(), button);
    w.tell("click on " + face.toolTip().toStdString());
    click(w, *w.hands.window().windowHandle(), face.mapTo(&w.hands.window(), QPointF(face.rect().center())));
}

/// Something that is seen of a window; null if it is Exit.
QWidget* anyFaceOf(const Whims& w, const QWindow& window) {
    QWidget* const widget = widgetOf(window);
    if (widget == nullptr) return nullptr;
    std::vector<QWidget*> faces{widget};
    for (QWidget* const each : widget->findChildren<QWidget*>())
        if (each->isVisible()) faces.push_back(each);
    QWidget* const face = w.dice.oneOf(faces);
    return isExit(*face) && !w.dice.oneIn(rarely) ? nullptr : face;
}

void clickOnFace(const Whims& w) {
    QWindow* const window = anyWindow(w);
    const QWidget* const face = window != nullptr ? anyFaceOf(w, *window) : nullptr;
    if (face == nullptr) return;
    const QPointF at = anyPlaceOn(*face, w.dice);
    w.tell(std::string("click on a ") + face->metaObject()->className() + " " + face->toolTip().toStdString());
    click(w, *window, face->mapTo(face->window(), at));
}

void clickAnywhere(const Whims& w) {
    QWindow* const window = anyWindow(w);
    if (window == nullptr) return;
    const bool isBeside = w.dice.oneIn(6);
    const int reach = isBeside ? 100 : 0;
    const QPoint at(w.dice.between(-reach, window->width() + reach), w.dice.between(-reach, window->height() + reach));
    w.tell("click at " + std::to_string(at.x()) + " " + std::to_string(at.y()) + " of " +
           window->title().toStdString());
    click(w, *window, at);
}

void move(const Whims& w) {
    QWindow* const window = anyWindow(w);
    if (window == nullptr) return;
    w.tell("move");
    w.hands.pointTo(*window, anyPlaceOn(*window, w.dice));
}

void drag(const Whims& w) {
    w.tell(w.hands.buttonIsDown() ? "drag and let go" : "take hold");
    if (!w.hands.buttonIsDown()) {
        if (QWindow* const window = anyWindow(w))
            w.hands.buttonDown(*window, anyPlaceOn(*window, w.dice), Qt::LeftButton);
        return;
    }
    w.hands.drag(QPointF(w.dice.between(-20, 800), w.dice.between(-20, 600)));
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) w.hands.buttonUp(button);
}

void turnWheel(const Whims& w) {
    QWindow* const window = anyWindow(w);
    if (window == nullptr) return;
    constexpr int angles[] = {120, -120, 240, -240, 15, -60, 0};
    const int angle = w.dice.oneOf(angles);
    const bool zooms = w.dice.oneIn(3);
    w.tell("wheel " + std::to_string(angle) + (zooms ? " with Ctrl" : ""));
    w.hands.turnWheel(*window, anyPlaceOn(*window, w.dice), angle,
                      zooms ? Qt::KeyboardModifiers(ControlModifier) : NoModifier);
}

void tapKey(const Whims& w) {
    const Key key = keyOf(w.dice.oneByWeight(keys));
    if (!w.hands.holds(key.key)) w.tap(key);
}

void holdKey(const Whims& w) {
    const Key key = keyOf(w.dice.oneByWeight(keys));
    if (w.hands.holds(key.key)) return;
    w.tell("hold " + nameOf(key));
    w.hands.hold(key);
}

void repeatKey(const Whims& w) {
    if (w.hands.held().empty()) return holdKey(w);
    const auto* const row = std::ranges::find(keys, w.dice.oneOf(w.hands.held()), &KeyRow::key);
    const bool isMarked = !w.dice.oneIn(3);
    w.tell("repeat " + nameOf(keyOf(*row)));
    for (int times = w.dice.between(1, 6); times > 0 && w.hands.holds(row->key); --times)
        w.hands.repeat(keyOf(*row), isMarked);
}

void letKeyGo(const Whims& w) {
    if (w.hands.held().empty()) return;
    const Qt::Key key = w.dice.oneOf(w.hands.held());
    w.tell("let go " + QString::number(key, 16).toStdString());
    w.hands.letGo(key);
}

void typeText(const Whims& w) {
    const std::u32string text = w.dice.oneOf(texts);
    for (const char32_t character : text.substr(0, static_cast<size_t>(w.dice.between(1, 12))))
        if (character >= ' ' && !w.hands.holds(keyFor(character).key)) w.tap(keyFor(character));
}

void paste(const Whims& w) {
    QString text = QString::fromStdU32String(w.dice.oneOf(texts));
    if (w.dice.oneIn(8)) text = text.repeated(200);
    if (w.dice.oneIn(8)) text.append(QChar(0xD83C));  // Half a character.
    w.tell("copy so many: " + std::to_string(text.size()));
    QGuiApplication::clipboard()->setText(text);
    w.tap({Qt::Key_V, ControlModifier});
}

/// An input method talks to whatever has Qt's focus and takes text.
void compose(const Whims& w) {
    QObject* const target = QGuiApplication::focusObject();
    if (target == nullptr) return;
    QInputMethodQueryEvent asked(Qt::ImEnabled);
    QCoreApplication::sendEvent(target, &asked);
    if (!asked.value(Qt::ImEnabled).toBool()) return;
    const QString text = QString::fromStdU32String(w.dice.oneOf(texts));
    const int step = w.dice.below(4);
    w.tell("compose, step " + std::to_string(step));
    QInputMethodEvent event(step < 2 ? text : QString(), {});
    if (step % 2 == 1) event.setCommitString(text, -w.dice.below(3), w.dice.below(3));
    QCoreApplication::sendEvent(target, &event);
}

void lookAway(const Whims& w) {
    w.tell("look away");
    QWindowSystemInterface::handleWindowActivated<Now>(nullptr);
}

void lookBack(const Whims& w) {
    const std::vector<QWindow*> all = windows();
    if (all.empty()) return;
    QWindow& window = *w.dice.oneOf(all);
    if (window.type() == Qt::Popup || &window == QGuiApplication::focusWindow()) return;
    w.tell("look at " + window.title().toStdString());
    QWindowSystemInterface::handleWindowActivated<Now>(&window);
}

void minimise(const Whims& w) {
    w.tell("minimise");
    w.hands.window().showMinimized();
    QWindowSystemInterface::handleWindowActivated<Now>(nullptr);
}

void fill(const Whims& w) {
    w.tell("fill");
    w.hands.window().isMaximized() ? w.hands.window().showNormal() : w.hands.window().showMaximized();
}

void resize(const Whims& w) {
    w.tell("resize");
    w.hands.window().windowHandle()->resize(w.dice.between(300, 1400), w.dice.between(200, 1100));
}

void moveWindow(const Whims& w) {
    const auto screens = QGuiApplication::screens();
    const QRect place = w.dice.oneOf(screens)->geometry();
    w.tell("move the window to " + std::to_string(place.x()));
    w.hands.window().move(place.topLeft() + QPoint(w.dice.below(300), w.dice.below(200)));
}

/// What the desktop's frame has a button for: the help, a message.
void closeOther(const Whims& w) {
    QWindow* const window = anyWindow(w);
    if (window == nullptr || window == w.hands.window().windowHandle()) return;
    w.tell("close " + window->title().toStdString());
    QWindowSystemInterface::handleCloseEvent<Now>(window);
}

/// A screen reader asks what is there, and may press it.
void listen(const Whims& w) {
    QWindow* const window = anyWindow(w);
    QWidget* const widget = window != nullptr ? anyFaceOf(w, *window) : nullptr;
    QAccessibleInterface* const face =
        QAccessible::isActive() && widget != nullptr ? QAccessible::queryAccessibleInterface(widget) : nullptr;
    if (face == nullptr) return;
    w.tell("listen to " + face->text(QAccessible::Name).toStdString());
    for (int child = 0; child < face->childCount(); ++child)
        if (const QAccessibleInterface* const each = face->child(child)) each->text(QAccessible::Description);
    QAccessibleActionInterface* const actions = face->actionInterface();
    if (actions != nullptr && !actions->actionNames().isEmpty() && w.dice.oneIn(3))
        actions->doAction(actions->actionNames().first());
}

void waitFor(const Whims& w, int least, int most) {
    const int time = w.dice.between(least, most);
    w.tell("wait " + std::to_string(time));
    letTimePass(time);
}

void wait(const Whims& w) { waitFor(w, 1, 100); }
void waitLong(const Whims& w) { waitFor(w, 100, 2500); }

/// What may be done, and how often beside the others.
struct WhimRow {
    int weight;
    void (*does)(const Whims& w);
};

constexpr WhimRow whims[] = {
    {60, tapKey},    {8, holdKey},     {16, repeatKey},   {10, letKeyGo},     {10, typeText}, {4, paste},
    {6, compose},    {8, clickOnTool}, {20, clickOnFace}, {8, clickAnywhere}, {8, move},      {4, drag},
    {4, turnWheel},  {2, lookAway},    {8, lookBack},     {1, minimise},      {2, fill},      {1, resize},
    {2, moveWindow}, {2, closeOther},  {4, listen},       {20, wait},         {3, waitLong},
};

}  // namespace

void Whims::act() const { dice.oneByWeight(whims).does(*this); }

void Whims::comeBack() const {
    while (!hands.held().empty()) hands.letGo(*hands.held().begin());
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) hands.buttonUp(button);
    if (hands.window().isMinimized()) hands.window().showNormal();
    if (QApplication::activePopupWidget() == nullptr && QGuiApplication::focusWindow() != hands.window().windowHandle())
        QWindowSystemInterface::handleWindowActivated<Now>(hands.window().windowHandle());
}

bool Whims::isAtRest() const {
    const QWindow* const focus = QGuiApplication::focusWindow();
    const bool hasKeyboard =
        focus == hands.window().windowHandle() || (focus != nullptr && platform::desk().boxIsOpen());
    return hands.held().empty() && !hands.buttonIsDown() && !hands.window().isMinimized() && hasKeyboard;
}

}  // namespace wild
