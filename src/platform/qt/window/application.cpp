#include "platform/qt/window/application.h"

#include <fcntl.h>
#include <unistd.h>

#include <QApplication>
#include <QIcon>
#include <QScreen>
#include <QSocketNotifier>
#include <QTimer>
#include <QWindow>
#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <functional>
#include <utility>

#include "platform/base/process.h"
#include "platform/base/uncaught.h"
#include "platform/pictures.h"
#include "platform/qt/window/accessible.h"
#include "platform/qt/window/formStack.h"
#include "platform/qt/window/formWindow.h"
#include "platform/qt/window/images.h"
#include "platform/qt/window/zoom.h"

namespace platform {
namespace {

QIcon iconOf(const std::string& id) {
    const std::string iconPrefix = id + "-";
    QIcon icon;
    for (const StoredPicture& stored : storedPictures())
        if (stored.name.starts_with(iconPrefix)) icon.addPixmap(QPixmap::fromImage(qt::imageOf(stored.picture)));
    return icon;
}

/// What Qt says while it looks for a display. It would give up with several lines of its own and a crash.
void hearOfDisplay(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (type == QtDebugMsg)  // Somebody has asked for it, by a variable.
        std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, message)));
    if (type != QtFatalMsg) return;
    std::fprintf(stderr, "%s: There is no display to open a window on.\n",
                 qPrintable(QCoreApplication::applicationName()));
    std::_Exit(1);
}

std::array<int, 2> ends{-1, -1};  // of the pipe from the signal handler to the event loop

/// Only a write is allowed here: the signal may have come in the middle of anything.
void tellLoop(int /*signal*/) {
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(ends[1], &byte, 1);
}

/// Unloads the main window, from the event loop, when an interrupt or a termination signal has asked the program to
/// end. The first signal does so; a second one ends the process at once. One that the program was started to ignore, as
/// nohup does for a terminal that goes away, stays ignored.
void heedEndSignals() {
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
    auto* const notifier = new QSocketNotifier(ends[0], QSocketNotifier::Read, QCoreApplication::instance());
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, [notifier] {
        notifier->setEnabled(false);
        if (Form* const main = mainForm()) main->unload();
    });
    struct sigaction action {};
    action.sa_handler = tellLoop;
    action.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction before {};
        sigaction(signal, nullptr, &before);
        if (before.sa_handler != SIG_IGN) sigaction(signal, &action, nullptr);
    }
}

/// Tells of what no handler has caught, such as a lack of memory while Qt lays out a text, and goes on. Qt itself would
/// end the program.
class GuardedApplication : public QApplication {
  public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override {
        try {
            return QApplication::notify(receiver, event);
        } catch (...) {
            tell();
        }
        return true;
    }

  private:
    /// One after the other: a box is of no use where the next picture of it fails too. And not before the event that
    /// has failed is over, which may be in the middle of a painting.
    void tell() {
        if (std::exchange(telling_, true)) return;
        try {
            QTimer::singleShot(0, this, [this, failure = std::current_exception()] { report(failure); });
        } catch (...) {  // There isn't even memory to tell it.
            telling_ = false;
        }
    }

    void report(const std::exception_ptr& failure) {
        try {
            callSlot(std::function<void()>([&] { std::rethrow_exception(failure); }));
        } catch (...) {  // The box has failed too.
        }
        telling_ = false;
    }

    bool telling_ = false;
};

/// A desktop of Wayland that is busy, or shows nothing of a window, asks for no picture of it. Qt would take the window
/// for hidden then after a moment, and not tell the size that it takes: maximised, the program would be ended for that.
void keepTellingSizes() { qputenv("QT_WAYLAND_FRAME_CALLBACK_TIMEOUT", "0"); }

QApplication* openDisplay(int& argc, char** argv) {
    const QtMessageHandler usual = qInstallMessageHandler(hearOfDisplay);
    QApplication* const application = new GuardedApplication(argc, argv);
    qInstallMessageHandler(usual);
    return application;
}

}  // namespace

Application::Application(int& argc, char** argv, const std::string& name, const std::string& id) {
    holdStandardStreams();
    takeWriteErrors();
    programName = name;
    keepTellingSizes();
    // Never deleted: forms that are let go at the very end still need it.
    QApplication* const application = openDisplay(argc, argv);
    setDensity(qt::densityFor(QGuiApplication::primaryScreen()->devicePixelRatio()));  // Before anything is drawn.
    QApplication::setApplicationName(QString::fromStdString(name));
    QApplication::setDesktopFileName(QString::fromStdString(id));
    QApplication::setQuitOnLastWindowClosed(false);  // A message box may come and go before the main window is seen.
    QApplication::setWindowIcon(iconOf(id));
    qt::startAccessibility();
    application->installEventFilter(&qt::formStack());
    QObject::connect(application, &QApplication::focusChanged, [] {
        if (qt::FormWindow* const form = qt::formStack().top()) form->followFocus();
    });
    QObject::connect(application, &QGuiApplication::focusWindowChanged, [] {
        qt::formStack().lookForPlayer();
        qt::formStack().bringBoxToFront();
    });
}

void Application::setZoom(double zoom) { qt::askForZoom(zoom); }

int Application::run() {
    heedEndSignals();
    qt::formStack().onMainWindowGone = [] { QApplication::exit(0); };
    return QApplication::exec();
}

}  // namespace platform
