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

struct WhimRow {
    int weight;
    void (Whims::*does)();
};

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

}  // namespace

Whims::Whims(Hands& hands, tools::Dice& dice, std::function<void(const Key&)> tap,
             std::function<void(const std::string&)> tell)
    : hands_(hands), dice_(dice), tap_(std::move(tap)), tell_(std::move(tell)) {}

void Whims::act() {
    static constexpr WhimRow rows[] = {
        {60, &Whims::tapKey},      {8, &Whims::holdKey},       {16, &Whims::repeatKey}, {10, &Whims::letKeyGo},
        {10, &Whims::typeText},    {4, &Whims::paste},         {6, &Whims::compose},    {8, &Whims::clickOnTool},
        {20, &Whims::clickOnFace}, {8, &Whims::clickAnywhere}, {8, &Whims::move},       {4, &Whims::drag},
        {4, &Whims::turnWheel},    {2, &Whims::lookAway},      {8, &Whims::lookBack},   {1, &Whims::minimise},
        {2, &Whims::fill},         {1, &Whims::resize},        {2, &Whims::moveWindow}, {2, &Whims::closeOther},
        {4, &Whims::listen},       {20, &Whims::wait},         {3, &Whims::waitLong},
    };
    (this->*dice_.oneByWeight(rows).does)();
}

/// A menu or list that is open takes the mouse from all others.
QWindow* Whims::anyWindow() {
    if (const QWidget* const popup = QApplication::activePopupWidget()) return popup->windowHandle();
    const std::vector<QWindow*> all = windows();
    return all.empty() ? nullptr : dice_.oneOf(all);
}

void Whims::clickOnTool() {
    const int button = dice_.between(1, toolbarButtons);
    const bool isAvoided = button == Button::Gap || (button == Button::Exit && !dice_.oneIn(rarely));
    if (isAvoided || !hands_.window().isVisible()) return;
    const QWidget& face = album::faceOf(hands_.window(), button);
    tell_("click on " + face.toolTip().toStdString());
    click(*hands_.window().windowHandle(), face.mapTo(&hands_.window(), QPointF(face.rect().center())));
}

/// Something that is seen of a window; null if it is Exit.
QWidget* Whims::anyFaceOf(const QWindow& window) {
    QWidget* const widget = widgetOf(window);
    if (widget == nullptr) return nullptr;
    std::vector<QWidget*> faces{widget};
    for (QWidget* const each : widget->findChildren<QWidget*>())
        if (each->isVisible()) faces.push_back(each);
    QWidget* const face = dice_.oneOf(faces);
    return isExit(*face) && !dice_.oneIn(rarely) ? nullptr : face;
}

void Whims::clickOnFace() {
    QWindow* const window = anyWindow();
    const QWidget* const face = window != nullptr ? anyFaceOf(*window) : nullptr;
    if (face == nullptr) return;
    const QPointF at = anyPlaceOn(*face, dice_);
    tell_(std::string("click on a ") + face->metaObject()->className() + " " + face->toolTip().toStdString());
    click(*window, face->mapTo(face->window(), at));
}

void Whims::clickAnywhere() {
    QWindow* const window = anyWindow();
    if (window == nullptr) return;
    const bool isBeside = dice_.oneIn(6);
    const int reach = isBeside ? 100 : 0;
    const QPoint at(dice_.between(-reach, window->width() + reach), dice_.between(-reach, window->height() + reach));
    tell_("click at " + std::to_string(at.x()) + " " + std::to_string(at.y()) + " of " + window->title().toStdString());
    click(*window, at);
}

