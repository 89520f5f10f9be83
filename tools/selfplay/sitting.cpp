#include "tools/selfplay/sitting.h"

#include <stdexcept>

#include "platform/sim/simulation.h"

namespace selfplay {
namespace {

constexpr int patience = 1000;  // events without a new tile; a tile has a dozen

}  // namespace

Sitting::Sitting(uint32_t seed, bool refereed) : player_(playersHands_, seed) {
    sim::switchOn(seed);
    game_ = gfrmMain.hold();
    game_->form.show();
    if (refereed) referee_.emplace(*game_);
    sim::setHands([this] {
        watch();
        if (onLook) onLook();
        player_.act();
    });
}

Sitting::~Sitting() {
    sim::setHands({});
    game_.reset();
    gsClearAllForms();
}

void Sitting::setLevel(int level) {
    sim::post([=] { sim::chooseMenuItem(level); });
    playersHands_.click(Button::Level);
}

bool Sitting::playMatch(int mostHands) {
    const int enough = hands_ + mostHands;
    player_.startMatch();
    gamesSeen_ = 0;
    watch();
    while (game_->mblnGameRunning && hands_ < enough && !objection_) {
        const int tile = hand_.tiles;
        stillFor_ = sim::step() ? stillFor_ + 1 : patience;
        watch();
        if (hand_.tiles != tile) stillFor_ = 0;
        if (stillFor_ >= patience) throw std::logic_error("the game stands still");
        if (!sim::messages().empty()) throw std::logic_error("the game reports " + sim::messages().front());
    }
    if (objection_) std::rethrow_exception(objection_);
    return !game_->mblnGameRunning;
}

/// Keeps the report on the hand in play up to date, and lets the referee look.
void Sitting::watch() {
    if (game_->mintGamesPlayed == gamesSeen_ + 1) endHand();
    hand_.tiles = game_->mintTilesDropped;
    hand_.handTiles = game_->mintHandCount;
    hand_.items = gstrScoreDesc;
    hand_.doubles = game_->mintDoubles;
    hand_.points = glngHandPoints;
    if (!referee_ || objection_) return;
    try {
        referee_->check();
    } catch (const std::logic_error&) {
        objection_ = std::current_exception();
    }
}

/// The hand is over, and as a rule the next one has begun: the report is that of the last look.
void Sitting::endHand() {
    gamesSeen_ = game_->mintGamesPlayed;
    hand_.won = hand_.handTiles == handTiles;
    hand_.score = game_->mlngScore;
    ++hands_;
    if (hand_.won) ++won_;
    points_ += hand_.points;
    if (onHand) onHand(hand_);
}

}  // namespace selfplay
