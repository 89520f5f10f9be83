// The program as a person starts and ends it.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryFile>
#include <QTest>
#include <csignal>
#include <functional>
#include <string>

namespace {

/// A run of the program on Qt's desktop of that name, with no display.
class ProgramRun : public QProcess {
  public:
    /// The process does what is given before the program begins in it.
    explicit ProgramRun(const QStringList& words, const QString& desktop = "offscreen",
                        const std::function<void()>& before = {}, const char* program = VELMORA_PROGRAM) {
        static int argc = 0;
        static const QCoreApplication application(argc, nullptr);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* display : {"DISPLAY", "WAYLAND_DISPLAY", "WAYLAND_SOCKET"}) environment.remove(display);
        environment.insert("QT_QPA_PLATFORM", desktop);
        environment.insert("XDG_RUNTIME_DIR", QString::fromStdString(testing::TempDir()));
        setProcessEnvironment(environment);
        setChildProcessModifier([before] {
            for (const int signal : {SIGINT, SIGHUP})
                std::signal(signal, SIG_DFL);  // nohup and a shell's & ignore them.
            if (before) before();
        });
        start(program, words);
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

    /// Whether a signal is in a mask of the process, by what the system shows of it.
    bool hasIn(const char* mask, int signal) const {
        const QByteArray text = toldBySystem("status");
        return (text.mid(text.indexOf(mask) + 7).trimmed().left(16).toULongLong(nullptr, 16) >> (signal - 1) & 1) != 0;
    }

    /// Waits until it has that file in its memory.
    bool looksAt(const char* name) const {
        return QTest::qWaitFor([&] { return toldBySystem("maps").contains(name); }, 10000);
    }

    /// Waits until it has handlers for the end signals.
    bool handlesEndSignals() const {
        return QTest::qWaitFor([this] { return hasIn("SigCgt:", SIGTERM); }, 10000);
    }

  private:
    QByteArray toldBySystem(const char* what) const {
        QFile file(QString("/proc/%1/%2").arg(processId()).arg(what));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
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
    EXPECT_TRUE(ProgramRun({"--help"}, "offscreen", {}, VELMORA_ALBUM).ending().starts_with("0|Usage: velmora_album "));
}

void fillStream(int stream) { ::dup2(::open("/dev/full", O_WRONLY), stream); }

void leaveStreamWithoutReader(int stream) {
    int ends[2];
    if (::pipe(ends) == 0) ::dup2(ends[1], stream);
    for (const int end : ends) ::close(end);
}

TEST(Program, WhatCannotBeWrittenIsAFailure) {
    const auto full = [] { fillStream(STDOUT_FILENO); };
    const auto closed = [] { ::close(STDOUT_FILENO); };
    const auto fullErrors = [] { fillStream(STDERR_FILENO); };
    const std::string disk = ": The output couldn't be written: No space left on device.\n",
                      descriptor = ": The output couldn't be written: Bad file descriptor.\n",
                      log = "Play had to stop: Can't write the log to /dev/full\n";
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    struct {
        const char* program;
        QStringList words;
        std::function<void()> before;
        std::string code, told;
    } const cases[] = {
        {VELMORA_PROGRAM, {"--help"}, full, "1|", "velmora" + disk},
        {VELMORA_PROGRAM, {"--version"}, closed, "1|", "velmora" + descriptor},
        {VELMORA_PROGRAM, {"--nonsense"}, fullErrors, "2|", ""},
        {VELMORA_SELFPLAY, {"--help"}, full, "1|", "velmora_selfplay" + disk},
        {VELMORA_SELFPLAY, {"--hands", "1"}, full, "1|", "velmora_selfplay" + disk},
        {VELMORA_SELFPLAY, {"--hands", "1", "--log", file.fileName()}, closed, "1|", "velmora_selfplay" + descriptor},
        {VELMORA_SELFPLAY, {"--hands", "1", "--log", "/dev/full"}, {}, "1|", log},
    };
    for (const auto& row : cases) {
        const std::string ending = ProgramRun(row.words, "offscreen", row.before, row.program).ending();
        EXPECT_TRUE(ending.starts_with(row.code) && ending.ends_with("|" + row.told)) << ending;
    }
    EXPECT_TRUE(file.readAll().startsWith("0 ")) << "the log has lines of the output";
}

TEST(Program, PlaysWithTheStreamsAndSignalsThatItGets) {
    for (const bool closed : {false, true}) {
        ProgramRun run({}, "offscreen", [=] {  // Qt's desktop without a screen begins with warnings.
            std::signal(SIGHUP, SIG_IGN);
            leaveStreamWithoutReader(STDERR_FILENO);
            for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
                if (closed) ::close(stream);
        });
        ASSERT_TRUE(run.handlesEndSignals());
        EXPECT_TRUE(run.hasIn("SigIgn:", SIGHUP)) << "a terminal that goes away ends it, whatever nohup says";
        for (int stream = 0; stream <= 2 && closed; ++stream)
            EXPECT_EQ(QFile::symLinkTarget(QString("/proc/%1/fd/%2").arg(run.processId()).arg(stream)), "/dev/null");
        kill(static_cast<pid_t>(run.processId()), SIGTERM);
        EXPECT_EQ(run.ending(), "0||");
    }
}

TEST(Program, TellsInOneSentenceThatThereIsNoDisplay) {
    for (const char* desktop : {"xcb", "wayland", "wayland;xcb"})
        EXPECT_EQ(ProgramRun({}, desktop).ending(), "1||velmora: There is no display to open a window on.\n")
            << desktop;
}

TEST(Program, ItOpensAsLargeAsAskedForAndAnEndSignalClosesItAsExitDoes) {
    QTemporaryFile screens;
    ASSERT_TRUE(screens.open());
    screens.write(R"({"screens": [{"name": "one", "x": 0, "y": 0, "width": 1600, "height": 1200, "logicalDpi": 96,)"
                  R"( "logicalBaseDpi": 96, "dpr": 1}]})");
    screens.close();
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        const bool isLarge = signal == SIGINT;
        ProgramRun run(isLarge ? QStringList{"--zoom", "1.5"} : QStringList{},
                       "offscreen:configfile=" + screens.fileName());
        ASSERT_TRUE(run.handlesEndSignals());
        EXPECT_TRUE(!isLarge || run.looksAt("pictures-x2.bin")) << "which a zoom of 1.5 needs";
        kill(static_cast<pid_t>(run.processId()), signal);
        EXPECT_EQ(run.ending().substr(0, 2), "0|") << "signal " << signal;
    }
}

}  // namespace
