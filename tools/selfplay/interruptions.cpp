#include "tools/selfplay/interruptions.h"

#include <utility>

#include "forms/frmOrder.h"
#include "frmMain.h"
#include "platform/sim/simulation.h"
#include "tools/selfplay/player.h"

namespace selfplay {
namespace {

using tools::Dice;

void press(Dice& dice, Player& /*player*/) {
    namespace key = platform::key;
    static constexpr int keys[] = {key::Left, key::Right, key::Down,  key::Up,     key::Pad2, key::Pad4, key::Pad6,
                                   key::Pad8, key::Enter, key::Space, key::Escape, key::Tab,  'P',       'A'};
    for (int presses = 1 + dice.below(3); presses > 0; --presses) {  // Some type faster than the game can follow.
        const int code = dice.oneOf(keys);
        dice.oneIn(3) ? sim::keyDown(code) : sim::pressKey(code);
    }
}

void setRounds(Dice& dice, Player& player) {
    // A match doesn't end any more if it is set to fewer rounds than were played; that must not come too often.
    const int played = dice.oneIn(20) ? 0 : gfrmMain->mintRoundsPlayed;
    player.setRounds(1 + played + dice.below(2));
}

void chooseLevel(Dice& dice, Player& /*player*/) {
    sim::post([level = dice.below(levelCount + 1)] { sim::chooseMenuItem(level); });
    sim::clickToolButton(Button::Level);
}

void goAway(Dice& dice, Player& /*player*/) {
    constexpr int longest = 5000;  // milliseconds
    sim::goAway();
    sim::postAfter(dice.below(longest), sim::comeBack);
}

void clickOnTable(Dice& dice, Player& /*player*/) {
    constexpr int windowWidth = 795, windowHeight = 581;  // pixels, about
    sim::clickAt(dice.below(windowWidth), dice.below(windowHeight));
}

void type(Dice& /*dice*/, Player& /*player*/) { sim::typeText("Ann 7"); }

template <int button>
void click(Dice& /*dice*/, Player& /*player*/) {
    sim::clickToolButton(button);
}

/// What may come between, and how often beside the others.
struct Interruption {
    int weight;
    void (*happen)(Dice& dice, Player& player);
};

constexpr Interruption interruptions[] = {
    {320, press},
    {80, goAway},
    {40, clickOnTable},
    {40, type},
    {40, chooseLevel},
    {40, setRounds},
    {1, click<Button::StartAnew>},
    {40, click<Button::BreakDown>},
    {40, click<Button::Music>},
    {40, click<Button::HighScores>},
    {40, click<Button::Round>},
    {40, click<Button::Peek>},
    {80, click<Button::Pause>},
    {40, click<Button::Stop>},
    {40, click<Button::Order>},
    {40, click<Button::About>},
    {40, click<Button::Help>},
    {40, click<Button::Gap>},
};

}  // namespace

/// Often just when the next tick comes, so that it is served inside that tick.
void Interruptions::act() {
    goOn();
    if (!dice_.oneIn(moments_)) return;
    const auto happen = dice_.oneByWeight(interruptions).happen;
    const int interval = gfrmMain->Timer1.interval();
    const int delays[] = {0, interval, dice_.below(2 * interval)};
    sim::postAfter(dice_.oneOf(delays), [this, happen] { happen(dice_, player_); });
}

/// Closes the order form, leaves a menu, and ends a pause, now and then.
void Interruptions::goOn() {
    constexpr int patience = 10;     // moments
    constexpr int nextMoment = 100;  // milliseconds
    // Nothing else may be left to come, if he is away or has paused.
    if (!std::exchange(momentComes_, true)) sim::postAfter(nextMoment, [this] { momentComes_ = false; });
    if (!dice_.oneIn(patience)) return;
    sim::chooseMenuItem(0);
    if (gfrmOrder.isOpen()) return sim::press(gfrmOrder->cmdClose);
    if (gfrmMain->mblnGameRunning && !gfrmMain->Timer1.enabled() && sim::modalDepth() == 0)
        sim::clickToolButton(Button::Pause);
}

}  // namespace selfplay
