#include "platform/qt/window/application.h"

#include <QApplication>
#include <QIcon>
#include <QWindow>
#include <cstdio>
#include <cstdlib>

#include "platform/base/uncaught.h"
#include "platform/pictures.h"
#include "platform/qt/window/accessible.h"
#include "platform/qt/window/fonts.h"
#include "platform/qt/window/formStack.h"
#include "platform/qt/window/formWindow.h"
#include "platform/qt/window/images.h"
#include "platform/qt/window/presence.h"
#include "platform/qt/window/signals.h"

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

/// Sees to the desktop's font as the first window comes that is lettered in it.
class FontWatch : public QObject {
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Polish) return false;
        const auto* const widget = qobject_cast<QWidget*>(watched);
        if (!widget || !widget->isWindow() || dynamic_cast<const qt::FormWindow*>(widget)) return false;
        qApp->removeEventFilter(this);
        deleteLater();
        qt::makeUpForMissingFonts();
        return false;
    }
};

QApplication* openDisplay(int& argc, char** argv) {
    const QtMessageHandler usual = qInstallMessageHandler(hearOfDisplay);
    QApplication* const application = new QApplication(argc, argv);
    qInstallMessageHandler(usual);
    return application;
}

}  // namespace

Application::Application(int& argc, char** argv, const std::string& name, const std::string& id) {
    programName = name;
    // Never deleted: forms that are let go at the very end still need it.
    QApplication* const application = openDisplay(argc, argv);
    QApplication::setApplicationName(QString::fromStdString(name));
    QApplication::setDesktopFileName(QString::fromStdString(id));
    QApplication::setQuitOnLastWindowClosed(false);  // A message box may come and go before the main window is seen.
    QApplication::setWindowIcon(iconOf(id));
    application->installEventFilter(new FontWatch);
    qt::startAccessibility();
    application->installEventFilter(&qt::formStack());
    QObject::connect(application, &QApplication::focusChanged, [] {
        if (qt::FormWindow* const form = qt::formStack().top()) form->followFocus();
    });
    QObject::connect(application, &QGuiApplication::focusWindowChanged, [] {
        qt::presence().look();
        qt::formStack().bringBoxToFront();
    });
}

int Application::run() {
    qt::onEndSignal([] {
        if (Form* const main = mainForm()) main->unload();
    });
    qt::formStack().onMainWindowGone = [] { QApplication::exit(0); };
    return QApplication::exec();
}

}  // namespace platform
