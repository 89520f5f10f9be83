#include "play/tileNames.h"

#include <iterator>

#include "platform/base/runtime.h"

namespace {

constexpr const char* suitNames[] = {"Circles", "Bamboo", "Characters"};

constexpr const char* kindNames[] = {
    "East Wind",    "South Wind",   "West Wind",     "North Wind",    // winds
    "Red Dragon",   "Green Dragon", "Blue Dragon",                    // dragons
    "Spring",       "Summer",       "Autumn",        "Winter",        // seasons
    "Plum Blossom", "Orchid",       "Chrysanthemum", "Bamboo Flower"  // flowers
};
static_assert(firstWindKind + std::size(kindNames) == kindCount + 1);

int numberOf(int16_t kind) { return (kind - 1) % kindsPerSuit + 1; }

}  // namespace

std::string gstrfKindName(int16_t kind) {
    if (kind >= firstWindKind) return rowOf(kindNames, kind - firstWindKind + 1);
    return std::to_string(numberOf(kind)) + " of " + rowOf(suitNames, (kind - 1) / kindsPerSuit + 1);
}

std::string gstrfSetName(const SetOfTiles& tiles) {
    const auto kind = [&](int place) { return tiles[place].Tile.KindIdx; };
    if (!tiles[2].Filled) return gstrfKindName(kind(1));
    if (!tiles[3].Filled) return "a pair of " + gstrfKindName(kind(1));
    if (kind(1) == kind(2)) return "three " + gstrfKindName(kind(1));
    return std::to_string(numberOf(kind(1))) + ", " + std::to_string(numberOf(kind(2))) + " and " +
           gstrfKindName(kind(3));
}
