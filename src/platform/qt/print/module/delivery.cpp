#include "platform/qt/print/module/delivery.h"

#include <fcntl.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QLibrary>
#include <QStandardPaths>
#include <QTemporaryFile>
#include <cerrno>
#include <filesystem>
#include <system_error>

#include "platform/base/runtime.h"

namespace platform::qt {
namespace {

constexpr int cupsVersion = 2;

/// A function of the library that Qt's own printing goes by; fails with number 482 if it isn't there.
template <class Function>
Function* cupsFunction(const char* name) {
    const auto found = QLibrary::resolve("cups", cupsVersion, name);
    if (found == nullptr) failure::printerError();
    return reinterpret_cast<Function*>(found);
}

/// Sends a file as a job; fails with number 482 and the service's own words. Qt could send it too, but wouldn't tell
/// whether the service took it.
void sendJob(const QByteArray& printer, const QByteArray& file, const QByteArray& title) {
    using AskPassword = const char*(const char* prompt);
    const auto setPasswordAsker = cupsFunction<void(AskPassword*)>("cupsSetPasswordCB");
    using PrintFile = int(const char* printer, const char* file, const char* title, int optionCount, void* options);
    const auto printFile = cupsFunction<PrintFile>("cupsPrintFile");
    const auto lastError = cupsFunction<const char*()>("cupsLastErrorString");

    setPasswordAsker([](const char*) -> const char* { return nullptr; });  // Else it asks at the terminal and waits.
    const int job = printFile(printer.constData(), file.constData(), title.constData(), 0, nullptr);
    if (job == 0) failure::printerError(lastError());
}

/// Makes a file's folder if it isn't there; fails as the file would.
void makeFolderOf(const QString& path) {
    std::error_code error;
    std::filesystem::create_directories(std::filesystem::path(QFile::encodeName(path).constData()).parent_path(),
                                        error);
    if (error) failure::ofFile(error.value(), path.toStdString());
}

/// Fills a file that has just been made; takes it away again if that fails.
void fill(int descriptor, const QString& path, const QByteArray& bytes) {
    QFile file;
    const bool written = file.open(descriptor, QIODevice::WriteOnly | QIODevice::Unbuffered, QFile::AutoCloseHandle) &&
                         file.write(bytes) == bytes.size() && TEMP_FAILURE_RETRY(fsync(descriptor)) == 0;
    if (written) return;
    const int reason = errno;
    QFile::remove(path);
    failure::ofFile(reason, path.toStdString());
}

}  // namespace

void sendToPrinter(const QString& printer, const QString& title, const QByteArray& pdf) {
    QTemporaryFile file;
    if (!file.open() || file.write(pdf) != pdf.size() || !file.flush())
        failure::ofFile(errno, file.fileTemplate().toStdString());
    sendJob(printer.toLocal8Bit(), QFile::encodeName(file.fileName()), title.toUtf8());
}

QString saveInDocuments(const QString& name, const QByteArray& pdf) {
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    makeFolderOf(folder.filePath(name + ".pdf"));
    for (int number = 1;; ++number) {
        const QString suffix = number == 1 ? QString() : QString(" %1").arg(number);
        const QString path = folder.filePath(name + suffix + ".pdf");
        constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC;
        const int descriptor = TEMP_FAILURE_RETRY(open(QFile::encodeName(path).constData(), flags, 0666));
        if (descriptor < 0 && errno == EEXIST) continue;
        if (descriptor < 0) failure::ofFile(errno, path.toStdString());
        fill(descriptor, path, pdf);
        return path;
    }
}

}  // namespace platform::qt