/// Once, twice, or with a button that stays down.
void Whims::click(QWindow& window, const QPointF& at) {
    const QPointer<QWindow> target(&window);
    const Qt::MouseButton button = dice_.oneOf(buttons);
    const int times = dice_.oneIn(5) ? dice_.between(2, 4) : 1;
    const bool staysDown = dice_.oneIn(12);
    const Qt::KeyboardModifiers modifiers = dice_.oneIn(10) ? Qt::KeyboardModifiers(ShiftModifier) : NoModifier;
    for (int time = 1; time <= times && target && target->isVisible(); ++time) {
        hands_.buttonDown(*target, at, button, modifiers);
        if (time == times && staysDown) return;
        letTimePass(20);
        hands_.buttonUp(button);
        letTimePass(20);
    }
}

void Whims::move() {
    QWindow* const window = anyWindow();
    if (window == nullptr) return;
    tell_("move");
    hands_.pointTo(*window, anyPlaceOn(*window, dice_));
}

void Whims::drag() {
    tell_(hands_.buttonIsDown() ? "drag and let go" : "take hold");
    if (!hands_.buttonIsDown()) {
        if (QWindow* const window = anyWindow()) hands_.buttonDown(*window, anyPlaceOn(*window, dice_), Qt::LeftButton);
        return;
    }
    hands_.drag(QPointF(dice_.between(-20, 800), dice_.between(-20, 600)));
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) hands_.buttonUp(button);
}

void Whims::turnWheel() {
    QWindow* const window = anyWindow();
    if (window == nullptr) return;
    constexpr int angles[] = {120, -120, 240, -240, 15, -60, 0};
    const int angle = dice_.oneOf(angles);
    const bool zooms = dice_.oneIn(3);
    tell_("wheel " + std::to_string(angle) + (zooms ? " with Ctrl" : ""));
    hands_.turnWheel(*window, anyPlaceOn(*window, dice_), angle,
                     zooms ? Qt::KeyboardModifiers(ControlModifier) : NoModifier);
}

void Whims::tapKey() {
    const Key key = keyOf(dice_.oneByWeight(keys));
    if (!hands_.holds(key.key)) tap_(key);
}

void Whims::holdKey() {
    const Key key = keyOf(dice_.oneByWeight(keys));
    if (hands_.holds(key.key)) return;
    tell_("hold " + nameOf(key));
    hands_.hold(key);
}

void Whims::repeatKey() {
    if (hands_.held().empty()) return holdKey();
    const auto* const row = std::ranges::find(keys, dice_.oneOf(hands_.held()), &KeyRow::key);
    const bool isMarked = !dice_.oneIn(3);
    tell_("repeat " + nameOf(keyOf(*row)));
    for (int times = dice_.between(1, 6); times > 0 && hands_.holds(row->key); --times)
        hands_.repeat(keyOf(*row), isMarked);
}

void Whims::letKeyGo() {
    if (hands_.held().empty()) return;
    const Qt::Key key = dice_.oneOf(hands_.held());
    tell_("let go " + QString::number(key, 16).toStdString());
    hands_.letGo(key);
}

void Whims::typeText() {
    const std::u32string text = dice_.oneOf(texts);
    for (const char32_t character : text.substr(0, static_cast<size_t>(dice_.between(1, 12))))
        if (character >= ' ' && !hands_.holds(keyFor(character).key)) tap_(keyFor(character));
}

void Whims::paste() {
    QString text = QString::fromStdU32String(dice_.oneOf(texts));
    if (dice_.oneIn(8)) text = text.repeated(200);
    if (dice_.oneIn(8)) text.append(QChar(0xD83C));  // Half a character.
    tell_("copy so many: " + std::to_string(text.size()));
    QGuiApplication::clipboard()->setText(text);
    tap_({Qt::Key_V, ControlModifier});
}

