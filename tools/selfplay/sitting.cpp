#include "tools/selfplay/sitting.h"

#include <stdexcept>

namespace selfplay {
namespace {

constexpr int patience = 5000;  // events without a new tile; a tile has a dozen, if nobody comes between

}  // namespace

Sitting::Sitting(uint32_t seed, bool refereed) : seed_(seed), player_(playersHands_, seed) {
    sim::switchOn(seed);
    // The values that dialogs share are those of a program that has just begun.
    gaudtHiScore = {};
    gstrScoreDesc.clear();
    glngHandPoints = 0;
    game_ = gfrmMain.hold();
    game_->form.show();
    if (refereed) referee_.emplace(*game_);
    sim::setWitness([this] {
        if (referee_) referee_->look();
        watch();
    });
    sim::setHands([this] { act(); });
}

Sitting::~Sitting() {
    sim::setHands({});
    sim::setWitness({});
    referee_.reset();
    game_.reset();
    gsClearAllForms();
}

void Sitting::setLevel(int level) {
    sim::post([=] { sim::chooseMenuItem(level); });
    playersHands_.click(Button::Level);
}

void Sitting::interrupt(int moments) { interruptions_.emplace(player_, seed_, moments); }

void Sitting::act() {
    if (const auto look = onLook) look();
    if (interruptions_) interruptions_->act();
    player_.act();
}

bool Sitting::playMatch(int mostHands) {
    const int enough = hands_ + mostHands;
    player_.startMatch();
    checkCourse();
    while (game_->mblnGameRunning && hands_ < enough) {
        const int tile = hand_.tiles;
        stillFor_ = sim::step() ? stillFor_ + 1 : patience;
        watch();
        if (hand_.tiles != tile) stillFor_ = 0;
        checkCourse();
    }
    return !game_->mblnGameRunning;
}

/// Once no handler is at work, which would take what is thrown for a failure of its own.
void Sitting::checkCourse() {
    if (referee_ && !referee_->objection().empty()) throw std::logic_error(referee_->objection());
    if (!sim::messages().empty()) throw std::logic_error("the game reports " + sim::messages().front());
    if (stillFor_ >= patience) throw std::logic_error("the game stands still");
}

/// Keeps the report on the hand in play up to date.
void Sitting::watch() {
    if (game_->mintGamesPlayed < gamesSeen_) gamesSeen_ = 0;  // Another match has begun.
    if (game_->mintGamesPlayed > gamesSeen_) endHand();
    hand_.tiles = game_->mintTilesDropped;
    hand_.handTiles = game_->mintHandCount;
    hand_.doubles = game_->mintDoubles;
    hand_.points = glngHandPoints;
    if (hand_.items != gstrScoreDesc) hand_.items = gstrScoreDesc;
}

/// The hand is over, and as a rule the next one has begun: the report is that of the last look.
void Sitting::endHand() {
    gamesSeen_ = game_->mintGamesPlayed;
    hand_.won = hand_.handTiles == handTiles;
    hand_.level = game_->mlngLevel;
    hand_.score = game_->mlngScore;
    ++hands_;
    if (onHand) onHand(hand_);
}

}  // namespace selfplay
