#include "tools/wild/host.h"

#include <sanitizer/lsan_interface.h>
#include <sys/mman.h>
#include <sys/personality.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <stdexcept>
#include <thread>
#include <utility>

#include "product.h"
#include "tools/wild/witness.h"

namespace fs = std::filesystem;

namespace wild {
namespace {

constexpr const char* insideVariable = "VELMORA_WILD_FOLDER";
constexpr const char* sheets = "sheets";
constexpr auto patience = std::chrono::seconds(20);  // until a window that doesn't answer is given up
constexpr auto lookEvery = std::chrono::milliseconds(20);

bool isGoing = false;  // the game, in this process
volatile std::sig_atomic_t stops = 0;

/// The machine lays programs at other addresses each time, and some orders go by addresses.
void fixAddresses() {
    const int before = personality(0xFFFFFFFF);
    if (before != -1) personality(static_cast<unsigned long>(before) | ADDR_NO_RANDOMIZE);
}

bool belongsToProgram(const fs::path& file) {
    constexpr const char* kinds[] = {".so", ".bin", ".hlp", ".mid", ".wav"};
    return std::any_of(std::begin(kinds), std::end(kinds), [&](const char* kind) { return file.extension() == kind; });
}

/// How the process ended, for the ledger.
std::string endOf(int status) {
    if (WIFSIGNALED(status)) return std::string("it was ended by the signal ") + strsignal(WTERMSIG(status));
    return "it ended with " + std::to_string(WEXITSTATUS(status)) + ", which the sanitizers explain above";
}

void note(Ledger& ledger, const std::string& finding) {
    if (ledger.finding[0] == 0) std::snprintf(ledger.finding.data(), ledger.finding.size(), "%s", finding.c_str());
}

}  // namespace

OwnFolder::OwnFolder(char** arguments) {
    const char* const inside = std::getenv(insideVariable);
    if (inside != nullptr) {
        path = inside;
        return;
    }
    const fs::path program = fs::read_symlink("/proc/self/exe");
    std::string name = (program.parent_path() / "wild-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("Can't make a folder beside the program.");
    const fs::path folder = name;
    for (const auto& each : fs::directory_iterator(program.parent_path()))
        if (belongsToProgram(each.path())) fs::create_symlink(each.path(), folder / each.path().filename());
    fs::create_hard_link(program, folder / program.filename());
    fs::create_directory(folder / sheets);
    std::FILE* const places = std::fopen((folder / "user-dirs.dirs").c_str(), "w");
    std::fprintf(places, "XDG_DOCUMENTS_DIR=\"%s\"\n", (folder / sheets).c_str());
    std::fclose(places);
    setenv(insideVariable, folder.c_str(), 1);
    fixAddresses();
    execv((folder / program.filename()).c_str(), arguments);
    throw std::runtime_error("Can't start the program in its own folder.");
}

void clearFolder(const std::string& folder) {
    fs::remove(fs::path(folder) / productFile::hiScores);
    for (const auto& sheet : fs::directory_iterator(fs::path(folder) / sheets)) fs::remove(sheet.path());
}

OwnFolder::~OwnFolder() { fs::remove_all(path); }

Ledger& sharedLedger() {
    static void* const memory =
        mmap(nullptr, sizeof(Ledger), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    return *static_cast<Ledger*>(memory);
}

void stopOnInterrupt() {
    for (const int signal : {SIGINT, SIGTERM}) std::signal(signal, [](int) { stops = 1; });
}

bool isStopped() { return stops != 0; }

bool inOwnProcess(Ledger& ledger, const std::function<void()>& action) {
    std::fflush(nullptr);
    const pid_t process = fork();
    if (process == 0) {
        isGoing = true;
        for (const int signal : {SIGINT, SIGTERM}) std::signal(signal, SIG_DFL);
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        action();
        find("the program went on after its end");
    }
    using Clock = std::chrono::steady_clock;
    uint64_t beats = 0;
    auto beat = Clock::now();
    int status = 0;
    for (int signal = SIGABRT; waitpid(process, &status, WNOHANG) == 0; std::this_thread::sleep_for(lookEvery)) {
        if (std::exchange(beats, ledger.beats.load()) != ledger.beats) beat = Clock::now();
        if (isStopped()) kill(process, SIGKILL);
        if (Clock::now() - beat < patience) continue;
        note(ledger, "the window doesn't answer");
        kill(process, std::exchange(signal, SIGKILL));  // At the first it tells where it is.
        beat = Clock::now();
    }
    if (isStopped() || (WIFEXITED(status) && WEXITSTATUS(status) == 0)) return true;
    note(ledger, endOf(status));
    return false;
}

}  // namespace wild

extern "C" [[noreturn]] void __real__Exit(int code);

/// The game's own end: what it still holds then is in use, and what nobody holds any more has leaked.
extern "C" [[noreturn]] void __wrap__Exit(int code) {
    if (wild::isGoing) {
        ++wild::sharedLedger().count("ends");
        __lsan_do_leak_check();
    }
    __real__Exit(code);
}

void wild::find(const std::string& finding) {
    isGoing = false;
    note(sharedLedger(), finding);
    std::fflush(nullptr);
    __real__Exit(1);
}

extern "C" const char* __asan_default_options() {
    return "handle_abort=1:detect_leaks=1:exitcode=99:quarantine_size_mb=48:print_suppressions=0";
}
/// What libraries lose of their own. None of them calls the game.
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig.so\n"; }
extern "C" const char* __ubsan_default_options() { return "print_stacktrace=1"; }
