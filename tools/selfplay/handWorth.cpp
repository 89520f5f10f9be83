#include "tools/selfplay/handWorth.h"

#include <algorithm>
#include <bitset>

namespace selfplay {
namespace {

constexpr int suitKinds = 9;
constexpr int firstWind = 28;
constexpr int firstDragon = 32;
constexpr int firstSeason = 35;
constexpr int firstFlower = 39;
constexpr int perRing = 4;  // seats, winds, seasons, flowers
constexpr size_t bonusTiles = 8;
constexpr int basePoints = 50;
constexpr int leastDoubles[] = {0, 1, 2, 3, 4};  // by Level
constexpr std::string_view dragonTrios[] = {"Red Dragon Trio", "Green Dragon Trio", "Blue Dragon Trio"};

bool isWind(int kind) { return kind >= firstWind && kind < firstDragon; }
bool isDragon(int kind) { return kind >= firstDragon && kind < firstSeason; }
bool isHonour(int kind) { return kind >= firstWind; }
bool isEndOfSuit(int kind) { return !isHonour(kind) && (kind % suitKinds == 0 || kind % suitKinds == 1); }

/// A hand on its way to its worth.
struct Count {
    const WonHand& hand;
    HandWorth worth;

    void add(std::string_view text, int doubles) {
        worth.items.push_back({text, doubles});
        worth.doubles += doubles;
    }
    int place() const { return (hand.seat - hand.house + perRing) % perRing; }

    template <class Matches>
    int trios(Matches matches) const {
        return static_cast<int>(std::count_if(hand.sets.begin(), hand.sets.end(),
                                              [&](const auto& set) { return set.trio && matches(set.lowestKind); }));
    }
    template <class Matches>
    bool everywhere(Matches matches) const {
        return matches(hand.pairKind) && std::all_of(hand.sets.begin(), hand.sets.end(),
                                                     [&](const auto& set) { return matches(set.lowestKind); });
    }
};

void countBonusTiles(Count& count) {
    std::bitset<bonusTiles> held;
    for (const int kind : count.hand.bonusKinds) {
        held.set(kind - firstSeason);
        if (kind == firstFlower + count.place()) count.add("Own Flower Tile", 1);
        if (kind == firstSeason + count.place()) count.add("Own Season Tile", 1);
    }
    const std::bitset<bonusTiles> allSeasons(0x0F);
    const std::bitset<bonusTiles> allFlowers(0xF0);
    if ((held & allSeasons) == allSeasons) count.add("Four Seasons Set", 2);
    if ((held & allFlowers) == allFlowers) count.add("Four Flowers Set", 2);
    if (held.count() >= 7) count.add("Seven Flower/Season Combo", 3);
}

void countDragons(Count& count) {
    const int dragons = count.trios(isDragon);
    if (dragons == 3) return count.add("Three Dragons Set", 4);
    if (dragons == 2 && isDragon(count.hand.pairKind)) return count.add("Two Dragons Set", 3);
    for (const auto& set : count.hand.sets)
        if (set.trio && isDragon(set.lowestKind)) count.add(dragonTrios[set.lowestKind - firstDragon], 1);
}

void countWinds(Count& count) {
    for (const auto& set : count.hand.sets) {
        if (!set.trio) continue;
        if (set.lowestKind == firstWind + count.hand.wind - 1) count.add("Prevailing Wind Trio", 1);
        if (set.lowestKind == firstWind + count.place()) count.add("Own Wind Trio", 1);
    }
    const int winds = count.trios(isWind);
    if (winds == 4) count.add("Four Winds Set", 4);
    if (winds == 3 && isWind(count.hand.pairKind)) count.add("Three Winds Set", 3);
}

void countSuits(Count& count) {
    std::bitset<3> suits;
    const auto note = [&](int kind) {
        if (!isHonour(kind)) suits.set((kind - 1) / suitKinds);
    };
    for (const auto& set : count.hand.sets) note(set.lowestKind);
    note(count.hand.pairKind);
    if (suits.count() != 1) return;
    if (count.everywhere([](int kind) { return !isHonour(kind); }))
        count.add("Pure Suit Hand", 6);
    else
        count.add("Semi-Pure Suit Hand", 3);
}

void countShapes(Count& count) {
    const int trios = count.trios([](int) { return true; });
    if (trios == 0) return count.add("Sequence Hand", 1);
    if (trios < static_cast<int>(count.hand.sets.size())) return count.add("Mixed Hand", 0);
    count.add("Three-Of-A-Kind Hand", 3);
    if (count.everywhere(isHonour)) count.add("Dragons And Winds Hand", 6);
    if (count.everywhere(isEndOfSuit)) count.add("Ones-Nines-Only Hand", 6);
}

}  // namespace

HandWorth handWorth(const WonHand& hand) {
    Count count{hand, {}};
    for (const auto step : {countBonusTiles, countDragons, countWinds, countSuits, countShapes}) step(count);
    const int doubles = count.worth.doubles;
    count.worth.points = doubles < leastDoubles[hand.level - 1] ? 0 : basePoints << doubles;
    return count.worth;
}

}  // namespace selfplay
