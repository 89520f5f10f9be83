#include "platform/desktop.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QGridLayout>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPointer>
#include <QScopeGuard>
#include <QScreen>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <random>
#include <system_error>

#include "platform/qt/window/clock.h"
#include "platform/qt/window/formStack.h"
#include "platform/qt/window/formWindow.h"
#include "platform/qt/window/zoom.h"

namespace platform {
namespace {

constexpr int titleBarButtons = 140;  // pixels beside the title of a window, on the wide side

std::mt19937_64 randomSource;

/// Makes a message box as wide as its title, which a short text would cut.
void makeRoomForTitle(QMessageBox& box) {
    auto* const grid = qobject_cast<QGridLayout*>(box.layout());
    if (grid == nullptr) return;
    const int width = box.fontMetrics().horizontalAdvance(box.windowTitle()) + titleBarButtons;
    grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

/// The game knows nothing of the zoom.
QSizeF screenSize() { return QSizeF(QGuiApplication::primaryScreen()->size()) * qt::zoom(); }

}  // namespace

void doEvents() {
    QCoreApplication::processEvents();
    qt::letMomentPass();
}

double secondsOfDay() { return qt::secondOfDay(); }

void seedRandom() {
    randomSource.seed(static_cast<uint64_t>(std::chrono::system_clock::now().time_since_epoch().count()));
}

double random() {
    constexpr int spareBits = std::mt19937_64::word_size - std::numeric_limits<double>::digits;
    return static_cast<double>(randomSource() >> spareBits) * std::numeric_limits<double>::epsilon() / 2;
}

// A folder's name is bytes, and what isn't UTF-8 in it would be lost in Qt's texts.
std::string programFile(const std::string& name) {
    std::error_code failure;
    return std::filesystem::read_symlink("/proc/self/exe", failure).replace_filename(name).string();
}

void messageBox(const std::string& title, const std::string& text, Sign sign) {
    const auto icon = sign == Sign::Information ? QMessageBox::Information : QMessageBox::Warning;
    const QPointer<QMessageBox> box = new QMessageBox(icon, QString::fromStdString(title), QString::fromStdString(text),
                                                      QMessageBox::Ok, qt::formStack().mainWindow());
    const QWidget* const window = box;
    box->setTextFormat(Qt::PlainText);
    makeRoomForTitle(*box);
    box->setModal(false);  // Else the close button of the main window wouldn't work.
    QEventLoop loop;
    QObject::connect(box, &QDialog::finished, &loop, &QEventLoop::quit);
    QObject::connect(box, &QObject::destroyed, &loop, &QEventLoop::quit);
    // Also if it can't be shown: the forms would get no key any more.
    const auto isGone = qScopeGuard([window] { qt::formStack().closeBox(window); });
    qt::formStack().openBox(box);
    box->show();
    loop.exec();
    delete box.data();
}

void endProcess() {
    std::fflush(nullptr);
    std::_Exit(EXIT_SUCCESS);
}

double screenWidth() { return screenSize().width() * twipsPerPixel; }
double screenHeight() { return screenSize().height() * twipsPerPixel; }

}  // namespace platform
