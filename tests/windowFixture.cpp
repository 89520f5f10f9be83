#include "tests/windowFixture.h"

#include <QApplication>
#include <QTest>
#include <QTimer>

#include "match/frmChooseSeat.h"
#include "platform/help.h"
#include "tests/application.h"

namespace {

constexpr int longEnough = 10000;  // milliseconds that anything here may take at most

}  // namespace

void Window::SetUp() {
    qputenv("SDL_AUDIODRIVER", "dummy");
    setUpApplication(desktop);
    game = gfrmMain.hold();
    game->form.show();
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (widget->isVisible() && widget->windowTitle() == "Velmora") window = widget;
    ASSERT_NE(window, nullptr);
}

void Window::TearDown() {
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
    auto* timer = new QTimer(window);
    QObject::connect(timer, &QTimer::timeout, window, [=] {
        if (!condition()) return;
        timer->deleteLater();
        timer->stop();
        action();
    });
    timer->start(10);
}

bool Window::waitFor(const std::function<bool()>& condition) { return QTest::qWaitFor(condition, longEnough); }

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