/// An input method talks to whatever has Qt's focus and takes text.
void Whims::compose() {
    QObject* const target = QGuiApplication::focusObject();
    if (target == nullptr) return;
    QInputMethodQueryEvent asked(Qt::ImEnabled);
    QCoreApplication::sendEvent(target, &asked);
    if (!asked.value(Qt::ImEnabled).toBool()) return;
    const QString text = QString::fromStdU32String(dice_.oneOf(texts));
    const int step = dice_.below(4);
    tell_("compose, step " + std::to_string(step));
    QInputMethodEvent event(step < 2 ? text : QString(), {});
    if (step % 2 == 1) event.setCommitString(text, -dice_.below(3), dice_.below(3));
    QCoreApplication::sendEvent(target, &event);
}

void Whims::lookAway() {
    tell_("look away");
    QWindowSystemInterface::handleWindowActivated<Now>(nullptr);
}

void Whims::lookBack() {
    const std::vector<QWindow*> all = windows();
    if (all.empty()) return;
    QWindow& window = *dice_.oneOf(all);
    if (window.type() == Qt::Popup || &window == QGuiApplication::focusWindow()) return;
    tell_("look at " + window.title().toStdString());
    QWindowSystemInterface::handleWindowActivated<Now>(&window);
}

void Whims::minimise() {
    tell_("minimise");
    hands_.window().showMinimized();
    QWindowSystemInterface::handleWindowActivated<Now>(nullptr);
}

void Whims::fill() {
    tell_("fill");
    hands_.window().isMaximized() ? hands_.window().showNormal() : hands_.window().showMaximized();
}

void Whims::resize() {
    tell_("resize");
    hands_.window().windowHandle()->resize(dice_.between(300, 1400), dice_.between(200, 1100));
}

void Whims::moveWindow() {
    const auto screens = QGuiApplication::screens();
    const QRect place = dice_.oneOf(screens)->geometry();
    tell_("move the window to " + std::to_string(place.x()));
    hands_.window().move(place.topLeft() + QPoint(dice_.below(300), dice_.below(200)));
}

/// What the desktop's frame has a button for: the help, a message.
void Whims::closeOther() {
    QWindow* const window = anyWindow();
    if (window == nullptr || window == hands_.window().windowHandle()) return;
    tell_("close " + window->title().toStdString());
    QWindowSystemInterface::handleCloseEvent<Now>(window);
}

/// A screen reader asks what is there, and may press it.
void Whims::listen() {
    QWindow* const window = anyWindow();
    QWidget* const widget = window != nullptr ? anyFaceOf(*window) : nullptr;
    QAccessibleInterface* const face =
        QAccessible::isActive() && widget != nullptr ? QAccessible::queryAccessibleInterface(widget) : nullptr;
    if (face == nullptr) return;
    tell_("listen to " + face->text(QAccessible::Name).toStdString());
    for (int child = 0; child < face->childCount(); ++child)
        if (const QAccessibleInterface* const each = face->child(child)) each->text(QAccessible::Description);
    QAccessibleActionInterface* const actions = face->actionInterface();
    if (actions != nullptr && !actions->actionNames().isEmpty() && dice_.oneIn(3))
        actions->doAction(actions->actionNames().first());
}

void Whims::waitFor(int least, int most) {
    const int time = dice_.between(least, most);
    tell_("wait " + std::to_string(time));
    letTimePass(time);
}

void Whims::comeBack() {
    while (!hands_.held().empty()) hands_.letGo(*hands_.held().begin());
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) hands_.buttonUp(button);
    if (hands_.window().isMinimized()) hands_.window().showNormal();
    if (QApplication::activePopupWidget() == nullptr &&
        QGuiApplication::focusWindow() != hands_.window().windowHandle())
        QWindowSystemInterface::handleWindowActivated<Now>(hands_.window().windowHandle());
}

bool Whims::isAtRest() const {
    const QWindow* const focus = QGuiApplication::focusWindow();
    const bool hasKeyboard =
        focus == hands_.window().windowHandle() || (focus != nullptr && platform::desk().boxIsOpen());
    return hands_.held().empty() && !hands_.buttonIsDown() && !hands_.window().isMinimized() && hasKeyboard;
}

}  // namespace wild
