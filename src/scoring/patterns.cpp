#include "frmMain.h"
#include "scoring/handShape.h"
#include "scoring/scoringItems.h"

bool frmMain::mblnfPureSuit() {
    for (const int slot : setSlots) {
        const int32_t suit = EarnedTiles[slot].Tile.Suit;
        if (suit == 0 || suit != EarnedTiles[slot + setTiles].Tile.Suit) return false;
    }
    if (EarnedTiles[1].Tile.Suit != EarnedTiles[handTiles].Tile.Suit) return false;
    msAddDoubles(ScoringItem::PureSuit);
    return true;
}

bool frmMain::mblnfSemiPureSuit() {
    int32_t suit = EarnedTiles[firstPairSlot].Tile.Suit;  // the one suit so far, 0 for none
    for (const int slot : setSlots) {
        const int32_t nextSuit = EarnedTiles[slot].Tile.Suit;
        if (nextSuit == 0) continue;
        if (suit != 0 && suit != nextSuit) return false;
        suit = nextSuit;
    }
    if (suit == 0) return false;
    msAddDoubles(ScoringItem::SemiPureSuit);
    return true;
}

bool frmMain::mblnfThreeOfAKindOnly() {
    bool honoursOnly = true;
    bool onesNinesOnly = true;
    const auto look = [&](const TileKind& tile) {
        if (tile.Suit != 0) honoursOnly = false;
        if (tile.Number != 1 && tile.Number != 9) onesNinesOnly = false;
    };
    for (const int slot : setSlots) {
        if (isSequence(EarnedTiles, slot)) return false;
        look(EarnedTiles[slot].Tile);
    }
    look(EarnedTiles[handTiles].Tile);

    msScoreItem(ScoringItem::ThreeOfAKind);
    if (honoursOnly) msScoreItem(ScoringItem::DragonsAndWinds);
    if (onesNinesOnly) msScoreItem(ScoringItem::OnesNinesOnly);
    return true;
}

bool frmMain::mblnfSequenceOnly() {
    for (const int slot : setSlots)
        if (isTrio(EarnedTiles, slot)) return false;
    msScoreItem(ScoringItem::Sequences);
    return true;
}
