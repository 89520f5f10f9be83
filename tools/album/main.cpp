// Plays on the real window by its keys, in a clock of its own, and takes pictures of all that a match shows.

#include <QApplication>
#include <QDir>
#include <algorithm>
#include <cstdio>

#include "frmMain.h"
#include "platform/base/process.h"
#include "platform/qt/window/application.h"
#include "product.h"
#include "tools/album/album.h"
#include "tools/album/pictures.h"

namespace {

QWidget* mainWindow() {
    const QWidgetList windows = QApplication::topLevelWidgets();
    return *std::find_if(windows.begin(), windows.end(), [](const QWidget* each) { return each->isVisible(); });
}

bool isPicture(const QString& name) {
    const auto rows = album::pictures();
    return std::any_of(rows.begin(), rows.end(), [&](const album::PictureRow& row) { return name == row.name; });
}

/// Says how the program is called, and returns the exit code to end with.
int explain(bool isAskedFor) {
    std::FILE* const out = isAskedFor ? stdout : stderr;
    std::fputs(
        "Usage: velmora_album [--screen] FOLDER [PICTURE]...\n"
        "  --screen   take the whole screen, where the desktop lets it be seen\n"
        "  --help     show this and do nothing\n"
        "Pictures:",
        out);
    for (const album::PictureRow& row : album::pictures()) std::fprintf(out, " %s", row.name);
    std::fputs("\n", out);
    return isAskedFor ? platform::endOutput("velmora_album", 0) : 2;
}

}  // namespace

int main(int argc, char** argv) {
    // Without a display, unless somebody wants to watch: the pictures are then the same on every desktop.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("SDL_AUDIODRIVER", "dummy");
    platform::Application application(argc, argv, PRODUCT_NAME, PRODUCT_ID);
    QStringList arguments = QApplication::arguments();
    const bool ofScreen = arguments.removeOne("--screen");
    if (arguments.contains("--help")) return explain(true);
    const bool hasFolder = arguments.size() > 1 && !arguments[1].startsWith("--");
    if (!hasFolder || !std::all_of(arguments.begin() + 2, arguments.end(), isPicture)) return explain(false);
    if (!QDir().mkpath(arguments[1])) {
        std::fprintf(stderr, "velmora_album: can't make %s\n", qPrintable(arguments[1]));
        return 1;
    }
    const auto game = gfrmMain.hold();
    game->form.show();
    const album::Album pictures(mainWindow(), arguments[1], arguments.mid(2), ofScreen);
    return application.run();
}
