#include "tests/printService.h"

#include <gtest/gtest.h>
#include <sys/prctl.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLocalSocket>
#include <QTest>
#include <csignal>
#include <sstream>

namespace {

constexpr int longEnough = 20000;    // milliseconds that anything here may take at most
constexpr size_t marginColumns = 2;  // that fit into the left margin

void writeFile(const QString& path, const QString& text, QFile::Permissions permissions) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) > 0) << path.toStdString();
    file.setPermissions(permissions);
}

}  // namespace

PrintService::PrintService(const QString& folder, Queue queue) : folder_(folder) {
    writeSettings(queue);
    process_.setProcessChannelMode(QProcess::MergedChannels);
    process_.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });  // Never outlives the test.
    process_.start("/usr/sbin/cupsd",
                   {"-f", "-c", folder + "/root/cupsd.conf", "-s", folder + "/root/cups-files.conf"});
    const bool isUp = QTest::qWaitFor(
        [&] {
            QLocalSocket socket;
            socket.connectToServer(folder + "/socket");
            return socket.waitForConnected(100);
        },
        longEnough);
    EXPECT_TRUE(isUp) << "cupsd isn't up: " << process_.readAll().toStdString();
    qputenv("CUPS_SERVER", (folder + "/socket").toLocal8Bit());
}

PrintService::~PrintService() {
    process_.terminate();
    if (process_.waitForFinished(longEnough)) return;
    process_.kill();
    process_.waitForFinished(longEnough);
}

// The printer is a queue without filters: its back end, a script, gets the document as it was sent.
void PrintService::writeSettings(Queue queue) const {
    for (const char* each : {"root", "bin/backend", "cache", "spool/tmp", "state", "out"}) QDir(folder_).mkpath(each);
    QFile::link("/usr/lib/cups/daemon", folder_ + "/bin/daemon");
    const auto ownersAlone = QFile::ReadOwner | QFile::WriteOwner;
    writeFile(folder_ + "/bin/backend/sheet",
              "#!/bin/sh\n"
              "[ $# -ge 5 ] || exit 0\n"
              "cat \"${6:--}\" >'" +
                  folder_ + "/out/part' && mv '" + folder_ + "/out/part' '" + folder_ + "/out/job'\n",
              ownersAlone | QFile::ExeOwner);
    writeFile(folder_ + "/root/cupsd.conf",
              "Listen " + folder_ + "/socket\n<Location />\nOrder allow,deny\nAllow all\n</Location>\n", ownersAlone);
    writeFile(
        folder_ + "/root/cups-files.conf",
        QString("ServerRoot %1/root\nServerBin %1/bin\nRequestRoot %1/spool\nCacheDir %1/cache\nStateDir %1/state\n"
                "TempDir %1/spool/tmp\nAccessLog %1/access\nErrorLog %1/errors\nPageLog %1/pages\nPrintcap\n")
            .arg(folder_),
        ownersAlone);
    writeFile(folder_ + "/root/printers.conf",
              QString("<DefaultPrinter sheets>\nDeviceURI sheet:/\nState Idle\nAccepting %1\nJobSheets none none\n"
                      "</DefaultPrinter>\n")
                  .arg(queue == Queue::Accepts ? "Yes" : "No"),
              ownersAlone);
}

QString PrintService::waitForJob() const {
    const QString job = folder_ + "/out/job";
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(job); }, longEnough)) << "no job came out";
    return job;
}

std::string outputOf(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    const bool ended = process.waitForFinished(longEnough);
    EXPECT_TRUE(ended && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0)
        << program.toStdString() << ": " << process.errorString().toStdString() << ' '
        << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput().toStdString();
}

std::string sheetIn(const QString& pdf) {
    std::istringstream output(outputOf("pdftotext", {"-layout", "-fixed", "8.4", pdf, "-"}));
    std::string text, line;
    while (std::getline(output, line)) {
        const bool newPage = line.starts_with('\f');
        if (newPage) line.erase(0, 1);
        text += (newPage && !line.empty() ? "\f" : "") +
                (line.size() > marginColumns ? line.substr(marginColumns) : "") + "\n";
    }
    while (text.ends_with("\n\n")) text.pop_back();
    return text;
}

void passWith(const QString& setting, const QString& tests) {
    outputOf("env", {setting, QCoreApplication::applicationFilePath(), "--gtest_filter=" + tests});
}

QString withoutFonts(const QString& folder) {
    const QString settings = folder + "/fonts.conf";
    writeFile(settings, QString("<fontconfig><dir>%1</dir></fontconfig>").arg(folder), QFile::ReadOwner);
    return settings;
}
