#include "tools/selfplay/player.h"

#include <cstdlib>
#include <iterator>
#include <string>

#include "forms/frmAbout.h"
#include "frmMain.h"
#include "hiscores/frmGetName.h"
#include "hiscores/frmHiScore.h"
#include "match/frmChooseSeat.h"
#include "match/frmGameSummary.h"
#include "match/frmRoundsSetting.h"
#include "play/frmChooseTiles.h"
#include "presentation/buttons.h"
#include "scoring/frmBreakDown.h"
#include "tools/selfplay/advice.h"

namespace selfplay {
namespace {

constexpr int always = 100;       // times in 100
constexpr unsigned lowBits = 64;  // of the generator, which are less at random

/// Whether a candidate is a pair while the hand still lacks a set of three.
bool isEarlyPair(int candidate) {
    const auto& tiles = PossibleTiles[candidate];
    return tiles[2].Filled && !tiles[3].Filled && gfrmMain->mintHandCount < handTiles - 2;
}

}  // namespace

Player::Player(const Hands& hands, uint32_t seed) : hands_(hands), whim_(seed), seatTile_(anyTile()) {}

bool Player::act() {
    if (answerDialog()) return true;
    const frmMain& game = *gfrmMain.hold();
    const bool steers = game.mintCurRow > 0 && game.Timer1.enabled() && game.Timer1.interval() != dropInterval;
    if (steers) steer();
    return steers;
}

void Player::startMatch() { hands_.click(Button::StartAnew); }

void Player::setRounds(int rounds) {
    rounds_ = rounds;
    hands_.click(Button::RoundsSetting);
}

void Player::pressTimes(int keyCode, int times) const {
    for (int i = 0; i < times; ++i) hands_.press(keyCode);
}

/// True while a dialog is open: then nothing else can be done.
bool Player::answerDialog() {
    if (gfrmChooseTiles.isOpen())
        chooseTiles();
    else if (gfrmChooseSeat.isOpen())
        drawSeat();
    else if (gfrmRoundsSetting.isOpen())
        spinRounds();
    else if (gfrmBreakDown.isOpen() || gfrmGameSummary.isOpen() || gfrmGetName.isOpen() || gfrmHiScore.isOpen() ||
             gfrmAbout.isOpen())
        hands_.press(platform::key::Enter);
    else
        return false;
    return true;
}

/// One key at a time, so that somebody who watches sees the frame go.
void Player::drawSeat() {
    const frmChooseSeat& dialog = *gfrmChooseSeat.hold();
    if (dialog.mblnDrawn) return;  // The tiles lie open for a while.
    if (dialog.mintSelTile != seatTile_) return hands_.press(platform::key::Right);
    seatTile_ = anyTile();
    hands_.press(platform::key::Enter);
}

int Player::anyTile() { return 1 + static_cast<int>(whim_() % seatCount); }

void Player::chooseTiles() {
    if (happens(manner_.aimless)) return fumble();
    const frmChooseTiles& dialog = *gfrmChooseTiles.hold();
    const int pass = dialog.mintNumEntries - 1;
    int entry = happens(manner_.passing)    ? pass
                : happens(manner_.careless) ? anyBelow(dialog.mintNumEntries)
                                            : static_cast<int>(bestCandidateOf(*gfrmMain.hold(), dialog));
    if (isEarlyPair(entry + 1) && happens(manner_.stubborn)) entry = pass;
    pressTimes(platform::key::Right, entry);
    hands_.press(platform::key::Enter);
}

/// By the arrows' own handlers, since what their keys do is the desktop's.
void Player::spinRounds() const {
    frmRoundsSetting& setting = *gfrmRoundsSetting.hold();
    for (int shown = std::stoi(setting.sspNumRounds.caption()); shown != rounds_; shown += shown < rounds_ ? 1 : -1)
        shown < rounds_ ? setting.SpinButton1.onSpinUp() : setting.SpinButton1.onSpinDown();
    hands_.press(platform::key::Enter);
}

/// Moves the tile over the column that suits it best and drops it.
void Player::steer() {
    if (happens(manner_.aimless)) return fumble();
    const frmMain& game = *gfrmMain.hold();
    const int column = happens(manner_.careless) ? 1 + anyBelow(columnCount) : bestColumnOf(game);
    const int steps = column - game.mintCurCol;
    pressTimes(steps < 0 ? platform::key::Left : platform::key::Right, std::abs(steps));
    hands_.press(platform::key::Down);
}

/// A key of play, or none, so that the tile falls.
void Player::fumble() {
    namespace key = platform::key;
    static constexpr int keys[] = {key::Left, key::Right, key::Enter, key::Pad4,
                                   key::Pad6, key::Up,    key::Pad8,  key::Space};
    if (happens(always / 2)) hands_.press(keys[anyBelow(std::size(keys))]);
}

int Player::anyBelow(int count) { return static_cast<int>(whim_() / lowBits % static_cast<unsigned>(count)); }

bool Player::happens(int timesIn100) {
    return timesIn100 >= always || (timesIn100 > 0 && anyBelow(always) < timesIn100);
}

}  // namespace selfplay
