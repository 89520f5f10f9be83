#include "platform/printer.h"

#include <QCoreApplication>
#include <QCursor>
#include <QEventLoop>
#include <QGuiApplication>
#include <thread>
#include <utility>

#include "platform/base/runtime.h"
#include "platform/desktop.h"
#include "platform/qt/print/printing.h"
#include "platform/qt/window/fonts.h"
#include "platform/qt/window/formStack.h"
#include "platform/qt/window/modules.h"

namespace platform {
namespace {

using qt::PrintJob;
using qt::PrintOutcome;

/// Prints in a thread of its own, since a print service may take its time. Events are served until it is done, but keys
/// and clicks kept from the forms, and the pointer shows that they have to wait.
PrintOutcome printed(const PrintJob& job) {
    PrintOutcome outcome{{}, 53, std::string("File not found: ") + qt::printModule};
    QEventLoop loop;
    std::jthread worker([&] {
        try {
            void* const entry = qt::moduleEntry(qt::printModule, qt::printEntry);
            if (entry != nullptr) outcome = reinterpret_cast<qt::PrintEntry*>(entry)(job);
        } catch (...) {  // No exception may leave a thread; the module is then as good as missing.
        }
        QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    });
    qt::formStack().openBox(nullptr);
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    loop.exec();
    worker.join();  // Not done yet if the end of the program has ended the loop.
    QGuiApplication::restoreOverrideCursor();
    qt::formStack().closeBox(nullptr);
    return outcome;
}

}  // namespace

Printer& printer() {
    static Printer& thePrinter = *new Printer;
    return thePrinter;
}

void Printer::print(const std::vector<ColumnText>& texts) {
    lines_.push_back({font, texts});
    lines_.back().font.name = qt::familyOf(font.name);
}

void Printer::endDoc() {
    const std::string program = QCoreApplication::applicationName().toStdString();
    const PrintJob job{program, std::exchange(lines_, {})};
    if (job.lines.empty()) return;
    const PrintOutcome outcome = printed(job);
    if (outcome.failure != 0) throw RuntimeError(outcome.failure, outcome.description);
    if (!outcome.file.empty())
        messageBox(program, "No printer is set up. The sheet has been saved as\n" + outcome.file, Sign::Information);
}

}  // namespace platform
