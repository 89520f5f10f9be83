#include "tools/selfplay/books.h"

#include <algorithm>

namespace selfplay {
namespace {

constexpr int suitedTiles = 108, suitTiles = 36, honourTiles = 136, honourKinds = 7;
constexpr int fourSets = 12;  // tiles of a hand that has no room for a fifth

/// Milliseconds a row, by Level: with fewer tiles of the hand than that, and from then on.
struct Pace {
    int slow, tiles, fast;
};
constexpr Pace paces[] = {{400, 0, 400}, {400, 11, 300}, {400, 8, 300}, {300, 0, 300}, {300, 8, 200}};

bool followOneAnother(int first, int second, int third) {
    const int step = second - first;
    const auto suit = [](int kind) { return (kind - 1) / Books::suitKinds; };
    return (step == 1 || step == -1) && third - second == step && std::max(first, third) <= Books::lastSuited &&
           suit(first) == suit(third);
}

}  // namespace

int Books::kindOf(int tile) {
    const int index = tile - 1;
    if (tile <= suitedTiles) return index / suitTiles * suitKinds + index % suitTiles % suitKinds + 1;
    if (tile <= honourTiles) return lastSuited + 1 + (index - suitedTiles) % honourKinds;
    return lastHonour + tile - honourTiles;
}

void Books::beginMatch(int drawnSeat) {
    seat = drawnSeat;
    house = wind = 1;
    score = 0;
    houseMoves = rounds = games = won = 0;
}

void Books::beginHand(uint32_t number, const std::array<int, tiles + 1>& newOrder) {
    hand = number;
    ++version;
    order = newOrder;
    drawn = tile = pairSlot = 0;
    board = {};
    earned.clear();
    bonus.clear();
    sets_.clear();
    worth = {};
    row = nowhere;
    dropped = landing = busy = false;
    offer.clear();
    falls = running = true;
}

Tick Books::beginTick() {
    if (busy) return Tick::Nothing;
    busy = true;
    if (rounds == roundsWanted) {
        running = falls = false;
        return Tick::MatchEnds;
    }
    if (row != nowhere) {
        if (!landsNext()) return Tick::Falls;
        land();
        return Tick::Lands;
    }
    const Pace& byLevel = paces[level - 1];
    pace = static_cast<int>(earned.size()) < byLevel.tiles ? byLevel.slow : byLevel.fast;
    tile = order[++drawn];
    column = entry;
    row = board[1][entry] == 0 ? 1 : 0;
    if (row == 1 && earned.size() < fullHand && drawn < tiles) return Tick::Enters;
    endHand();
    return Tick::HandEnds;
}

void Books::endTick(Tick tick) {
    if (tick == Tick::Falls && falls && !landsNext()) ++row;
    if (tick == Tick::Lands) {
        row = nowhere;
        dropped = landing = false;
    }
    if (tick != Tick::Nothing && tick != Tick::MatchEnds) busy = false;
}

bool Books::landsNext() const { return row == rows || board[row + 1][column] != 0; }

bool Books::steers() const { return row != nowhere && !landing && falls && pace != droppingPace; }

void Books::steer(int step) {
    const int beside = column + step;
    if (steers() && beside >= 1 && beside <= columns && board[row][beside] == 0) column = beside;
}

void Books::drop() {
    if (!steers()) return;
    pace = droppingPace;
    dropped = true;
}

void Books::land() {
    ++version;
    board[row][column] = kindOf(tile);
    landing = true;
    findSets(row, row, column, column);
}

/// Offers the sets that overlap those columns, from the lowest row, which has the highest number, upward.
void Books::findSets(int lowest, int highest, int left, int right) {
    offer.clear();
    for (int count = 1; count <= 3; ++count)
        for (int at = lowest; at >= highest; --at)
            for (int first = std::max(1, left - count + 1); first <= std::min(columns - count + 1, right); ++first)
                if (offer.size() < mostOffered && isSet({at, first, count})) offer.push_back({at, first, count});
}

bool Books::isSet(const Window& window) const {
    const int* kinds = &board[window.row][window.column];
    if (std::count(kinds, kinds + window.tiles, 0) > 0) return false;
    if (window.tiles == 1) return kinds[0] > lastHonour && window.row == rows;
    const bool alike = kinds[0] <= lastHonour && std::equal(kinds + 1, kinds + window.tiles, kinds);
    if (window.tiles == 2) return alike && !hasPair();
    return earned.size() < fourSets && (alike || followOneAnother(kinds[0], kinds[1], kinds[2]));
}

void Books::take(const Window& set) {
    ++version;
    addSet(set);
    for (int c = set.column; c < set.column + set.tiles; ++c) {
        for (int r = set.row; r > 1; --r) board[r][c] = board[r - 1][c];
        board[1][c] = 0;
    }
    if (set.tiles > 1 && earned.size() == fullHand)
        completeHand();
    else
        findSets(set.row, 1, set.column, set.column + set.tiles - 1);
}

void Books::addSet(const Window& set) {
    const int* kinds = &board[set.row][set.column];
    if (set.tiles == 1) return bonus.push_back(kinds[0]);
    if (set.tiles == 2) pairSlot = static_cast<int>(earned.size()) + 1;
    earned.insert(earned.end(), kinds, kinds + set.tiles);
    if (set.tiles == 2) return;
    const bool trio = kinds[0] == kinds[1];
    sets_.push_back({std::min(kinds[0], kinds[2]), trio});
    score += (trio ? 2 : 1) * (dropped ? 2 : 1);
}

/// The pair goes behind the sets, and the hand is worth what it is.
void Books::completeHand() {
    offer.clear();
    const auto pair = earned.begin() + pairSlot - 1;
    std::rotate(pair, pair + 2, earned.end());
    WonHand complete{{}, earned.back(), bonus, house, seat, wind, level};
    std::copy(sets_.begin(), sets_.end(), complete.sets.begin());
    worth = handWorth(complete);
    score += worth.points;
}

void Books::endHand() {
    const bool isWon = earned.size() == fullHand;
    ++games;
    if (isWon) ++won;
    if (isWon && breakDown) falls = false;
    if (isWon && house == seat) return;
    house = house % seats + 1;
    if (++houseMoves < seats) return;
    houseMoves = 0;
    ++rounds;
    wind = wind % seats + 1;
}

}  // namespace selfplay
