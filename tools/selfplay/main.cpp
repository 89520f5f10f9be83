#include <algorithm>
#include <chrono>
#include <fstream>
#include <iostream>
#include <limits>
#include <sstream>
#include <stdexcept>
#include <string>

#include "platform/base/process.h"
#include "platform/sim/simulation.h"
#include "scoring/scoringItems.h"
#include "tools/dice.h"
#include "tools/options.h"
#include "tools/selfplay/results.h"
#include "tools/selfplay/sitting.h"

namespace {

using selfplay::PlayerRow;
using selfplay::players;
using selfplay::Results;
using selfplay::strongPlayers;

const std::string usage =
    "Usage: velmora_selfplay [--seed N] [--hands N | --matches N] [--rounds N] [--level N] [--player NAME]\n"
    "                        [--interrupt N] [--mixed] [--table] [--no-referee] [--log FILE]\n"
    "  --seed N           play the game that belongs to this number again\n"
    "  --hands N          play that many hands\n"
    "  --matches N        play that many matches (1)\n"
    "  --rounds N         rounds of a match, 1 to 100 (1)\n"
    "  --level N          1 " +
    std::string(levels[0].caption) + " to " + std::to_string(levelCount) + " " + levels[levelCount - 1].caption +
    " (1)\n"
    "  --player NAME      strong, stubborn, who takes the pair last, hesitant, who often passes, careless, who also\n"
    "                     drops a tile anywhere, or aimless, who presses anything (strong)\n"
    "  --interrupt N      have something come between once in N moments: keys, commands, dialogs, a player who goes "
    "away\n"
    "  --mixed            begin anew after some matches, each time with another seed, and with another player, Level,\n"
    "                     number of rounds and rate of interruptions, which follow from it\n"
    "  --table            show at the end what came of it as a table\n"
    "  --no-referee       don't check the game at every event\n"
    "  --log FILE         write down everything that a player would notice\n"
    "  --help             show this and do nothing\n";

constexpr int tellAllHands = 20;   // each hand has a line of its own up to here
constexpr int tellAllMatches = 3;  // and up to here
constexpr int matchesMixed = 8;    // of a mixed sitting
constexpr int handsMixed = 100;    // at most, of each of its matches

struct Options {
    uint32_t seed = static_cast<uint32_t>(std::chrono::system_clock::now().time_since_epoch().count());
    int hands = 0;                      // 0: as many as the matches have
    int matches = 0;                    // 0: as many as the hands take
    int rounds = 0;                     // 0: one
    int level = 0;                      // 0: the first
    const PlayerRow* player = nullptr;  // null: the strong one
    int interrupt = 0;                  // moments; 0 for never
    bool mixed = false;
    bool table = false;
    bool referee = true;
    std::string log;  // the file; empty for none
};

using tools::BadArguments;
using tools::many;

void setPlayer(Options& options, const std::string& name, const std::string& value) {
    options.player = std::ranges::find(players, value, &PlayerRow::name);
    if (options.player == std::end(players)) throw BadArguments(name + " doesn't know \"" + value + "\".");
}

constexpr tools::OptionRow<Options> optionRows[] = {
    {"--seed", tools::setNumber<&Options::seed, 0, std::numeric_limits<uint32_t>::max()>},
    {"--hands", tools::setNumber<&Options::hands, 1, many>},
    {"--matches", tools::setNumber<&Options::matches, 1, many>},
    {"--rounds", tools::setNumber<&Options::rounds, 1, 100>},
    {"--level", tools::setNumber<&Options::level, 1, levelCount>},
    {"--player", setPlayer},
    {"--interrupt", tools::setNumber<&Options::interrupt, 1, many>},
    {"--mixed", tools::setFlag<&Options::mixed, true>, false},
    {"--table", tools::setFlag<&Options::table, true>, false},
    {"--no-referee", tools::setFlag<&Options::referee, false>, false},
    {"--log", tools::setText<&Options::log>},
};

Options optionsFrom(int count, char** arguments) {
    auto options = tools::readOptions<Options>(optionRows, count, arguments);
    if (options.mixed &&
        (options.rounds > 0 || options.level > 0 || options.player != nullptr || options.interrupt > 0))
        throw BadArguments("--mixed chooses player, Level, rounds and interruptions itself.");
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

/// How a sitting is played.
struct Plan {
    const PlayerRow* player;
    int level, rounds, interrupt;
};

/// What follows from the seed of a mixed sitting.
Plan planFrom(uint32_t seed) {
    tools::Dice dice(seed);
    static constexpr int rates[] = {0, 25, 100, 1000};
    constexpr int sittingsToOneOfTwoRounds = 4, weakSittings = 15;
    Plan plan{};
    plan.level = 1 + dice.below(levelCount);
    plan.player = &players[strongPlayers + dice.below(std::size(players) - strongPlayers)];
    plan.rounds = dice.oneIn(sittingsToOneOfTwoRounds) ? 2 : 1;
    // A round of a strong player is many hands long, since he keeps the House.
    if (dice.oneIn(1 + weakSittings)) plan = {&players[dice.below(strongPlayers)], plan.level, 1, 0};
    plan.interrupt = dice.oneOf(rates);
    return plan;
}

bool isWanting(const Options& options, const Results& results) {
    return options.hands > 0 ? results.hands < options.hands : results.matches < options.matches;
}

/// One program's run, of as many matches or hands as are left, or in a mixed run of a few of them.
void playSitting(const Options& options, uint32_t seed, const Plan& plan, Results& results, std::ofstream& log) {
    selfplay::Sitting sitting(seed, options.referee);
    if (log.is_open()) sim::setLog([&](const std::string& line) { log << line << '\n'; });
    const bool tells = options.hands > 0 ? options.hands <= tellAllHands : options.matches <= tellAllMatches;
    sitting.onHand = [&](const selfplay::HandReport& hand) {
        results.note(*plan.player, hand);
        if (tells) tell(results.hands, hand);
    };
    sitting.setManner(plan.player->manner);
    sitting.setLevel(plan.level);
    sitting.setRounds(plan.rounds);
    if (plan.interrupt > 0) sitting.interrupt(plan.interrupt);
    for (int match = 0; isWanting(options, results) && (!options.mixed || match < matchesMixed); ++match) {
        const int left = options.hands > 0 ? options.hands - results.hands : many;
        results.matches += sitting.playMatch(options.mixed ? std::min(left, handsMixed) : left) ? 1 : 0;
    }
}

void playOne(const Options& options, Results& results, std::ofstream& log) {
    const Plan plan{options.player != nullptr ? options.player : players, std::max(1, options.level),
                    std::max(1, options.rounds), options.interrupt};
    std::cout << "Seed " << options.seed << ", Level " << plan.level << ", rounds of a match: " << plan.rounds
              << std::endl;
    playSitting(options, options.seed, plan, results, log);
}

/// One sitting after the other. A fault is told with the seed of its own, which plays it again alone.
void playMixed(const Options& options, Results& results, std::ofstream& log) {
    for (uint32_t seed = options.seed; isWanting(options, results); ++seed) {
        if (!options.table) std::cout << "Seed " << seed << std::endl;
        try {
            playSitting(options, seed, planFrom(seed), results, log);
        } catch (const std::logic_error& error) {
            throw std::logic_error(error.what() +
                                   std::string("\nIt comes again by velmora_selfplay --mixed --matches ") +
                                   std::to_string(matchesMixed) + " --seed " + std::to_string(seed));
        }
    }
}

void run(const Options& options) {
    platform::Surface::keepsPixels = false;
    std::ofstream log;
    if (!options.log.empty()) {
        log.open(options.log);
        if (!log) throw std::runtime_error("Can't write the log to " + options.log);
    }

    Results results;
    options.mixed ? playMixed(options, results, log) : playOne(options, results, log);
    options.table ? results.showTable() : results.summarize();
    log.close();
    if (!log && !options.log.empty()) throw std::runtime_error("Can't write the log to " + options.log);
}

}  // namespace

int main(int count, char** arguments) {
    platform::holdStandardStreams();
    try {
        if (tools::asksForHelp(count, arguments))
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
