#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "platform/desktop.h"
#include "platform/shared/ticks.h"
#include "platform/sim/state.h"

namespace sim {
namespace {

using platform::ticks;

constexpr double never = std::numeric_limits<double>::infinity();
constexpr uint64_t anyOrder = std::numeric_limits<uint64_t>::max();
constexpr double shortestWait = 1;  // milliseconds

void tick() {
    state().now = std::max(state().now, ticks().due());
    arrive();
    ticks().tick();
}

void servePosted() {
    State& d = state();
    const auto event = d.posted.extract(d.posted.begin());
    d.now = std::max(d.now, event.key());
    arrive();
    platform::callSlot(event.mapped().action);
}

/// Serves the earliest event that is due until then; of the posted ones only those posted before that order.
bool serveNext(double until, uint64_t before) {
    State& d = state();
    const double tickDue = ticks().due();
    const auto first = d.posted.begin();
    const double postDue = first != d.posted.end() && first->second.order < before ? first->first : never;
    if (std::min(tickDue, postDue) > until || std::min(tickDue, postDue) == never) return false;
    tickDue <= postDue ? tick() : servePosted();
    return true;
}

bool somethingIsToCome() { return !state().posted.empty() || ticks().due() != never; }

/// Gives the hands their turn: once a moment, so that time goes on, unless they alone can make something happen.
bool handsAct() {
    State& d = state();
    if (!d.hands || (d.handsAt == d.now && somethingIsToCome())) return false;
    const uint64_t before = d.arrivals;
    d.handsAt = d.now;
    const auto hands = d.hands;
    (*hands)();
    return d.arrivals != before;
}

bool stepUntil(double until) { return serveNext(state().now, anyOrder) || handsAct() || serveNext(until, anyOrder); }

}  // namespace

State& state() {
    static State* const theState = new State;
    return *theState;
}

void arrive() {
    ++state().arrivals;
    state().idleServices = 0;
    if (state().witness) state().witness();
}

void switchOn(uint32_t seed, double secondOfDay) {
    state() = State{};
    ticks() = {};
    platform::desk() = {};
    emptyProgramFolder();
    state().seed = seed;
    state().startSecond = secondOfDay;
    state().generator.seed(seed);
}

double now() { return state().now; }
void setLog(std::function<void(const std::string& line)> log) { state().log = std::move(log); }

void goAway() {
    arrive();
    if (ticks().isAway()) return;
    ticks().setAway(true);
    platform::desk().letGoOfKeys();
}

void comeBack() {
    arrive();
    ticks().setAway(false);
}

void setWitness(std::function<void()> witness) { state().witness = std::move(witness); }

void setHands(std::function<void()> hands) {
    state().hands = hands ? std::make_shared<const std::function<void()>>(std::move(hands)) : nullptr;
}

const std::vector<std::string>& messages() { return state().messages; }

void post(std::function<void()> action) { postAfter(0, std::move(action)); }

void postAfter(double milliseconds, std::function<void()> action) {
    State& d = state();
    d.posted.emplace(d.now + std::max(0.0, milliseconds), Posted{d.postings++, std::move(action)});
}

void runFor(double milliseconds) {
    const double end = state().now + milliseconds;
    while (stepUntil(end)) {
    }
    state().now = std::max(state().now, end);
}

bool step() { return stepUntil(never); }

}  // namespace sim

namespace platform {
namespace {

constexpr double secondsPerDay = 86400;
constexpr int screenPixelsAcross = 1920;
constexpr int screenPixelsDown = 1080;
constexpr double randomRange = 4294967296.0;  // one more than the generator's greatest value

}  // namespace

// A handler that serves events again and again waits for the clock: from the second service in a row that finds
// nothing, each lets a moment pass.
void doEvents() {
    sim::State& d = sim::state();
    const double start = d.now;
    const uint64_t posted = d.postings;
    bool served = false;
    while (sim::serveNext(start, posted)) served = true;
    if (!served && d.idleServices++ > 0) d.now += sim::shortestWait;
}

double clock::now() { return sim::state().now; }
void clock::dueChanged() {}  // It is asked before each leap of time.

double secondsOfDay() { return std::fmod(sim::state().startSecond + sim::state().now / 1000, secondsPerDay); }

void seedRandom() {
    sim::State& d = sim::state();
    if (d.seedings++ == 0) {
        d.generator.seed(d.seed);
        return;
    }
    std::seed_seq mixed{d.seed, d.seedings, static_cast<uint32_t>(static_cast<uint64_t>(d.now))};
    d.generator.seed(mixed);
}

double random() { return static_cast<double>(sim::state().generator()) / randomRange; }

void messageBox(const std::string& title, const std::string& text, Sign /*sign*/) {
    int box = 0;
    desk().openBox(&box);
    sim::note("message", title + ": " + text);
    desk().closeBox(&box);
    sim::state().messages.push_back(title + ": " + text);
}

void endProcess() {
    sim::note("process ends");
    throw sim::ProcessEnded{};
}

double screenWidth() { return screenPixelsAcross * twipsPerPixel; }
double screenHeight() { return screenPixelsDown * twipsPerPixel; }

}  // namespace platform
