#include "tools/album/player.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <utility>

#include "hiscores/frmGetName.h"
#include "hiscores/frmHiScore.h"
#include "match/frmChooseSeat.h"
#include "match/frmGameSummary.h"
#include "match/frmRoundsSetting.h"
#include "play/frmChooseTiles.h"
#include "presentation/buttons.h"
#include "scoring/frmBreakDown.h"
#include "tools/selfplay/advice.h"

namespace album {
namespace {

constexpr int deckSeed = 3;
constexpr int stormyHand = 8;      // hand tiles; no hand lasts the minute after which lightning comes by itself
constexpr int rounds = 1;          // of a match
constexpr int16_t chosenTile = 3;  // of the seat draw
constexpr int32_t windTiles[] = {29, 28, 31, 30};

}  // namespace

Player::Player(const Hands& hands)
    : game_(gfrmMain.hold()), hands_(hands), tick_(std::exchange(game_->Timer1.onTick, nullptr)), deck_(deckSeed) {}

bool Player::isPlaying() const { return isBeginning_ || game_->mblnGameRunning || !hands_.seesTableOnly(); }

void Player::act() {
    if (answerDialog() || isBeginning_) return;
    if (!game_->mblnGameRunning) return beginMatch();
    if (std::exchange(hand_, game_->mlngHandNumber) != game_->mlngHandNumber) layTiles();
    if (game_->mintHandCount >= stormyHand && !std::exchange(hadLightning_, true)) game_->mblnLightningDue = true;
    if (game_->mintCurRow == 1 && game_->Timer1.interval() != dropInterval)
        steer();
    else if (game_->Timer1.enabled())
        tick_();
}

bool Player::answerDialog() {
    if (gfrmChooseTiles.isOpen())
        chooseTiles();
    else if (gfrmChooseSeat.isOpen())
        drawSeat();
    else if (gfrmRoundsSetting.isOpen())
        spinRounds();
    else if (gfrmBreakDown.isOpen() || gfrmGameSummary.isOpen() || gfrmGetName.isOpen() || gfrmHiScore.isOpen())
        hands_.press(Qt::Key_Return);
    else
        return false;
    return true;
}

void Player::spinRounds() {
    const int shown = std::stoi(gfrmRoundsSetting->sspNumRounds.caption());
    hands_.press(shown > rounds ? Qt::Key_Down : Qt::Key_Return);
}

void Player::drawSeat() {
    frmChooseSeat& dialog = *gfrmChooseSeat.hold();
    if (dialog.mblnDrawn) return;  // The tiles lie open for a while.
    std::copy(std::begin(windTiles), std::end(windTiles), dialog.malngSeatTiles.begin());
    hands_.press(dialog.mintSelTile < chosenTile ? Qt::Key_Right : Qt::Key_Return);
}

/// Takes the best set, but none in a hand that it holds the House in: if it won that, the House would stay.
void Player::chooseTiles() {
    const frmChooseTiles& dialog = *gfrmChooseTiles.hold();
    const bool gives = game_->mlngSeat == game_->mlngHouse;
    hands_.press(Qt::Key_Right,
                 gives ? dialog.mintNumEntries - 1 : static_cast<int>(selfplay::bestCandidateOf(*game_, dialog)));
    hands_.press(Qt::Key_Return);
}

/// One click at a time, so that the pointer has left one button before it comes to the next.
void Player::beginMatch() {
    isBeginning_ = true;
    if (gintNumRounds != rounds) {
        hands_.click(Button::RoundsSetting);
    } else if (!game_->mblnPeek) {
        hands_.click(Button::Peek);
    } else {
        ++matches_;
        hands_.click(Button::StartAnew);
    }
    isBeginning_ = false;
}

void Player::layTiles() {
    std::iota(game_->TileOrder.begin(), game_->TileOrder.end(), int16_t{1});
    std::shuffle(game_->TileOrder.begin(), game_->TileOrder.end(), deck_);
}

void Player::steer() {
    const int steps = selfplay::bestColumnOf(*game_) - game_->mintCurCol;
    hands_.press(steps < 0 ? Qt::Key_Left : Qt::Key_Right, std::abs(steps));
    hands_.press(Qt::Key_Down);
}

}  // namespace album
