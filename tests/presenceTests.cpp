// When the desktop says that the player is away from the game, and when it says nothing.

#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QTest>
#include <QWidget>
#include <QWindow>

#include "platform/desktop.h"
#include "platform/qt/controls/control.h"
#include "platform/qt/window/formWindow.h"
#include "tests/contractFixture.h"

namespace {

using namespace platform;

class Presence : public Contract {
  protected:
    Presence() {
        start(timer_, 10, [this] { ++ticks_; });
    }

    QWidget* window() { return qt::windowOf(main_->form)->window(); }

    bool ticks() {
        ticks_ = 0;
        driver::run(100);
        return ticks_ > 0;
    }

    Timer timer_;
    int ticks_ = 0;
};

TEST_F(Presence, AMinimisedGameWaitsWhoeverHasTheKeyboard) {
    showMain();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
    for (int time = 0; time < 2; ++time) {
        EXPECT_TRUE(ticks());
        window()->setWindowState(Qt::WindowMinimized);
        QApplication::setActiveWindow(window());
        EXPECT_FALSE(ticks());
        window()->setWindowState(Qt::WindowNoState);
        window()->activateWindow();
    }
    EXPECT_TRUE(ticks());
}

TEST_F(Presence, MenusAndMessageBoxesAreTheGamesOwn) {
    showMain();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
    Label label(main_->form, {0, 50, 100, 20});
    label.setText("Paused");
    QMenu menu(window());
    menu.addAction("Easy");
    QMessageBox box(QMessageBox::Warning, "Program", "Text", QMessageBox::Ok, window());
    box.setModal(false);
    QMessageBox elsewhere(QMessageBox::Warning, "Another program", "Text");
    for (QWidget* const each : std::initializer_list<QWidget*>{&menu, &box, &elsewhere}) {
        each->show();
        each->activateWindow();
        ASSERT_TRUE(QTest::qWaitFor([&] { return QGuiApplication::focusWindow() == each->windowHandle(); }));
        EXPECT_EQ(ticks(), each != &elsewhere) << qPrintable(each->windowTitle());
        EXPECT_EQ(window()->findChild<QLabel*>()->isVisible(), each != &elsewhere) << "a label goes with the player";
        each->hide();
        window()->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
    }
}

/// Makes each window one that this desktop never activates.
class NeverActive : public QObject {
    bool eventFilter(QObject* watched, QEvent* event) override {
        QWindow* const made =
            event->type() == QEvent::WinIdChange ? static_cast<QWidget*>(watched)->windowHandle() : nullptr;
        if (made != nullptr) made->setFlags(Qt::ToolTip);
        return false;
    }
};

TEST_F(Presence, WhereNoActivationIsToldTheGamePlays) {
    NeverActive neverActive;
    main_ = std::make_unique<Window>();
    main_->form.resize(300 * twips, 200 * twips);
    qApp->installEventFilter(&neverActive);
    main_->form.show();
    driver::run(20);
    ASSERT_FALSE(window()->isActiveWindow());
    EXPECT_TRUE(ticks());
    driver::goAway();
    EXPECT_TRUE(ticks());
}

TEST_F(Presence, WithItsWindowGoneNobodyIsAway) {
    showMain();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
    driver::goAway();
    EXPECT_FALSE(ticks());
    main_->form.unload();
    EXPECT_TRUE(ticks());
    showMain();
    EXPECT_TRUE(ticks());
}

}  // namespace
