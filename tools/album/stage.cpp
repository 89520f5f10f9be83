#include "tools/album/stage.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "match/frmChooseSeat.h"
#include "presentation/buttons.h"

namespace album {
namespace {

constexpr int playerSeed = 2;  // turns over the third tile of the seat draw
constexpr int deckSeed = 3;
constexpr int stormyHand = 8;  // hand tiles; no hand lasts the minute after which lightning comes by itself
constexpr int rounds = 1;      // of a match
constexpr int32_t windTiles[] = {29, 28, 31, 30};

}  // namespace

Stage::Stage(const Hands& hands)
    : game_(gfrmMain.hold()),
      hands_(hands),
      player_(hands, playerSeed),
      tick_(std::exchange(game_->Timer1.onTick, nullptr)),
      deck_(deckSeed) {}

bool Stage::isPlaying() const { return isBeginning_ || game_->mblnGameRunning || !hands_.seesTableOnly(); }

void Stage::act() {
    layWinds();
    // If it won a hand in which it holds the House, the House would stay, and the match would last.
    player_.setManner({.passing = game_->mlngSeat == game_->mlngHouse ? 100 : 0});
    if (player_.act() || isBeginning_) return;
    if (!game_->mblnGameRunning) return beginMatch();
    if (std::exchange(hand_, game_->mlngHandNumber) != game_->mlngHandNumber) layTiles();
    if (game_->mintHandCount >= stormyHand && !std::exchange(hadLightning_, true)) game_->mblnLightningDue = true;
    if (game_->Timer1.enabled()) tick_();
}

/// One click at a time, so that the pointer has left one button before it comes to the next.
void Stage::beginMatch() {
    isBeginning_ = true;
    if (gintNumRounds != rounds) {
        player_.setRounds(rounds);
    } else if (!game_->mblnPeek) {
        hands_.click(Button::Peek);
    } else {
        ++matches_;
        player_.startMatch();
    }
    isBeginning_ = false;
}

void Stage::layWinds() const {
    if (gfrmChooseSeat.isOpen() && !gfrmChooseSeat->mblnDrawn)
        std::copy(std::begin(windTiles), std::end(windTiles), gfrmChooseSeat->malngSeatTiles.begin());
}

void Stage::layTiles() {
    std::iota(game_->TileOrder.begin(), game_->TileOrder.end(), int16_t{1});
    std::shuffle(game_->TileOrder.begin(), game_->TileOrder.end(), deck_);
}

}  // namespace album
