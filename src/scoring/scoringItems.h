#pragma once

#include <cstdint>
#include <iterator>
#include <string_view>

/// Everything that a won hand can score, in the order of the tally.
enum class ScoringItem {
    OwnFlower,
    OwnSeason,
    FourSeasons,
    FourFlowers,
    SevenBonus,
    RedTrio,
    GreenTrio,
    BlueTrio,
    ThreeDragons,
    TwoDragons,
    PrevailingWind,
    OwnWind,
    FourWinds,
    ThreeWinds,
    PureSuit,
    SemiPureSuit,
    ThreeOfAKind,
    DragonsAndWinds,
    OnesNinesOnly,
    Sequences,
    Mixed,
};

/// One item: what it is called and how many doubles it is worth.
struct ScoringItemRow {
    ScoringItem item;
    const char* text;  ///< No comma in it: the list of a hand's items is joined by commas.
    int16_t doubles;
};

constexpr ScoringItemRow scoringItems[] = {
    {ScoringItem::OwnFlower, "Own Flower Tile", 1},
    {ScoringItem::OwnSeason, "Own Season Tile", 1},
    {ScoringItem::FourSeasons, "Four Seasons Set", 2},
    {ScoringItem::FourFlowers, "Four Flowers Set", 2},
    {ScoringItem::SevenBonus, "Seven Flower/Season Combo", 3},
    {ScoringItem::RedTrio, "Red Dragon Trio", 1},
    {ScoringItem::GreenTrio, "Green Dragon Trio", 1},
    {ScoringItem::BlueTrio, "Blue Dragon Trio", 1},
    {ScoringItem::ThreeDragons, "Three Dragons Set", 4},  // in the place of the three trios
    {ScoringItem::TwoDragons, "Two Dragons Set", 3},      // in the place of the two trios
    {ScoringItem::PrevailingWind, "Prevailing Wind Trio", 1},
    {ScoringItem::OwnWind, "Own Wind Trio", 1},
    {ScoringItem::FourWinds, "Four Winds Set", 4},
    {ScoringItem::ThreeWinds, "Three Winds Set", 3},
    {ScoringItem::PureSuit, "Pure Suit Hand", 6},
    {ScoringItem::SemiPureSuit, "Semi-Pure Suit Hand", 3},
    {ScoringItem::ThreeOfAKind, "Three-Of-A-Kind Hand", 3},
    {ScoringItem::DragonsAndWinds, "Dragons And Winds Hand", 6},
    {ScoringItem::OnesNinesOnly, "Ones-Nines-Only Hand", 6},
    {ScoringItem::Sequences, "Sequence Hand", 1},
    {ScoringItem::Mixed, "Mixed Hand", 0},
};

/// The row of an item.
constexpr const ScoringItemRow& scoringItem(ScoringItem item) { return scoringItems[static_cast<size_t>(item)]; }

/// The row of the item with that text; null if there is none.
constexpr const ScoringItemRow* scoringItemNamed(std::string_view text) {
    for (const ScoringItemRow& row : scoringItems)
        if (text == row.text) return &row;
    return nullptr;
}

/// True if the rows stand in the order of `ScoringItem`.
constexpr bool scoringItemsInOrder() {
    for (size_t i = 0; i < std::size(scoringItems); ++i)
        if (scoringItems[i].item != static_cast<ScoringItem>(i)) return false;
    return std::size(scoringItems) == static_cast<size_t>(ScoringItem::Mixed) + 1;
}
static_assert(scoringItemsInOrder());
