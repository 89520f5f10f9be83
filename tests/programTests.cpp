// The program as a person starts and ends it.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace {

/// A run of the program with its output in files of its own.
class ProgramRun {
  public:
    /// On Qt's desktop of that name.
    explicit ProgramRun(const std::vector<std::string>& words, const char* desktop = "offscreen") {
        child_ = fork();
        if (child_ != 0) return;
        setenv("QT_QPA_PLATFORM", desktop, 1);
        for (const char* display : {"DISPLAY", "WAYLAND_DISPLAY", "WAYLAND_SOCKET"}) unsetenv(display);
        setenv("XDG_RUNTIME_DIR", testing::TempDir().c_str(), 1);
        redirect(STDOUT_FILENO, outPath());
        redirect(STDERR_FILENO, errorPath());
        std::vector<char*> arguments{const_cast<char*>(VELMORA_PROGRAM)};
        for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
        arguments.push_back(nullptr);
        execv(VELMORA_PROGRAM, arguments.data());
        _exit(127);
    }
    ProgramRun(const ProgramRun&) = delete;
    ProgramRun& operator=(const ProgramRun&) = delete;
    ~ProgramRun() {
        if (!ended_) kill(child_, SIGKILL);
        waitForEnd();
        unlink(outPath().c_str());
        unlink(errorPath().c_str());
    }

    void send(int signal) const { kill(child_, signal); }

    /// The exit code; -1 when a signal has ended it.
    int exitCode() {
        waitForEnd();
        return WIFEXITED(status_) ? WEXITSTATUS(status_) : -1;
    }
    std::string out() const { return textOf(outPath()); }
    std::string error() const { return textOf(errorPath()); }

    /// Whether the process has handlers for the end signals yet, by the mask that the system shows of it.
    bool handlesEndSignals() const {
        const std::string status = textOf("/proc/" + std::to_string(child_) + "/status");
        const size_t at = status.find("SigCgt:");
        if (at == std::string::npos) return false;
        return (std::stoull(status.substr(at + 7), nullptr, 16) >> (SIGTERM - 1) & 1) != 0;
    }

  private:
    static void redirect(int stream, const std::string& path) {
        dup2(open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), stream);
    }
    static std::string textOf(const std::string& path) {
        std::ostringstream text;
        text << std::ifstream(path).rdbuf();
        return text.str();
    }
    std::string outPath() const { return path("out"); }
    std::string errorPath() const { return path("error"); }
    std::string path(const char* kind) const {
        const pid_t owner = child_ == 0 ? getpid() : child_;
        return testing::TempDir() + "velmora-" + std::to_string(owner) + "-" + kind;
    }
    void waitForEnd() {
        if (!ended_) waitpid(child_, &status_, 0);
        ended_ = true;
    }

    pid_t child_ = 0;
    int status_ = 0;
    bool ended_ = false;
};

TEST(Program, AnswersItsOptionsAndRefusesOtherWords) {
    constexpr const char* usage = "Usage: velmora [--help | --version]\n";
    struct {
        std::vector<std::string> words;
        int exitCode;
        std::string out;
        std::string error;
    } const cases[] = {
        {{"--version"}, 0, "Velmora 1.0.0\n", ""}, {{"--nonsense"}, 2, "", usage}, {{"play"}, 2, "", usage},
        {{"--help", "more"}, 2, "", usage},        {{""}, 2, "", usage},
    };
    for (const auto& row : cases) {
        ProgramRun run(row.words);
        EXPECT_EQ(run.exitCode(), row.exitCode) << row.words[0];
        EXPECT_EQ(run.out(), row.out);
        EXPECT_EQ(run.error(), row.error);
    }
}

TEST(Program, HelpTellsTheKeys) {
    ProgramRun run({"--help"});
    EXPECT_EQ(run.exitCode(), 0);
    const std::string text = run.out();
    EXPECT_EQ(run.error(), "");
    EXPECT_EQ(text.rfind("Usage: velmora [--help | --version]\n", 0), 0U);
    for (const char* word : {"Left, Right", "Down", "F10", "Enter", "Esc", "number pad", "--help", "--version"})
        EXPECT_NE(text.find(word), std::string::npos) << word;
}

TEST(Program, TellsInOneSentenceThatThereIsNoDisplay) {
    for (const char* desktop : {"xcb", "wayland", "wayland;xcb"}) {
        ProgramRun run({}, desktop);
        EXPECT_EQ(run.exitCode(), 1) << desktop;
        EXPECT_EQ(run.out(), "") << desktop;
        EXPECT_EQ(run.error(), "velmora: There is no display to open a window on.\n") << desktop;
    }
}

TEST(Program, AnEndSignalClosesItAsExitDoes) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        ProgramRun run({});
        for (int tries = 0; tries < 1000 && !run.handlesEndSignals(); ++tries)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        ASSERT_TRUE(run.handlesEndSignals());
        run.send(signal);
        EXPECT_EQ(run.exitCode(), 0) << "signal " << signal;
    }
}

}  // namespace
