// Does at random what can be done to the real window, in one evening of play after the other, and tells what went
// wrong.

#include <QAccessible>
#include <QApplication>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string_view>

#include "frmMain.h"
#include "platform/base/process.h"
#include "platform/qt/window/application.h"
#include "platform/qt/window/formWindow.h"
#include "product.h"
#include "tools/dice.h"
#include "tools/options.h"
#include "tools/wild/evening.h"
#include "tools/wild/heldClock.h"
#include "tools/wild/host.h"

namespace {

using namespace wild;

const std::string usage =
    "Usage: velmora_wild [--seed N] [--actions N | --minutes N] [--all] [--log FILE]\n"
    "  --seed N           the first evening; the others have the numbers after it, and each goes the same way again\n"
    "  --actions N        evenings until so much has been done (8000)\n"
    "  --minutes N        evenings for so long\n"
    "  --all              fail if not all has come that the game has to show\n"
    "  --log FILE         write down each action\n"
    "  --help             show this and do nothing\n";

struct Options {
    uint32_t seed = static_cast<uint32_t>(std::chrono::system_clock::now().time_since_epoch().count());
    uint64_t actions = 0;
    int minutes = 0;
    bool all = false;
    std::string log;  // the file; empty for none
};

constexpr int enough = 8000;  // actions in which, as a rule, all comes that is to come

constexpr tools::OptionRow<Options> optionRows[] = {
    {"--seed", tools::setNumber<&Options::seed, 0, std::numeric_limits<uint32_t>::max()>},
    {"--actions", tools::setNumber<&Options::actions, 1, tools::many>},
    {"--minutes", tools::setNumber<&Options::minutes, 1, 1000>},
    {"--all", tools::setFlag<&Options::all, true>, false},
    {"--log", tools::setText<&Options::log>},
};

Options optionsFrom(int count, char** arguments) {
    auto options = tools::readOptions<Options>(optionRows, count, arguments);
    if (options.actions > 0 && options.minutes > 0) throw tools::BadArguments("Choose either --actions or --minutes.");
    if (options.actions == 0 && options.minutes == 0) options.actions = enough;
    return options;
}

/// What Qt says that is of no consequence: what a desktop without a screen doesn't do.
void hearQt(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& message) {
    if (!message.startsWith("This plugin does not support ")) find("Qt says: " + message.toStdString());
}

/// The desktop: two screens, the second with pixels of half the size.
constexpr const char* screens = R"({"screens": [
    {"name": "first", "x": 0, "y": 0, "width": 1600, "height": 1210, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1},
    {"name": "second", "x": 1600, "y": 0, "width": 1700, "height": 1300, "logicalDpi": 192, "logicalBaseDpi": 96, "dpr": 1}
]})";

void setUp(const std::string& folder) {
    std::ofstream(folder + "/screens.json") << screens;
    qputenv("QT_QPA_PLATFORM", QByteArray::fromStdString("offscreen:configfile=" + folder + "/screens.json"));
    qputenv("SDL_AUDIODRIVER", "dummy");
    qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(folder));
    qputenv("CUPS_SERVER", QByteArray::fromStdString(folder + "/nobody"));  // No printer is set up.
    qputenv("TZ", "UTC");
    qputenv("LC_ALL", "C.UTF-8");
    qputenv("QT_NO_GLIB", "1");
    qputenv("QT_HASH_SEED", "0");
}

/// A table of high scores as somebody may find it: none, one of low scores, or what is no table at all.
void layScores(const std::string& folder, tools::Dice& dice) {
    constexpr std::string_view row("Somebody  \1\0\1\0\2\0\0\0", 18);
    const int kind = dice.below(4);
    if (kind > 1) return;
    std::ofstream file(folder + '/' + productFile::hiScores, std::ios::binary);
    for (int times = 0; kind == 1 && times < hiScoreRows; ++times) file << row;
    for (int left = kind == 0 ? dice.below(200) : 0; left > 0; --left) file.put(static_cast<char>(dice.below(256)));
}

