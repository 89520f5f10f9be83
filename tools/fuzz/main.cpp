// Gives all that reads from outside, files, words and keys, inputs that are damaged or random. Each answer is held to
// what is true of any input.

#include <fcntl.h>
#include <sanitizer/common_interface_defs.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

#include "platform/desktop.h"
#include "tools/fuzz/mutator.h"
#include "tools/fuzz/target.h"

namespace {

using fuzz::Target;
using fuzz::targets;

constexpr int longest = 20;  // seconds of the processor for an input

constexpr const char* usage =
    "Usage: velmora_fuzz [--seed N] [--runs N] [--only TARGET] [--input FILE]\n"
    "  --seed N        the same inputs as another time (1)\n"
    "  --runs N        so many inputs for each target\n"
    "  --only TARGET   that one alone\n"
    "  --input FILE    this input alone, of the target that --only names\n";

struct Options {
    uint64_t seed = 1;
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

std::string contentsOf(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
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
        give(contentsOf(options.input));
    } else {
        const std::string folder = VELMORA_INPUTS "/" + std::string(target.name);
        if (std::filesystem::is_directory(folder))
            for (const auto& file : std::filesystem::directory_iterator(folder)) give(contentsOf(file));
        const std::vector<std::string> models = target.models();
        for (const std::string& model : models) give(model);
        const int runs = options.runs > 0 ? options.runs : target.runs;
        fuzz::Mutator mutator(options.seed, models, target.words);
        for (int run = 0; run < runs; ++run) give(mutator.make());
    }
    std::cout << target.name << ": " << all << " inputs, " << taken << " of them taken" << std::endl;
}

Options optionsFrom(int count, char** words) {
    Options options;
    for (int i = 1; i < count; ++i) {
        const std::string name = words[i], value = i + 1 < count ? words[++i] : "";
        const bool isNumber = !value.empty() && value.find_first_not_of("0123456789") == std::string::npos;
        const bool isTarget = std::ranges::any_of(targets, [&](const Target& each) { return each.name == value; });
        if (name == "--seed" && isNumber)
            options.seed = std::stoull(value);
        else if (name == "--runs" && isNumber)
            options.runs = std::stoi(value);
        else if (name == "--only" && isTarget)
            options.only = value;
        else if (name == "--input" && !value.empty())
            options.input = value;
        else
            throw std::invalid_argument(name);
    }
    const bool isFile = options.input.empty() || std::filesystem::is_regular_file(options.input);
    if (!isFile || (!options.input.empty() && options.only.empty())) throw std::invalid_argument("--input");
    return options;
}

}  // namespace

/// What others leave behind.
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig\n"; }

int main(int count, char** words) {
    Options options;
    try {
        options = optionsFrom(count, words);
    } catch (const std::exception&) {
        std::cerr << usage << "Targets:";
        for (const Target& target : targets) std::cerr << ' ' << target.name;
        std::cerr << '\n';
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
