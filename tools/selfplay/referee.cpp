#include "tools/selfplay/referee.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "play/frmChooseTiles.h"

namespace selfplay {
namespace {

constexpr int suitKinds = 9;
constexpr int firstHonour = 28;
constexpr int firstBonus = 35;
constexpr int firstHonourNumber = 10;
constexpr int copiesOfKind = 4;
constexpr int seatsAndWinds = 4;

bool sameKinds(const std::array<int, setTiles>& kinds, int tiles) {
    return kinds[0] < firstBonus &&
           std::all_of(kinds.begin(), kinds.begin() + tiles, [&](int kind) { return kind == kinds[0]; });
}

bool isSequence(const std::array<int, setTiles>& kinds) {
    const auto [low, high] = std::minmax({kinds[0], kinds[1], kinds[2]});
    return high < firstHonour && (low - 1) / suitKinds == (high - 1) / suitKinds && high - low == 2 &&
           kinds[1] == low + 1;
}

/// Whether a face is the one that belongs to its kind.
bool isTrueFace(const TileKind& tile) {
    const int kind = tile.KindIdx;
    if (kind < 1 || kind > kindCount) return false;
    const bool suited = kind < firstHonour;
    const bool bonus = kind >= firstBonus;
    const int number = suited ? (kind - 1) % suitKinds + 1 : bonus ? 0 : kind - firstHonour + firstHonourNumber;
    return tile.Number == number && tile.Suit == (suited ? (kind - 1) / suitKinds + 1 : 0) &&
           tile.Bonus == (bonus ? kind - firstBonus + 1 : 0);
}

bool isClear(const CellInfo& place) { return !place.Filled && place.Tile.KindIdx == 0; }

}  // namespace

void Referee::check() {
    if (game_.mlngHandNumber == 0) return;  // Nothing has been played yet.
    followMatch();
    followBonusTiles();
    followSets();
    checkBoard();
    checkTiles();
    checkCounters();
    checkEarnedSlots();
    checkMatch();
    tilesFallen_ = game_.mintTilesDropped;
    entryBlocked_ = game_.CellTable[1][entryColumn].Filled;
}

void Referee::require(bool holds, const char* otherwise) const {
    if (!holds) object(otherwise);
}

void Referee::object(const std::string& complaint) const {
    throw std::logic_error(complaint + " (hand " + std::to_string(game_.mlngHandNumber) + ", tile " +
                           std::to_string(game_.mintTilesDropped) + ")");
}

/// Whether the landed tile is on the board already while its landing goes on.
bool Referee::isLanding() const { return gfrmChooseTiles.isOpen(); }

bool Referee::isFalling() const { return game_.mintCurRow != noRow && !isLanding(); }

void Referee::checkBoard() const {
    for (int column = 1; column <= columnCount; ++column) {
        require(isClear(game_.CellTable[0][column]), "a tile rests in row 0");
        for (int row = 1; row <= bottomRow; ++row) {
            const CellInfo& place = game_.CellTable[row][column];
            require(place.Filled ? isTrueFace(place.Tile) : isClear(place), "a place shows a false face");
            require(!place.Filled || row == bottomRow || game_.CellTable[row + 1][column].Filled, "a tile floats");
        }
    }
}

void Referee::checkTiles() const {
    std::array<int, kindCount + 1> copies{};
    for (const auto& row : game_.CellTable)
        for (const CellInfo& place : row) ++copies[place.Tile.KindIdx];
    for (const CellInfo& slot : game_.EarnedTiles) ++copies[slot.Tile.KindIdx];
    const auto countTile = [&](int tile) { ++copies[game_.TileKindOf[tile]]; };
    if (isFalling()) countTile(game_.mintCurTile);
    for (int position = game_.mintTilesDropped + 1; position <= tileCount; ++position)
        countTile(game_.TileOrder[position]);
    for (int kind = 1; kind <= kindCount; ++kind)
        require(copies[kind] == (kind < firstBonus ? copiesOfKind : 1), "a tile is lost or doubled");
}

void Referee::checkCounters() const {
    require(game_.mintTilesDropped >= 0 && game_.mintTilesDropped <= tileCount,
            "more tiles have fallen than there are");
    require(game_.mintTilesDropped < tileCount || closed_, "the hand goes on after its last tile");
    require(game_.mintTilesDropped == 0 || game_.mintCurTile == game_.TileOrder[game_.mintTilesDropped],
            "another tile falls than the order says");
    require(game_.mintHandCount == handTiles_, "the count of hand tiles is wrong");
    require(game_.mintEarnedCount == handTiles_, "the count of earned tiles is wrong");
    require(game_.mintBonusCount == static_cast<int>(bonusKinds_.size()), "the count of bonus tiles is wrong");
    require(game_.mblnPairTaken == (pairAt_ >= 0), "the pair is there or isn't, but the game says otherwise");
    require(game_.mintPairSlot == (pairAt_ < 0 ? 0 : pairAt_ * setTiles + 1), "the pair's slot is wrong");
    require(game_.mintPossibleCount == (isLanding() ? gfrmChooseTiles->mintNumEntries - 1 : 0),
            "candidates are left without an offer");
    const bool dropped = game_.mintCurRow != noRow && game_.Timer1.interval() == dropInterval;
    require(game_.mblnDropKeyUsed == dropped, "the drop key and the speed of the fall disagree");
}

/// The sets stand in the order of taking; once the hand is complete the pair stands behind them.
void Referee::checkEarnedSlots() const {
    int slot = 0;
    const auto expect = [&](const Taken& taken) {
        for (int i = 0; i < taken.tiles; ++i) {
            const CellInfo& place = game_.EarnedTiles[++slot];
            require(place.Filled && place.Tile.KindIdx == taken.kinds[i] && isTrueFace(place.Tile),
                    "an earned set isn't where it belongs");
        }
    };
    const bool pairLast = handTiles_ == handTiles;
    for (int i = 0; i < sets_; ++i)
        if (!pairLast || i != pairAt_) expect(taken_[i]);
    if (pairLast) expect(taken_[pairAt_]);
    while (slot < handTiles) require(isClear(game_.EarnedTiles[++slot]), "an earned slot is filled without a set");
    for (const int kind : bonusKinds_)
        require(game_.EarnedTiles[++slot].Tile.KindIdx == kind, "a bonus tile isn't where it belongs");
    while (slot < slotCount) require(isClear(game_.EarnedTiles[++slot]), "a bonus slot is filled without a tile");
}

/// All that goes round the table follows from how often the House has moved.
void Referee::checkMatch() const {
    require(game_.mlngScore == score_, "the score isn't the sum of what was earned");
    require(game_.mintGamesWon == gamesWon_, "the count of hands won is wrong");
    require(game_.mlngHouse == houseMoves_ % seatsAndWinds + 1, "the House is on the wrong seat");
    require(game_.mintHouseMoves == houseMoves_ % seatsAndWinds, "the moves of the House are miscounted");
    require(game_.mintRoundsPlayed == houseMoves_ / seatsAndWinds, "the rounds are miscounted");
    require(game_.mlngRoundWind == houseMoves_ / seatsAndWinds % seatsAndWinds + 1, "the wind of the round is wrong");
    require(game_.mlngSeat >= 1 && game_.mlngSeat <= seatCount, "the player has no seat");
}

void Referee::followMatch() {
    const bool otherHand = game_.mlngHandNumber != hand_;
    if (otherHand && game_.mintGamesPlayed == 0) {
        openMatch();
        return openHand();
    }
    require(game_.mintGamesPlayed == games_ || game_.mintGamesPlayed == games_ + 1, "the hands are miscounted");
    if (game_.mintGamesPlayed != games_) closeHand();
    if (otherHand) openHand();
}

void Referee::openMatch() {
    games_ = 0;
    gamesWon_ = 0;
    houseMoves_ = 0;
    score_ = 0;
    closed_ = true;
}

void Referee::openHand() {
    require(closed_, "a hand begins while another is open");
    require(game_.mlngHandNumber != hand_, "a hand is counted twice");
    hand_ = game_.mlngHandNumber;
    closed_ = false;
    taken_ = {};
    sets_ = 0;
    handTiles_ = 0;
    pairAt_ = -1;
    bonusKinds_.clear();
}

void Referee::closeHand() {
    require(!closed_, "a hand ends twice");
    const bool won = handTiles_ == handTiles;
    require(won || entryBlocked_ || tilesFallen_ == tileCount - 1, "a hand ends for no reason");
    closed_ = true;
    ++games_;
    if (won) {
        ++gamesWon_;
        ++won_;
    }
    const bool playerIsHouse = houseMoves_ % seatsAndWinds + 1 == game_.mlngSeat;
    if (!won || !playerIsHouse) ++houseMoves_;
}

void Referee::followBonusTiles() {
    const auto slotOfNext = [&] { return handTiles + 1 + static_cast<int>(bonusKinds_.size()); };
    while (slotOfNext() <= slotCount && game_.EarnedTiles[slotOfNext()].Filled) {
        const int kind = game_.EarnedTiles[slotOfNext()].Tile.KindIdx;
        require(kind >= firstBonus, "a tile was taken alone that is no flower or season");
        bonusKinds_.push_back(kind);
    }
}

void Referee::followSets() {
    int filled = 0;
    while (filled < handTiles && game_.EarnedTiles[filled + 1].Filled) ++filled;
    if (filled == handTiles_) return;
    const int tiles = filled - handTiles_;
    require(tiles == 2 || tiles == setTiles, "a set of neither two nor three tiles was taken");
    settle(lastTaken(tiles));
}

/// The set that was taken just now. The last one of a hand stands before the pair if the pair was taken earlier.
Referee::Taken Referee::lastTaken(int tiles) const {
    const bool pairBehind = handTiles_ + tiles == handTiles && pairAt_ >= 0;
    const int before = pairBehind ? handTiles_ - 2 : handTiles_;
    Taken taken{{}, tiles};
    for (int i = 0; i < tiles; ++i) taken.kinds[i] = game_.EarnedTiles[before + i + 1].Tile.KindIdx;
    return taken;
}

/// Enters a set into the books, with its points.
void Referee::settle(const Taken& taken) {
    const bool alike = sameKinds(taken.kinds, taken.tiles);
    if (taken.tiles == 2) {
        require(alike, "a pair was taken that is none");
        require(pairAt_ < 0, "a second pair was taken");
        pairAt_ = sets_;
    } else {
        require(alike || isSequence(taken.kinds), "a set was taken that is none");
        const int points = (alike ? 2 : 1) * (game_.Timer1.interval() == dropInterval ? 2 : 1);
        score_ += points;
    }
    taken_[sets_++] = taken;
    handTiles_ += taken.tiles;
    require(handTiles_ <= handTiles, "more than a hand was taken");
    if (handTiles_ == handTiles) checkTally();
}

void Referee::checkTally() {
    const HandWorth worth = handWorth(wonHand());
    std::string list;
    for (const auto& item : worth.items) {
        if (!list.empty()) list += ',';
        list += item.text;
    }
    if (gstrScoreDesc != list) object("the hand's items are not " + list + " but " + gstrScoreDesc);
    require(game_.mintDoubles == worth.doubles, "the hand's doubles are miscounted");
    require(glngHandPoints == worth.points, "the hand's points are miscounted");
    score_ += worth.points;
}

WonHand Referee::wonHand() const {
    WonHand hand{{},
                 taken_[pairAt_].kinds[0],
                 bonusKinds_,
                 game_.mlngHouse,
                 game_.mlngSeat,
                 game_.mlngRoundWind,
                 game_.mlngLevel};
    auto set = hand.sets.begin();
    for (int i = 0; i < sets_; ++i) {
        const auto& kinds = taken_[i].kinds;
        if (i != pairAt_) *set++ = {std::min({kinds[0], kinds[1], kinds[2]}), kinds[0] == kinds[1]};
    }
    return hand;
}

}  // namespace selfplay
