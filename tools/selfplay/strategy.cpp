#include "tools/selfplay/strategy.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace selfplay {
namespace {

constexpr int topLevel = bottomRow - 1;
constexpr int lastPairedKind = firstSeasonKind - 1;  // seasons and flowers make no sets
constexpr int lastSuitedKind = firstWindKind - 1;

// How much a board is worth, in points of judgement. A gap is the number of tiles that must fall on a column before
// the open place of a window is its next one. Found by play: each is near the best for the others.
constexpr int oneMissing[] = {150, 100, 40, 30};     // by gap, for each copy of the missing kind
constexpr int twoMissing[] = {8, 6, 5, 4, 1, 0};     // by both gaps, for each way to make a sequence
constexpr int pairMissing[] = {20, 15, 0};           // by gap, for each copy of the missing kind
constexpr int lastPairFactor = 7;                    // when nothing but the pair is wanted
constexpr int setGains[] = {0, 300, 8000, 26000};    // by the tiles of a set that is taken
constexpr int heightBurdens[] = {1, 20, 10, 10, 0};  // by distance from the entry, for each square of a stack's height
constexpr int blockedEntry = -1'000'000;
constexpr int wonHand = 10'000'000;

int suitOf(int kind) { return kind >= 1 && kind <= lastSuitedKind ? (kind - 1) / kindsPerSuit + 1 : 0; }

bool sameSuit(int kind, int other) { return suitOf(kind) != 0 && suitOf(kind) == suitOf(other); }

/// The one kind that makes a set of two that stand in a window with a gap at that place, or 0.
int missingKind(int place, int left, int right) {
    if (left == right) return left <= lastPairedKind ? left : 0;
    const int step = right - left;
    if (!sameSuit(left, right) || std::abs(step) > 2) return 0;
    const bool apart = std::abs(step) == 2;
    if (apart != (place == 1)) return 0;
    const int kind = place == 1 ? left + step / 2 : place == 0 ? left - step : right + step;
    return sameSuit(kind, left) ? kind : 0;
}

using MissingKinds = std::array<std::array<std::array<uint8_t, kindCount + 1>, kindCount + 1>, setTiles>;

const MissingKinds missingKinds = [] {
    MissingKinds table{};
    for (int place = 0; place < setTiles; ++place)
        for (int left = 1; left <= kindCount; ++left)
            for (int right = 1; right <= kindCount; ++right)
                table[place][left][right] = static_cast<uint8_t>(missingKind(place, left, right));
    return table;
}();

template <size_t Size>
int byGap(const int (&weights)[Size], int gap) {
    return weights[std::min(gap, static_cast<int>(Size) - 1)];
}

int burdenOf(const Stacks& stacks) {
    int burden = 0;
    for (int column = 0; column < columnCount; ++column) {
        const int height = stacks.height[column];
        burden += heightBurdens[std::abs(column + 1 - entryColumn)] * height * height;
    }
    return burden;
}

bool isSet(const Holding& holding, const Candidate& window) {
    const auto& row = holding.stacks.kind[window.level];
    const int first = row[window.column];
    if (first == 0) return false;
    if (window.tiles == 1) return first > lastPairedKind && window.level == 0;
    const int second = row[window.column + 1];
    if (window.tiles == 2) return !holding.pairTaken && first == second && first <= lastPairedKind;
    const int third = row[window.column + 2];
    return third != 0 && second != 0 && holding.handTiles < handTiles - 2 && missingKinds[2][first][second] == third;
}

/// The sets that the game will show: enough room for all that it can.
struct CandidateList {
    std::array<Candidate, candidateLimit> list;
    size_t count = 0;
    operator std::span<const Candidate>() const { return {list.data(), count}; }
};

/// The candidates in windows that overlap so many columns, on the levels from lowest to highest.
CandidateList findCandidates(const Holding& holding, int lowest, int highest, int column, int columns) {
    CandidateList candidates;
    for (int tiles = 1; tiles <= setTiles; ++tiles)
        for (int level = lowest; level <= highest; ++level) {
            const int last = std::min(columnCount - tiles, column + columns - 1);
            for (int left = std::max(0, column - tiles + 1); left <= last; ++left) {
                const Candidate window{static_cast<int8_t>(level), static_cast<int8_t>(left),
                                       static_cast<int8_t>(tiles)};
                if (candidates.count < candidateLimit && isSet(holding, window))
                    candidates.list[candidates.count++] = window;
            }
        }
    return candidates;
}

}  // namespace

void Stacks::drop(int column, int tileKind) { kind[height[column]++][column] = static_cast<uint8_t>(tileKind); }

void Stacks::remove(int level, int column, int tiles) {
    for (int c = column; c < column + tiles; ++c) {
        --height[c];
        for (int l = level; l < height[c]; ++l) kind[l][c] = kind[l + 1][c];
        kind[height[c]][c] = 0;
    }
}

Strategy::Strategy(const Holding& holding, const Unseen& unseen) : holding_(holding), unseen_(unseen) { findChances(); }

