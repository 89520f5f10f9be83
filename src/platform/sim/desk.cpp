#include "platform/sim/desk.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/desktop.h"
#include "platform/twips.h"

namespace sim {
namespace {

constexpr double never = std::numeric_limits<double>::infinity();
constexpr uint64_t anyOrder = std::numeric_limits<uint64_t>::max();
constexpr double shortestWait = 1;  // milliseconds

Ticker* nextTicker() {
    Ticker* next = nullptr;
    for (Ticker* ticker : desk().tickers)
        if (ticker->runs() && (next == nullptr || ticker->due < next->due)) next = ticker;
    return next;
}

/// Marks a timer as being in its handler, for as long as both last.
class InHandler {
  public:
    explicit InHandler(Ticker& ticker) : serial_(ticker.serial) { ticker.inHandler = true; }
    ~InHandler() {
        for (Ticker* ticker : desk().tickers)
            if (ticker->serial == serial_) ticker->inHandler = false;
    }
    InHandler(const InHandler&) = delete;
    InHandler& operator=(const InHandler&) = delete;

  private:
    Serial serial_;
};

void tick(Ticker& ticker) {
    Desk& d = desk();
    d.now = std::max(d.now, ticker.due);
    ticker.due += ticker.interval * (std::floor((d.now - ticker.due) / ticker.interval) + 1);
    arrive();
    const InHandler mark(ticker);
    deliver(ticker.onTick);
}

void servePosted() {
    Desk& d = desk();
    const auto event = d.posted.extract(d.posted.begin());
    d.now = std::max(d.now, event.key());
    arrive();
    deliver(event.mapped().action);
}

/// Serves the earliest event that is due until then; of the posted ones only those posted before that order.
bool serveNext(double until, uint64_t before) {
    Desk& d = desk();
    Ticker* const ticker = nextTicker();
    const double tickDue = ticker != nullptr ? ticker->due : never;
    const auto first = d.posted.begin();
    const double postDue = first != d.posted.end() && first->second.order < before ? first->first : never;
    if (std::min(tickDue, postDue) > until || std::min(tickDue, postDue) == never) return false;
    tickDue <= postDue ? tick(*ticker) : servePosted();
    return true;
}

bool somethingIsToCome() { return !desk().posted.empty() || nextTicker() != nullptr; }

/// Gives the hands their turn: once a moment, so that time goes on, unless they alone can make something happen.
bool handsAct() {
    Desk& d = desk();
    if (!d.hands || (d.handsAt == d.now && somethingIsToCome())) return false;
    const uint64_t before = d.arrivals;
    d.handsAt = d.now;
    const auto hands = d.hands;
    (*hands)();
    return d.arrivals != before;
}

bool stepUntil(double until) { return serveNext(desk().now, anyOrder) || handsAct() || serveNext(until, anyOrder); }

}  // namespace

Desk& desk() {
    static Desk* const theDesk = new Desk;
    return *theDesk;
}

Serial nextSerial() {
    static Serial last = 0;
    return ++last;
}

void arrive() {
    ++desk().arrivals;
    desk().idleServices = 0;
}

void switchOn(uint32_t seed, double secondOfDay) {
    desk() = Desk{};
    desk().seed = seed;
    desk().startSecond = secondOfDay;
    desk().generator.seed(seed);
}

double now() { return desk().now; }
void setLog(std::function<void(const std::string& line)> log) { desk().log = std::move(log); }

void setHands(std::function<void()> hands) {
    desk().hands = hands ? std::make_shared<const std::function<void()>>(std::move(hands)) : nullptr;
}

const std::vector<std::string>& messages() { return desk().messages; }

void post(std::function<void()> action) { postAfter(0, std::move(action)); }

void postAfter(double milliseconds, std::function<void()> action) {
    Desk& d = desk();
    d.posted.emplace(d.now + std::max(0.0, milliseconds), Posted{d.postings++, std::move(action)});
}

void runFor(double milliseconds) {
    const double end = desk().now + milliseconds;
    while (stepUntil(end)) {
    }
    desk().now = std::max(desk().now, end);
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
    sim::Desk& d = sim::desk();
    const double start = d.now;
    const uint64_t posted = d.postings;
    bool served = false;
    while (sim::serveNext(start, posted)) served = true;
    if (!served && d.idleServices++ > 0) d.now += sim::shortestWait;
}

double secondsOfDay() { return std::fmod(sim::desk().startSecond + sim::desk().now / 1000, secondsPerDay); }

void seedRandom() {
    sim::Desk& d = sim::desk();
    if (d.seedings++ == 0) {
        d.generator.seed(d.seed);
        return;
    }
    std::seed_seq mixed{d.seed, d.seedings, static_cast<uint32_t>(static_cast<uint64_t>(d.now))};
    d.generator.seed(mixed);
}

double random() { return static_cast<double>(sim::desk().generator()) / randomRange; }

void messageBox(const std::string& title, const std::string& text) {
    sim::note("message", title + ": " + text);
    sim::desk().messages.push_back(title + ": " + text);
}

void endProcess() {
    sim::note("process ends");
    throw sim::ProcessEnded{};
}

double screenWidth() { return screenPixelsAcross * twipsPerPixel; }
double screenHeight() { return screenPixelsDown * twipsPerPixel; }

}  // namespace platform
