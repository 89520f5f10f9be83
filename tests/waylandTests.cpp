// The game on a desktop of Wayland: a compositor of the test's own, without a screen and without a keyboard.

#include <sys/prctl.h>

#include <QBackingStore>
#include <QLocalSocket>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QWindow>
#include <csignal>

#include "platform/qt/window/zoom.h"
#include "tests/windowFixture.h"

namespace {

constexpr int longEnough = 20000;  // milliseconds that anything here may take at most

class Compositor {
  public:
    /// Runs as long as this process: Qt couldn't bear its end.
    Compositor() {
        qputenv("XDG_RUNTIME_DIR", folder_.path().toLocal8Bit());
        qputenv("WAYLAND_DISPLAY", "desktop");
        process_.setProcessChannelMode(QProcess::MergedChannels);
        process_.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });

        process_.start("weston", {"--backend=headless-backend.so", "--width=1300", "--height=1000", "--socket=desktop",
                                  "--no-config"});
        QLocalSocket program;
        for (int waited = 0; waited < longEnough && program.state() != QLocalSocket::ConnectedState; waited += 20) {
            QTest::qSleep(20);
            program.connectToServer(folder_.filePath("desktop"));
        }
        EXPECT_EQ(program.state(), QLocalSocket::ConnectedState) << process_.readAll().toStdString();
    }

    /// It does nothing for that long.
    void rest(int milliseconds) const {
        kill(static_cast<pid_t>(process_.processId()), SIGSTOP);
        QTest::qWait(milliseconds);
        kill(static_cast<pid_t>(process_.processId()), SIGCONT);
    }

  private:
    QTemporaryDir folder_;
    QProcess& process_ = *new QProcess;
};

class Wayland : public Window {
  protected:
    void SetUp() override {
        static const Compositor theCompositor;
        compositor = &theCompositor;
        desktop = "wayland";
        Window::SetUp();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(frame));
    }

    const Compositor* compositor;
};

TEST_F(Wayland, TheWindowTakesTheSizeThatItIsGiven) {
    const auto waitUntilPainted = [&] {
        waitFor([&] { return frame->backingStore()->size() == frame->size(); });
        QTest::qWait(300);
    };
    for (const Qt::WindowState state : {Qt::WindowMaximized, Qt::WindowFullScreen, Qt::WindowMaximized}) {
        window->update();
        frame->setWindowState(state);
        compositor->rest(200);
        EXPECT_TRUE(waitFor([&] { return platform::qt::zoom() == 1.5 && window->x() > 30; })) << "state " << state;
        EXPECT_EQ(window->size(), QSize(795, 581));
        waitUntilPainted();
        frame->setWindowState(Qt::WindowNoState);
        EXPECT_TRUE(waitFor([&] { return frame->size() == window->size() && platform::qt::zoom() == 1; }))
            << "after " << state;
        waitUntilPainted();
    }
    EXPECT_TRUE(frame->windowHandle()->isExposed());
}

TEST_F(Wayland, TheTileFallsWhereNothingHasTheKeyboard) {
    startMatch();
    nextTile(1);
    ASSERT_FALSE(window->isActiveWindow());
    EXPECT_TRUE(waitFor([&] { return game->mintCurRow > 2; }));
}

}  // namespace
