#include "tools/selfplay/interruptions.h"

#include <iterator>
#include <utility>

#include "forms/frmOrder.h"
#include "frmMain.h"
#include "match/frmRoundsSetting.h"
#include "platform/sim/simulation.h"
#include "tools/selfplay/player.h"

namespace selfplay {

/// What may come between, and how often beside the others.
struct Interruption {
    int weight;
    void (*happen)(Interruptions& all);

    static void press(Interruptions& all) {
        namespace key = platform::key;
        static constexpr int keys[] = {key::Left, key::Right, key::Down,  key::Up,     key::Pad2, key::Pad4, key::Pad6,
                                       key::Pad8, key::Enter, key::Space, key::Escape, key::Tab,  'P',       'A'};
        for (int presses = 1 + all.below(3); presses > 0; --presses) {  // Some type faster than the game can follow.
            const int code = keys[all.below(std::size(keys))];
            all.below(3) == 0 ? sim::keyDown(code) : sim::pressKey(code);
        }
    }
    static void setRounds(Interruptions& all) {
        // A match doesn't end any more if it is set to fewer rounds than were played; that must not come too often.
        const int played = all.below(20) == 0 ? 0 : gfrmMain->mintRoundsPlayed;
        all.player_.setRounds(1 + played + all.below(2));
    }
    static void chooseLevel(Interruptions& all) {
        sim::post([level = all.below(levelCount + 1)] { sim::chooseMenuItem(level); });
        sim::clickToolButton(Button::Level);
    }
    static void goAway(Interruptions& all) {
        constexpr int longest = 5000;  // milliseconds
        sim::goAway();
        sim::postAfter(all.below(longest), sim::comeBack);
    }
    static void clickOnTable(Interruptions& all) { sim::clickAt(all.below(windowWidth), all.below(windowHeight)); }
    static void type(Interruptions& /*all*/) { sim::typeText("Ann 7"); }
    template <int button>
    static void click(Interruptions& /*all*/) {
        sim::clickToolButton(button);
    }

    static constexpr int windowWidth = 795, windowHeight = 581;  // pixels, about
};

namespace {

constexpr Interruption interruptions[] = {
    {320, Interruption::press},
    {80, Interruption::goAway},
    {40, Interruption::clickOnTable},
    {40, Interruption::type},
    {40, Interruption::chooseLevel},
    {40, Interruption::setRounds},
    {1, Interruption::click<Button::StartAnew>},
    {40, Interruption::click<Button::BreakDown>},
    {40, Interruption::click<Button::Music>},
    {40, Interruption::click<Button::HighScores>},
    {40, Interruption::click<Button::Round>},
    {40, Interruption::click<Button::Peek>},
    {80, Interruption::click<Button::Pause>},
    {40, Interruption::click<Button::Stop>},
    {40, Interruption::click<Button::Order>},
    {40, Interruption::click<Button::About>},
    {40, Interruption::click<Button::Help>},
    {40, Interruption::click<Button::Gap>},
};

constexpr int allWeights = [] {
    int sum = 0;
    for (const Interruption& row : interruptions) sum += row.weight;
    return sum;
}();

}  // namespace

Interruptions::Interruptions(Player& player, uint32_t seed, int moments)
    : player_(player), random_(seed), moments_(moments) {}

/// Often just when the next tick comes, so that it is served inside that tick.
void Interruptions::act() {
    goOn();
    if (below(moments_) != 0) return;
    int weight = below(allWeights);
    const Interruption* row = interruptions;
    for (; weight >= row->weight; ++row) weight -= row->weight;
    const int interval = gfrmMain->Timer1.interval();
    const int delays[] = {0, interval, below(2 * interval)};
    sim::postAfter(delays[below(std::size(delays))], [this, row] { row->happen(*this); });
}

/// Closes the order form, leaves a menu, and ends a pause, now and then.
void Interruptions::goOn() {
    constexpr int patience = 10;     // moments
    constexpr int nextMoment = 100;  // milliseconds
    // Nothing else may be left to come, if he is away or has paused.
    if (!std::exchange(momentComes_, true)) sim::postAfter(nextMoment, [this] { momentComes_ = false; });
    if (below(patience) != 0) return;
    sim::chooseMenuItem(0);
    if (gfrmOrder.isOpen()) return sim::press(gfrmOrder->cmdClose);
    if (gfrmMain->mblnGameRunning && !gfrmMain->Timer1.enabled() && sim::modalDepth() == 0)
        sim::clickToolButton(Button::Pause);
}

}  // namespace selfplay