int Strategy::chanceOfRun(int kind, int firstStep, int secondStep) const {
    const int first = kind + firstStep;
    const int second = kind + secondStep;
    return sameSuit(first, kind) && sameSuit(second, kind) ? unseen_[first] * unseen_[second] : 0;
}

void Strategy::findChances() {
    for (int kind = 1; kind <= lastSuitedKind; ++kind) {
        const int outward = chanceOfRun(kind, 1, 2) + chanceOfRun(kind, -1, -2);
        const int around = 2 * chanceOfRun(kind, -1, 1);  // the lower one at the left or at the right
        chances_[kind] = {outward, around, outward};
    }
}

int Strategy::valueOfWindow(const Stacks& stacks, int level, int column) const {
    const uint8_t* kinds = &stacks.kind[level][column];
    const auto gap = [&](int place) { return level - stacks.height[column + place]; };
    const auto nearly = [&](int place, int left, int right) {
        return byGap(oneMissing, gap(place)) * unseen_[missingKinds[place][left][right]];
    };
    const auto begun = [&](int place, int open, int alsoOpen) {
        return byGap(twoMissing, gap(open) + gap(alsoOpen)) * chances_[kinds[place]][place];
    };
    switch ((kinds[0] != 0 ? 1 : 0) + (kinds[1] != 0 ? 2 : 0) + (kinds[2] != 0 ? 4 : 0)) {
        case 1:
            return begun(0, 1, 2);
        case 2:
            return begun(1, 0, 2);
        case 3:
            return nearly(2, kinds[0], kinds[1]);
        case 4:
            return begun(2, 0, 1);
        case 5:
            return nearly(1, kinds[0], kinds[2]);
        case 6:
            return nearly(0, kinds[1], kinds[2]);
        default:
            return 0;
    }
}

int Strategy::valueOfPairs(const Stacks& stacks, int level) const {
    const auto& row = stacks.kind[level];
    const auto waits = [&](int kind, int open) {
        return kind <= lastPairedKind ? byGap(pairMissing, level - stacks.height[open]) * unseen_[kind] : 0;
    };
    int sum = 0;
    for (int column = 0; column + 1 < columnCount; ++column) {
        if (row[column] != 0 && row[column + 1] == 0) sum += waits(row[column], column + 1);
        if (row[column] == 0 && row[column + 1] != 0) sum += waits(row[column + 1], column);
    }
    return sum;
}

int Strategy::valueOfLevel(const Holding& holding, int level) const {
    const bool wantsSets = holding.handTiles < handTiles - 2;
    int sum = 0;
    if (wantsSets)
        for (int column = 0; column + 2 < columnCount; ++column) sum += valueOfWindow(holding.stacks, level, column);
    if (!holding.pairTaken) sum += valueOfPairs(holding.stacks, level) * (wantsSets ? 1 : lastPairFactor);
    return sum;
}

int Strategy::value(const Holding& holding) const {
    const auto& height = holding.stacks.height;
    int sum = -burdenOf(holding.stacks);
    if (height[entryColumn - 1] > topLevel) sum += blockedEntry;
    const int highest = *std::max_element(height.begin(), height.end());
    for (int level = 0; level < highest; ++level) sum += valueOfLevel(holding, level);
    return sum;
}

int Strategy::valueAfterTaking(const Holding& holding, const Candidate& candidate) const {
    Holding after = holding;
    after.stacks.remove(candidate.level, candidate.column, candidate.tiles);
    if (candidate.tiles > 1) after.handTiles += candidate.tiles;
    if (candidate.tiles == 2) after.pairTaken = true;
    if (after.handTiles == handTiles) return wonHand;
    return setGains[candidate.tiles] +
           valueAtBest(after, findCandidates(after, candidate.level, topLevel, candidate.column, candidate.tiles));
}

int Strategy::valueAtBest(const Holding& holding, std::span<const Candidate> candidates) const {
    int best = value(holding);
    for (const Candidate& candidate : candidates) best = std::max(best, valueAfterTaking(holding, candidate));
    return best;
}

int Strategy::valueAfterDrop(int kind, int column) const {
    Holding after = holding_;
    const int level = after.stacks.height[column];
    after.stacks.drop(column, kind);
    return valueAtBest(after, findCandidates(after, level, level, column, 1));
}

int Strategy::bestColumn(int kind, int from, int level) const {
    int best = from;
    int bestValue = std::numeric_limits<int>::min();
    const auto consider = [&](int column) {
        const int found = valueAfterDrop(kind, column);
        if (found > bestValue) {
            best = column;
            bestValue = found;
        }
    };
    const auto reachable = [&](int column) { return holding_.stacks.height[column] <= level; };
    for (int column = from; column >= 0 && reachable(column); --column) consider(column);
    for (int column = from + 1; column < columnCount && reachable(column); ++column) consider(column);
    return best;
}

size_t Strategy::bestCandidate(std::span<const Candidate> candidates) const {
    size_t best = candidates.size();
    int bestValue = value(holding_);
    for (size_t i = 0; i < candidates.size(); ++i) {
        const int found = valueAfterTaking(holding_, candidates[i]);
        if (found <= bestValue) continue;
        best = i;
        bestValue = found;
    }
    return best;
}

}  // namespace selfplay
