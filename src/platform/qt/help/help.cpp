#include "platform/help.h"

#include <QPointer>
#include <fstream>
#include <iterator>

#include "platform/base/files.h"
#include "platform/desktop.h"
#include "platform/qt/controls/control.h"
#include "platform/qt/help/helpWindow.h"
#include "platform/qt/window/formWindow.h"

namespace platform {
namespace {

MakeHelpPicture makePicture = nullptr;
QPointer<qt::HelpWindow> viewer;  // made when the help is first asked for; closed, it keeps what was read

/// The text of the help file, or one that tells that there is none.
QString helpText(const std::string& file) {
    const std::string path = programFile(file);
    if (isOrdinaryFile(path)) {
        std::ifstream source(path, std::ios::binary);
        const QString text = QString::fromStdString({std::istreambuf_iterator<char>(source), {}});
        if (!text.trimmed().isEmpty()) return text;
    }
    return QString(
               "## There is no help text\n\nIt should be in this file, which is missing or can't be read:\n\n`%1`\n")
        .arg(QString::fromStdString(path));
}

}  // namespace

void WinHelpA(Form& window, const std::string& file, uint32_t command, uint32_t /*data*/) {
    if (command == HELP_QUIT) delete viewer;
    if (command != HELP_INDEX) return;
    if (!viewer) {
        viewer = new qt::HelpWindow(makePicture);
        viewer->setText(helpText(file));
    }
    viewer->goWith(qt::windowOf(window));
    viewer->bringToFront();
}

void setHelpPictures(MakeHelpPicture make) { makePicture = make; }

}  // namespace platform