[[noreturn]] void spendEvening(uint32_t seed, const std::string& folder, std::FILE* log) {
    tools::Dice dice(~seed);
    clearFolder(folder);
    layScores(folder, dice);
    setUp(folder);
    constexpr int secondsOfDay = 86'400;
    holdClock(dice.oneIn(2) ? secondsOfDay - dice.below(120) - 1 : dice.below(secondsOfDay));
    qInstallMessageHandler(hearQt);
    int count = 1;
    char name[] = "velmora";
    char* arguments[] = {name, nullptr};
    platform::Application application(count, arguments, PRODUCT_NAME, PRODUCT_ID);
    if (dice.oneIn(3)) application.setZoom(1 + 0.25 * dice.below(3));
    QAccessible::setActive(dice.oneIn(3));
    const auto game = gfrmMain.hold();
    game->form.show();
    Evening evening(seed, *platform::qt::windowOf(game->form)->window(), sharedLedger(), log);
    application.run();
    find("the window has gone, but not the program");
}

void tellAll(const Ledger& ledger) {
    std::printf("%llu actions", static_cast<unsigned long long>(ledger.actions));
    for (size_t sight = 0; sight < std::size(sights); ++sight)
        std::printf(", %s %llu", sights[sight], static_cast<unsigned long long>(ledger.seen[sight]));
    std::printf("\n");
}

/// The evenings before it may matter: memory is weighed over all of them.
void tellFinding(const Ledger& ledger, uint32_t first, uint32_t seed) {
    std::printf("Seed %u of those from %u on: %s\nWhat was done last:\n", seed, first, ledger.finding.data());
    for (uint64_t line = 0; line < Ledger::linesKept; ++line)
        std::printf("  %s\n", ledger.last[(ledger.actions + line) % Ledger::linesKept].data());
}

/// Whether a run came to everything; tells what is missing.
bool hasSeenAll(const Ledger& ledger) {
    bool all = true;
    for (size_t sight = 0; sight < std::size(sights); ++sight) {
        if (ledger.seen[sight] > 0) continue;
        std::printf("It never came to %s.\n", sights[sight]);
        all = false;
    }
    return all;
}

int run(const Options& options, const std::string& folder) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> log(
        options.log.empty() ? nullptr : std::fopen(options.log.c_str(), "w"), std::fclose);
    if (!options.log.empty() && !log) throw std::runtime_error("Can't write the log to " + options.log);
    if (log) std::setvbuf(log.get(), nullptr, _IOLBF, BUFSIZ);
    Ledger& ledger = sharedLedger();
    const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(options.minutes);
    uint32_t seed = options.seed;
    bool holds = true;
    for (; holds && !isStopped() &&
           (options.minutes > 0 ? std::chrono::steady_clock::now() < end : ledger.actions < options.actions);
         ++seed) {
        if (log) std::fprintf(log.get(), "Seed %u\n", seed);
        holds = inOwnProcess(ledger, [&] { spendEvening(seed, folder, log.get()); });
        if (!holds) tellFinding(ledger, options.seed, seed);
    }
    std::printf("Seeds %u to %u: ", options.seed, seed - 1);
    tellAll(ledger);
    return holds && (!options.all || hasSeenAll(ledger)) ? 0 : 1;
}

}  // namespace

int main(int count, char** arguments) {
    if (tools::asksForHelp(count, arguments)) {
        std::cout << usage;
        return platform::endOutput("velmora_wild", 0);
    }
    try {
        const Options options = optionsFrom(count, arguments);
        const OwnFolder folder(arguments);
        stopOnInterrupt();
        return run(options, folder.path);
    } catch (const tools::BadArguments& error) {
        std::cerr << error.what() << "\n" << usage;
        return 2;
    } catch (const std::exception& error) {
        std::cerr << "The evening had to end: " << error.what() << "\n";
        return 1;
    }
}
