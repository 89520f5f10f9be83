// Gives all that reads from outside, files, words and keys, inputs that are damaged or random. Each answer is held to
// what is true of any input.

#include <fcntl.h>
#include <sanitizer/common_interface_defs.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <iostream>

#include "platform/base/process.h"
#include "platform/desktop.h"
#include "tools/fuzz/mutator.h"
#include "tools/fuzz/target.h"
#include "tools/options.h"

namespace {

using fuzz::Target;
using fuzz::targets;

constexpr int longest = 20;  // seconds of the processor for an input

std::string usage() {
    std::string text =
        "Usage: velmora_fuzz [--seed N] [--runs N] [--only TARGET] [--input FILE]\n"
        "  --seed N        the same inputs as another time (1)\n"
        "  --runs N        so many inputs for each target\n"
        "  --only TARGET   that one alone\n"
        "  --input FILE    this input alone, of the target that --only names\n"
        "  --help          show this and do nothing\n"
        "Targets:";
    for (const Target& target : targets) text += ' ' + std::string(target.name);
    return text + '\n';
}

struct Options {
    int seed = 1;
    int runs = 0;  // 0 for each target's own
    std::string only, input;
};

std::string input;       // the present one
std::string inputFile;   // where it is kept when it has done harm
std::string playsAgain;  // the words that give it once more

/// Keeps the present input. Only what is allowed in the middle of anything is done here.
void keepInput() {
    const int file = open(inputFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, S_IRUSR | S_IWUSR);
    [[maybe_unused]] ssize_t written = write(file, input.data(), input.size());
    written = write(STDERR_FILENO, playsAgain.data(), playsAgain.size());
    close(file);
}

void endBySignal(int signal) {
    const std::string_view said = signal == SIGPROF ? "It takes too long.\n" : "It has ended by a signal.\n";
    [[maybe_unused]] const ssize_t written = write(STDERR_FILENO, said.data(), said.size());
    keepInput();
    _exit(1);
}

bool attempt(const Target& target) {
    const itimerval limit{{}, {longest, 0}};
    setitimer(ITIMER_PROF, &limit, nullptr);
    try {
        return target.take(input);
    } catch (const std::exception& error) {
        std::cerr << target.name << ": not true: " << error.what() << '\n';
        keepInput();
        _exit(1);
    }
}

void runAll(const Target& target, const Options& options) {
    inputFile = platform::programFile(std::string(target.name) + ".input");
    playsAgain = std::string("Once more: velmora_fuzz --only ") + target.name + " --input " + inputFile + '\n';
    int taken = 0, all = 0;
    const auto give = [&](const std::string& bytes) {
        input = bytes;
        taken += attempt(target) ? 1 : 0;
        ++all;
    };
    if (!options.input.empty()) {
        give(fuzz::contentsOf(options.input));
    } else {
        const std::string folder = VELMORA_INPUTS "/" + std::string(target.name);
        if (std::filesystem::is_directory(folder))
            for (const auto& file : std::filesystem::directory_iterator(folder)) give(fuzz::contentsOf(file.path()));
        const std::vector<std::string> models = target.models();
        for (const std::string& model : models) give(model);
        const int runs = options.runs > 0 ? options.runs : target.runs;
        fuzz::Mutator mutator(static_cast<uint64_t>(options.seed), models, target.words);
        for (int run = 0; run < runs; ++run) give(mutator.make());
    }
    std::cout << target.name << ": " << all << " inputs, " << taken << " of them taken" << std::endl;
}

constexpr tools::OptionRow<Options> optionRows[] = {
    {"--seed", tools::setNumber<&Options::seed, 0, tools::many>},
    {"--runs", tools::setNumber<&Options::runs, 1, tools::many>},
    {"--only", tools::setText<&Options::only>},
    {"--input", tools::setText<&Options::input>},
};

Options optionsFrom(int count, char** words) {
    auto options = tools::readOptions<Options>(optionRows, count, words);
    const auto isAskedFor = [&](const Target& target) { return target.name == options.only; };
    if (!options.only.empty() && std::ranges::none_of(targets, isAskedFor))
        throw tools::BadArguments("There is no target \"" + options.only + "\".");
    if (options.input.empty()) return options;
    if (options.only.empty()) throw tools::BadArguments("--input needs --only beside it.");
    if (!std::filesystem::is_regular_file(options.input))
        throw tools::BadArguments("There is no file " + options.input);
    return options;
}

}  // namespace

/// What others leave behind.
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig\n"; }

int main(int count, char** words) {
    if (tools::asksForHelp(count, words)) {
        std::cout << usage();
        return platform::endOutput("velmora_fuzz", 0);
    }
    Options options;
    try {
        options = optionsFrom(count, words);
    } catch (const tools::BadArguments& error) {
        std::cerr << error.what() << '\n' << usage();
        return 2;
    }
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    for (const int signal : {SIGPROF, SIGABRT}) std::signal(signal, endBySignal);
    __sanitizer_set_death_callback(keepInput);
    for (const Target& target : targets)
        if (options.only.empty() || options.only == target.name) runAll(target, options);
    __sanitizer_set_death_callback(nullptr);  // A leak belongs to no input.
    return 0;
}
