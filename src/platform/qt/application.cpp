#include "platform/qt/application.h"

#include <QApplication>
#include <QIcon>

#include "platform/qt/desk.h"
#include "platform/qt/images.h"
#include "platform/storedPictures.h"

namespace platform {
namespace {

constexpr char programName[] = "Velmora";
constexpr char desktopFile[] = "velmora";
constexpr std::string_view iconPrefix = "velmora-";  // followed by the size in pixels

QIcon programIcon() {
    QIcon icon;
    for (const StoredPicture& stored : storedPictures())
        if (stored.name.starts_with(iconPrefix)) icon.addPixmap(QPixmap::fromImage(qt::imageOf(stored.picture)));
    return icon;
}

}  // namespace

Application::Application(int& argc, char** argv) {
    // Never deleted: forms that are let go at the very end still need it.
    QApplication* const application = new QApplication(argc, argv);
    QApplication::setApplicationName(programName);
    QApplication::setDesktopFileName(desktopFile);
    QApplication::setQuitOnLastWindowClosed(false);  // A message box may come and go before the main window is seen.
    QApplication::setWindowIcon(programIcon());
    application->installEventFilter(&qt::desk());
}

int Application::run() {
    qt::desk().onMainWindowGone = [] { QApplication::exit(0); };
    return QApplication::exec();
}

}  // namespace platform
