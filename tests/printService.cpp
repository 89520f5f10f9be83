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
    const auto write = [this](const char* file, const char* text, QFile::Permissions more = {}) {
        writeFile(folder_ + file, QString(text).replace("FOLDER", folder_),
                  QFile::ReadOwner | QFile::WriteOwner | more);
    };
    write("/bin/backend/sheet",
          "#!/bin/sh\n[ $# -ge 5 ] || exit 0\n"
          "cat \"${6:--}\" >'FOLDER/out/part' && mv 'FOLDER/out/part' 'FOLDER/out/job'\n",
          QFile::ExeOwner);
    write("/root/cupsd.conf", "Listen FOLDER/socket\n<Location />\nOrder allow,deny\nAllow all\n</Location>\n");
    write("/root/cups-files.conf",
          "ServerRoot FOLDER/root\nServerBin FOLDER/bin\nRequestRoot FOLDER/spool\nCacheDir FOLDER/cache\n"
          "StateDir FOLDER/state\nTempDir FOLDER/spool/tmp\nAccessLog FOLDER/access\nErrorLog FOLDER/errors\n"
          "PageLog FOLDER/pages\nPrintcap\n");
    const std::string accepting = queue == Queue::Accepts ? "Accepting Yes\n" : "Accepting No\n";
    write("/root/printers.conf", ("<DefaultPrinter sheets>\nDeviceURI sheet:/\nState Idle\n" + accepting +
                                  "JobSheets none none\n</DefaultPrinter>\n")
                                     .c_str());
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
