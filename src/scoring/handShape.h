#pragma once

#include "play/model.h"

// The shape of a finished hand: four sets, then the pair, then single flowers and seasons.

constexpr int setSlots[] = {1, 4, 7, 10};  ///< Where the four sets begin.
constexpr int firstBonusSlot = handTiles + 1;

/// True if the three tiles from that slot on have one Number.
inline bool isTrio(const EarnedSlots& slots, int slot) {
    return slots[slot].Tile.Number == slots[slot + 1].Tile.Number &&
           slots[slot + 1].Tile.Number == slots[slot + 2].Tile.Number;
}

/// True if the Numbers of the three tiles from that slot on run up or down by one.
inline bool isSequence(const EarnedSlots& slots, int slot) {
    return runsInOrder(slots[slot].Tile.Number, slots[slot + 1].Tile.Number, slots[slot + 2].Tile.Number);
}

/// The Number of the pair if it lies in the range, else 0.
inline int32_t pairNumberWithin(const EarnedSlots& slots, int32_t first, int32_t last) {
    const int32_t number = slots[firstPairSlot].Tile.Number;
    const bool paired = number == slots[firstPairSlot + 1].Tile.Number;
    return paired && number >= first && number <= last ? number : 0;
}
