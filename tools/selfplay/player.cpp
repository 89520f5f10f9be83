#include "tools/selfplay/player.h"

#include <string>
#include <utility>

#include "frmMain.h"
#include "hiscores/frmGetName.h"
#include "hiscores/frmHiScore.h"
#include "match/frmChooseSeat.h"
#include "match/frmGameSummary.h"
#include "match/frmRoundsSetting.h"
#include "platform/sim/simulation.h"
#include "play/frmChooseTiles.h"
#include "scoring/frmBreakDown.h"
#include "tools/selfplay/advice.h"

namespace selfplay {
namespace {

void pressTimes(int keyCode, int times) {
    for (int i = 0; i < times; ++i) sim::pressKey(keyCode);
}

}  // namespace

void Player::act() {
    if (level_ != 0) return sim::chooseMenuItem(std::exchange(level_, 0));
    if (sim::modalDepth() > 0 && answerDialog()) return;
    const frmMain& game = *gfrmMain.hold();
    if (game.mintCurRow > 0 && game.Timer1.enabled() && game.Timer1.interval() != dropInterval) steer();
}

void Player::startMatch() { sim::clickToolButton(Button::StartAnew); }

void Player::setLevel(int level) {
    level_ = level;
    sim::clickToolButton(Button::Level);
}

void Player::setRounds(int rounds) {
    rounds_ = rounds;
    sim::clickToolButton(Button::RoundsSetting);
}

/// True while a dialog is open: then nothing else can be done.
bool Player::answerDialog() {
    if (gfrmChooseTiles.isOpen()) {
        chooseTiles();
    } else if (gfrmChooseSeat.isOpen()) {
        drawSeat();
    } else if (gfrmRoundsSetting.isOpen()) {
        spinRounds();
    } else if (gfrmGetName.isOpen()) {
        sim::typeText("Velmora");
        sim::pressKey(platform::key::Enter);
    } else if (gfrmBreakDown.isOpen() || gfrmGameSummary.isOpen() || gfrmHiScore.isOpen()) {
        sim::pressKey(platform::key::Enter);
    } else {
        return false;
    }
    return true;
}

void Player::drawSeat() {
    if (gfrmChooseSeat->mblnDrawn) return;
    pressTimes(platform::key::Left, static_cast<int>(whim_() % seatCount));
    pressTimes(platform::key::Right, static_cast<int>(whim_() % seatCount));
    sim::pressKey(platform::key::Enter);
}

void Player::chooseTiles() {
    const frmChooseTiles& dialog = *gfrmChooseTiles.hold();
    const size_t best = bestCandidateOf(*gfrmMain.hold(), dialog);
    pressTimes(platform::key::Right, static_cast<int>(best));
    sim::pressKey(platform::key::Enter);
}

void Player::spinRounds() {
    for (int shown = std::stoi(gfrmRoundsSetting->sspNumRounds.caption()); shown != rounds_;
         shown += shown < rounds_ ? 1 : -1) {
        if (shown < rounds_)
            sim::clickSpinUp();
        else
            sim::clickSpinDown();
    }
    sim::clickButton("OK");
}

/// Moves the tile over the column that suits it best and drops it.
void Player::steer() {
    const frmMain& game = *gfrmMain.hold();
    const int steps = bestColumnOf(game) - game.mintCurCol;
    pressTimes(steps < 0 ? platform::key::Left : platform::key::Right, std::abs(steps));
    sim::pressKey(platform::key::Down);
}

}  // namespace selfplay
