#include "tests/windowFixture.h"

#include <QApplication>
#include <QTest>
#include <string_view>

#include "match/frmChooseSeat.h"
#include "platform/desktop.h"
#include "platform/help.h"
#include "tests/application.h"

namespace {

constexpr int longEnough = 30000;  // milliseconds that anything here may take at most

}  // namespace

void Window::SetUp() {
    qputenv("SDL_AUDIODRIVER", "dummy");
    setUpApplication(desktop);
    if (desktop == std::string_view("offscreen")) platform::qt::holdTime();
    game = gfrmMain.hold();
    game->form.show();
    window = platform::qt::windowOf(game->form);
    frame = window->window();
}

void Window::TearDown() {
    hands_.clear();
    platform::WinHelpA(game->form, "", platform::HELP_QUIT, 0);
    game.reset();
    gsClearAllForms();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void Window::click(const QString& toolTip) {
    for (QWidget* widget : window->findChildren<QWidget*>())
        if (widget->toolTip() == toolTip) return QTest::mouseClick(widget, Qt::LeftButton);
    FAIL() << "no button says " << qPrintable(toolTip);
}

void Window::press(Qt::Key key, Qt::KeyboardModifiers modifiers) { QTest::keyClick(window, key, modifiers); }

void Window::repeat(Qt::Key key) {
    QKeyEvent again(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
    QApplication::sendEvent(window, &again);
}

void Window::once(std::function<bool()> condition, std::function<void()> action) {
    const auto hand = hands_.emplace(hands_.end());
    hand->timer.onTick = [=, this] {
        if (!condition()) return;
        hands_.erase(hand);
        action();
    };
    hand->timer.setInterval(10);
    hand->timer.setEnabled(true);
}

bool Window::waitFor(const std::function<bool()>& condition) {
    for (int passed = 0; passed < longEnough && !condition(); ++passed) letPass(1);
    return QTest::qWaitFor(condition, longEnough);  // What the game's time has no part in.
}

void Window::letPass(int milliseconds) {
    for (int passed = 0; passed < milliseconds; ++passed) platform::doEvents();
}

QMessageBox* Window::box() { return qobject_cast<QMessageBox*>(QApplication::activeWindow()); }

void Window::bringToFront() {
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
}

void Window::startMatch() {
    whenOpen(gfrmChooseSeat, [this] { press(Qt::Key_Enter); });
    click("Start Anew");
    EXPECT_EQ(game->mintCurRow, noRow);
}

void Window::nextTile(int16_t kind) {
    int16_t tile = 1;
    while (game->TileKindOf[tile] != kind) ++tile;
    game->TileOrder[game->mintTilesDropped + 1] = tile;
    const int dropped = game->mintTilesDropped;
    ASSERT_TRUE(waitFor([&] { return game->mintTilesDropped > dropped && game->mintCurRow == 1; }));
}
