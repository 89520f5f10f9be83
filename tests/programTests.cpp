// The program as a person starts and ends it.

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTest>
#include <csignal>
#include <string>

namespace {

/// A run of the program on Qt's desktop of that name, with no display.
class ProgramRun : public QProcess {
  public:
    explicit ProgramRun(const QStringList& words, const QString& desktop = "offscreen") {
        static int argc = 0;
        static const QCoreApplication application(argc, nullptr);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* display : {"DISPLAY", "WAYLAND_DISPLAY", "WAYLAND_SOCKET"}) environment.remove(display);
        environment.insert("QT_QPA_PLATFORM", desktop);
        environment.insert("XDG_RUNTIME_DIR", QString::fromStdString(testing::TempDir()));
        setProcessEnvironment(environment);
        start(VELMORA_PROGRAM, words);
        EXPECT_TRUE(waitForStarted());
    }
    ~ProgramRun() override {
        kill();
        waitForFinished();
    }

    /// Its exit code, or -1 if a signal has ended it, and its output and errors.
    std::string ending() {
        EXPECT_TRUE(waitForFinished()) << "it goes on";
        const int code = exitStatus() == NormalExit ? exitCode() : -1;
        return std::to_string(code) + "|" + (readAllStandardOutput() + "|" + readAllStandardError()).toStdString();
    }

    /// Whether it has handlers for the end signals yet, by the mask that the system shows of it.
    bool handlesEndSignals() const {
        QFile status(QString("/proc/%1/status").arg(processId()));
        if (!status.open(QIODevice::ReadOnly)) return false;
        const QByteArray text = status.readAll();
        return (text.mid(text.indexOf("SigCgt:") + 7).trimmed().left(16).toULongLong(nullptr, 16) >> (SIGTERM - 1) &
                1) != 0;
    }
};

TEST(Program, AnswersItsOptionsAndRefusesOtherWords) {
    const std::string usage = "Usage: velmora [--zoom N | --help | --version]\n";
    const std::string zoomUsage = "velmora: The zoom is a number from 1 to 8 in steps of a quarter, such as 1.5.\n";
    struct {
        QStringList words;
        std::string ending;
    } const cases[] = {
        {{"--version"}, "0|Velmora 1.0.0\n|"}, {{"--nonsense"}, "2||" + usage}, {{"play"}, "2||" + usage},
        {{"--help", "more"}, "2||" + usage},   {{""}, "2||" + usage},           {{"--zoom"}, "2||" + usage},
    };
    for (const char* zoom : {"0.75", "1.1", "9", "-2", "2x", "", "nan", "1e0"})
        EXPECT_EQ(ProgramRun({"--zoom", zoom}).ending(), "2||" + zoomUsage) << zoom;
    for (const auto& row : cases) EXPECT_EQ(ProgramRun(row.words).ending(), row.ending) << row.words[0].toStdString();

    const std::string help = ProgramRun({"--help"}).ending();
    EXPECT_TRUE(help.starts_with("0|" + usage) && help.ends_with("|")) << help;
    for (const char* word : {"Left, Right", "  Down ", "  P, Pause ", "  F2 ", "  F1 ", "  F10 ", "  F11 ", "Enter",
                             "Esc", "number pad", "--help", "--version", "--zoom N"})
        EXPECT_NE(help.find(word), std::string::npos) << word;
}

TEST(Program, TellsInOneSentenceThatThereIsNoDisplay) {
    for (const char* desktop : {"xcb", "wayland", "wayland;xcb"})
        EXPECT_EQ(ProgramRun({}, desktop).ending(), "1||velmora: There is no display to open a window on.\n")
            << desktop;
}

TEST(Program, AnEndSignalClosesItAsExitDoes) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        ProgramRun run(signal == SIGINT ? QStringList{"--zoom", "1.5"} : QStringList{});
        ASSERT_TRUE(QTest::qWaitFor([&] { return run.handlesEndSignals(); }, 10000));
        kill(static_cast<pid_t>(run.processId()), signal);
        EXPECT_EQ(run.ending().substr(0, 2), "0|") << "signal " << signal;
    }
}

}  // namespace
