// What the start costs in processor time, from the first instruction to the first picture of the table, beside a bare
// window of the same size with a toolbar. Each is started a number of times in turn; the least of each counts.

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QApplication>
#include <QPainter>
#include <QTimer>
#include <QToolBar>
#include <algorithm>
#include <cstdio>
#include <cstring>

#include "frmMain.h"
#include "platform/qt/window/application.h"

namespace {

constexpr int starts = 15;

class BareWindow : public QWidget {
    void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(rect(), Qt::darkGreen); }
};

/// Ends the process when all that is to be painted has been.
void endAfterFirstPicture() {
    QApplication::processEvents();
    std::_Exit(0);
}

void startBare(int argc, char** argv) {
    QApplication application(argc, argv);
    BareWindow window;
    window.setFixedSize(795, 581);
    QToolBar bar(&window);
    bar.setFixedSize(795, 28);
    for (int i = 0; i < 15; ++i) bar.addAction(QString::number(i));
    window.show();
    endAfterFirstPicture();
}

void startGame(int argc, char** argv) {
    platform::Application application(argc, argv, "Velmora", "velmora");
    const auto game = gfrmMain.hold();
    game->form.show();
    endAfterFirstPicture();
}

double secondsOfChildren() {
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// Milliseconds of processor time of one start.
double measure(const char* program, const char* what) {
    const double before = secondsOfChildren();
    const pid_t child = fork();
    if (child == 0) {
        execl(program, program, what, nullptr);
        std::_Exit(127);
    }
    int status = 0;
    waitpid(child, &status, 0);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        std::fprintf(stderr, "%s didn't start\n", what);
        std::exit(1);
    }
    return (secondsOfChildren() - before) * 1000;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc > 1 && std::strcmp(argv[1], "bare") == 0) startBare(argc, argv);
    if (argc > 1 && std::strcmp(argv[1], "game") == 0) startGame(argc, argv);
    if (qEnvironmentVariableIsEmpty("DISPLAY")) setenv("QT_QPA_PLATFORM", "offscreen", 0);
    double bare = 1e9;
    double game = 1e9;
    for (int i = 0; i < starts; ++i) {
        bare = std::min(bare, measure("/proc/self/exe", "bare"));
        game = std::min(game, measure("/proc/self/exe", "game"));
    }
    std::printf("bare window %.1f ms, game %.1f ms, on top %.1f ms\n", bare, game, game - bare);
    return 0;
}
