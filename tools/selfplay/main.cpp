#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <limits>
#include <sstream>
#include <stdexcept>
#include <string>

#include "platform/base/process.h"
#include "platform/sim/simulation.h"
#include "scoring/scoringItems.h"
#include "tools/selfplay/sitting.h"

namespace {

const std::string usage =
    "Usage: velmora_selfplay [--seed N] [--hands N | --matches N] [--rounds N] [--level N]\n"
    "                        [--no-referee] [--log FILE]\n"
    "  --seed N           play the game that belongs to this number again\n"
    "  --hands N          play that many hands\n"
    "  --matches N        play that many matches (1)\n"
    "  --rounds N         rounds of a match, 1 to 100 (1)\n"
    "  --level N          1 " +
    std::string(levels[0].caption) + " to " + std::to_string(levelCount) + " " + levels[levelCount - 1].caption +
    " (1)\n"
    "  --no-referee       don't check the game after every event\n"
    "  --log FILE         write down everything that a player would notice\n"
    "  --help             show this and do nothing\n";

constexpr int tellAllHands = 20;   // each hand has a line of its own up to here
constexpr int tellAllMatches = 3;  // and up to here

struct Options {
    uint32_t seed = static_cast<uint32_t>(std::chrono::system_clock::now().time_since_epoch().count());
    int hands = 0;    // 0: as many as the matches have
    int matches = 0;  // 0: as many as the hands take
    int rounds = 1;
    int level = 1;
    bool referee = true;
    std::string log;  // the file; empty for none
};

/// What was asked for can't be done as it was written.
struct BadArguments : std::runtime_error {
    using std::runtime_error::runtime_error;
};

template <class Number>
Number numberFrom(const std::string& option, const std::string& text, Number least, Number most) {
    std::istringstream in(text);
    int64_t value = 0;
    if (!(in >> value) || !in.eof() || value < int64_t{least} || value > int64_t{most})
        throw BadArguments(option + " takes a number from " + std::to_string(least) + " to " + std::to_string(most) +
                           ", not \"" + text + "\".");
    return static_cast<Number>(value);
}

struct OptionRow {
    const char* name;
    void (*set)(Options& options, const std::string& name, const std::string& value);
    bool takesValue = true;
};

constexpr int many = 1'000'000'000;

constexpr OptionRow optionRows[] = {
    {"--seed",
     [](Options& o, const std::string& name, const std::string& value) {
         o.seed = numberFrom<uint32_t>(name, value, 0, std::numeric_limits<uint32_t>::max());
     }},
    {"--hands", [](Options& o, const std::string& name,
                   const std::string& value) { o.hands = numberFrom<int>(name, value, 1, many); }},
    {"--matches", [](Options& o, const std::string& name,
                     const std::string& value) { o.matches = numberFrom<int>(name, value, 1, many); }},
    {"--rounds", [](Options& o, const std::string& name,
                    const std::string& value) { o.rounds = numberFrom<int>(name, value, 1, 100); }},
    {"--level", [](Options& o, const std::string& name,
                   const std::string& value) { o.level = numberFrom<int>(name, value, 1, levelCount); }},
    {"--no-referee", [](Options& o, const std::string&, const std::string&) { o.referee = false; }, false},
    {"--log", [](Options& o, const std::string&, const std::string& value) { o.log = value; }},
};

Options optionsFrom(int count, char** arguments) {
    Options options;
    for (int i = 1; i < count; ++i) {
        const std::string name = arguments[i];
        const auto* row = std::find_if(std::begin(optionRows), std::end(optionRows),
                                       [&](const OptionRow& candidate) { return name == candidate.name; });
        if (row == std::end(optionRows)) throw BadArguments("There is no option \"" + name + "\".");
        if (row->takesValue && i + 1 == count) throw BadArguments(name + " needs a value behind it.");
        row->set(options, name, row->takesValue ? arguments[++i] : "");
    }
    if (options.hands > 0 && options.matches > 0) throw BadArguments("Choose either --hands or --matches.");
    if (options.hands == 0 && options.matches == 0) options.matches = 1;
    return options;
}

void tell(int number, const selfplay::HandReport& hand) {
    std::cout << "Hand " << number << ": " << (hand.won ? "won" : "lost") << " after " << hand.tiles << " tiles, "
              << (hand.handTiles + setTiles - 1) / setTiles << " sets";
    std::istringstream items(hand.items);
    const char* before = ": ";
    for (std::string item; std::getline(items, item, ','); before = ", ")
        std::cout << before << item << " (" << scoringItemNamed(item)->doubles << ")";
    if (hand.won) std::cout << "; doubles " << hand.doubles << ", points " << hand.points;
    std::cout << "; score " << hand.score << "\n";
}

void summarize(const selfplay::Sitting& sitting, int matches, double seconds) {
    std::printf("Hands played: %d, won: %d (%.1f%%), points of won hands: %lld, matches: %d, hands a second: %.0f\n",
                sitting.hands(), sitting.won(), 100.0 * sitting.won() / sitting.hands(),
                static_cast<long long>(sitting.points()), matches, sitting.hands() / seconds);
}

/// Plays until there are enough matches or hands; the number of matches played to their end.
int playAll(selfplay::Sitting& sitting, const Options& options) {
    int matches = 0;
    const auto wanted = [&] { return options.hands > 0 ? sitting.hands() < options.hands : matches < options.matches; };
    while (wanted()) matches += sitting.playMatch(options.hands > 0 ? options.hands - sitting.hands() : many) ? 1 : 0;
    return matches;
}

void run(const Options& options) {
    platform::Surface::keepsPixels = false;
    std::ofstream log;
    if (!options.log.empty()) {
        log.open(options.log);
        if (!log) throw std::runtime_error("Can't write the log to " + options.log);
    }

    std::cout << "Seed " << options.seed << ", Level " << options.level << ", rounds of a match: " << options.rounds
              << std::endl;
    const auto start = std::chrono::steady_clock::now();
    selfplay::Sitting sitting(options.seed, options.referee);
    if (log.is_open()) sim::setLog([&](const std::string& line) { log << line << '\n'; });
    if (options.hands > 0 ? options.hands <= tellAllHands : options.matches <= tellAllMatches)
        sitting.onHand = [&](const selfplay::HandReport& hand) { tell(sitting.hands(), hand); };
    sitting.setLevel(options.level);
    sitting.setRounds(options.rounds);
    const int matches = playAll(sitting, options);
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start;
    summarize(sitting, matches, passed.count());
    log.close();
    if (!log && !options.log.empty()) throw std::runtime_error("Can't write the log to " + options.log);
}

}  // namespace

int main(int count, char** arguments) {
    platform::holdStandardStreams();
    try {
        if (count == 2 && arguments[1] == std::string("--help"))
            std::cout << usage;
        else
            run(optionsFrom(count, arguments));
        return platform::endOutput("velmora_selfplay", 0);
    } catch (const BadArguments& error) {
        std::cerr << error.what() << "\n" << usage;
        return 2;
    } catch (const std::logic_error& error) {
        std::cerr << "The referee objects: " << error.what() << "\n";
        return 1;
    } catch (const std::exception& error) {
        std::cerr << "Play had to stop: " << error.what() << "\n";
        return 1;
    }
}
