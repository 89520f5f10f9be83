#include "tools/selfplay/player.h"

#include <string>
#include <utility>

#include "frmMain.h"
#include "match/frmChooseSeat.h"
#include "match/frmGameSummary.h"
#include "match/frmRoundsSetting.h"
#include "platform/sim/desktop.h"
#include "play/frmChooseTiles.h"
#include "scoring/frmBreakDown.h"

namespace selfplay {
namespace {

constexpr int startAnewButton = 1;
constexpr int levelButton = 2;
constexpr int roundsButton = 6;
constexpr int copiesOfKind = 4;
constexpr int firstSingleKind = 35;  // seasons and flowers are there once

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
        unseen[kind] = static_cast<int8_t>(kind < firstSingleKind ? copiesOfKind : 1);
    for (const auto& level : holding.stacks.kind)
        for (const int kind : level) --unseen[kind];
    for (const CellInfo& slot : game.EarnedTiles) --unseen[slot.Tile.KindIdx];
    unseen[0] = 0;
    return unseen;
}

template <class FormObject>
bool isOpen(FormRef<FormObject>& form) {
    return !form.empty() && form->form.loaded();
}

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

void Player::startMatch() { sim::clickToolButton(startAnewButton); }

void Player::setLevel(int level) {
    level_ = level;
    sim::clickToolButton(levelButton);
}

void Player::setRounds(int rounds) {
    rounds_ = rounds;
    sim::clickToolButton(roundsButton);
}

/// True while a dialog is open: then nothing else can be done.
bool Player::answerDialog() {
    if (isOpen(gfrmChooseTiles)) {
        chooseTiles();
    } else if (isOpen(gfrmChooseSeat)) {
        drawSeat();
    } else if (isOpen(gfrmRoundsSetting)) {
        spinRounds();
    } else if (isOpen(gfrmBreakDown) || isOpen(gfrmGameSummary)) {
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
    std::array<Offer, candidatePlaces> offers;
    size_t count = 0;
    for (int entry = 1; entry < dialog.mintNumEntries; ++entry) {
        int tiles = 0;
        for (const CellInfo& tile : PossibleTiles[entry]) tiles += tile.Filled ? 1 : 0;
        offers[count++] = {static_cast<int8_t>(bottomRow - dialog.maintRows[entry]),
                           static_cast<int8_t>(dialog.maintCols[entry] - 1), static_cast<int8_t>(tiles)};
    }
    const Holding holding = holdingOf(*gfrmMain.hold());
    const Unseen unseen = unseenOf(*gfrmMain.hold(), holding);
    const size_t best = Strategy(holding, unseen).bestOffer({offers.data(), count});
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
    const int kind = game.TileKindOf[game.mintCurTile];
    const Holding holding = holdingOf(game);
    Unseen unseen = unseenOf(game, holding);
    --unseen[kind];
    const int from = game.mintCurCol - 1;
    const int to = Strategy(holding, unseen).bestColumn(kind, from, bottomRow - game.mintCurRow);
    pressTimes(to < from ? platform::key::Left : platform::key::Right, std::abs(to - from));
    sim::pressKey(platform::key::Down);
}

}  // namespace selfplay
