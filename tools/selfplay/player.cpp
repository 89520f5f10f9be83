#include "tools/selfplay/player.h"

#include <algorithm>
#include <array>
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
#include "tools/selfplay/strategy.h"

namespace selfplay {
namespace {

constexpr int always = 100;  // times in 100
constexpr int copiesOfKind = 4;
constexpr unsigned lowBits = 64;  // of the generator, which are less at random

/// Whether a candidate is a pair while the hand still lacks a set of three.
bool isEarlyPair(int candidate) {
    const auto& tiles = PossibleTiles[candidate];
    return tiles[2].Filled && !tiles[3].Filled && gfrmMain->mintHandCount < handTiles - 2;
}

/// What lies on the table.
Holding holdingOf(const frmMain& game) {
    Holding holding;
    for (int row = bottomRow; row >= 1; --row)
        for (int column = 1; column <= columnCount; ++column) {
            const CellInfo& place = game.CellTable[row][column];
            if (place.Filled) holding.stacks.drop(column - 1, place.Tile.KindIdx);
        }
    holding.handTiles = game.mintHandCount;
    holding.pairTaken = game.mblnPairTaken;
    return holding;
}

/// What can still come: all copies but those on the board and among the earned tiles.
Unseen unseenOf(const frmMain& game, const Holding& holding) {
    Unseen unseen;
    for (int kind = 0; kind <= kindCount; ++kind)
        unseen[kind] = static_cast<int8_t>(kind < firstSeasonKind ? copiesOfKind : 1);
    for (const auto& level : holding.stacks.kind)
        for (const int kind : level) --unseen[kind];
    for (const CellInfo& slot : game.EarnedTiles) --unseen[slot.Tile.KindIdx];
    unseen[0] = 0;
    return unseen;
}

/// The best column, from 1, for the tile that is falling, judged by what a player can see.
int bestColumnOf(const frmMain& game) {
    const int kind = game.TileKindOf[game.mintCurTile];
    const Holding holding = holdingOf(game);
    Unseen unseen = unseenOf(game, holding);
    --unseen[kind];
    return Strategy(holding, unseen).bestColumn(kind, game.mintCurCol - 1, bottomRow - game.mintCurRow) + 1;
}

/// The best of the candidates in an open tile chooser, counted from 0; the number of candidates to pass.
size_t bestCandidateOf(const frmMain& game, const frmChooseTiles& dialog) {
    std::array<Candidate, candidatePlaces> candidates;
    size_t count = 0;
    for (int entry = 1; entry < dialog.mintNumEntries; ++entry) {
        const auto tiles = std::ranges::count_if(PossibleTiles[entry], &CellInfo::Filled);
        candidates[count++] = {static_cast<int8_t>(bottomRow - dialog.maintRows[entry]),
                               static_cast<int8_t>(dialog.maintCols[entry] - 1), static_cast<int8_t>(tiles)};
    }
    const Holding holding = holdingOf(game);
    const Unseen unseen = unseenOf(game, holding);
    return Strategy(holding, unseen).bestCandidate({candidates.data(), count});
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
