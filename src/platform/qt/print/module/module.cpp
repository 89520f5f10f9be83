#include <QLocale>
#include <QPrinter>
#include <QPrinterInfo>
#include <exception>

#include "platform/base/runtime.h"
#include "platform/qt/print/module/delivery.h"
#include "platform/qt/print/module/page.h"

namespace platform::qt {
namespace {

constexpr double margin = 18;  // points, a quarter of an inch: what any printer can print within
constexpr int printerErrorNumber = 482;

/// A page of the paper that is usual here.
QPageLayout usualPage() {
    const bool imperial = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
    return {QPageSize(imperial ? QPageSize::Letter : QPageSize::A4), QPageLayout::Portrait,
            QMarginsF(margin, margin, margin, margin)};
}

/// The printer's own paper and printable area, if it tells them.
QPageLayout pageOf(const QString& printer) {
    const QPrinterInfo info = QPrinterInfo::printerInfo(printer);
    return info.defaultPageSize().isValid() ? QPrinter(info, QPrinter::HighResolution).pageLayout() : usualPage();
}

// A printer's name is asked for: a QPrinter calls itself valid even where none is set up.
std::string deliver(const PrintJob& job) {
    const QString printer = QPrinterInfo::defaultPrinterName();
    const QString name = QString::fromStdString(job.name);
    if (printer.isEmpty()) return saveInDocuments(name, pdfOf(job, usualPage())).toStdString();
    sendToPrinter(printer, name, pdfOf(job, pageOf(printer)));
    return {};
}

}  // namespace
}  // namespace platform::qt

extern "C" __attribute__((visibility("default"))) void velmoraPrint(const platform::qt::PrintJob& job,
                                                                    platform::qt::PrintOutcome& outcome) {
    try {
        outcome.file = platform::qt::deliver(job);
    } catch (const RuntimeError& error) {
        outcome.failure = error.number();
        outcome.description = error.what();
    } catch (const std::exception& error) {
        outcome.failure = platform::qt::printerErrorNumber;
        outcome.description = error.what();
    }
}
