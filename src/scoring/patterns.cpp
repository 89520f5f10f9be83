#include "frmMain.h"
#include "scoring/handShape.h"
#include "scoring/scoringItems.h"

bool frmMain::mblnfPureSuit() {
    for (const int slot : setSlots) {
        const int32_t lngSuit = EarnedTiles[slot].Tile.Suit;
        if (lngSuit == 0 || lngSuit != EarnedTiles[slot + setTiles].Tile.Suit) return false;
    }
    if (EarnedTiles[1].Tile.Suit != EarnedTiles[handTiles].Tile.Suit) return false;
    msAddDoubles(ScoringItem::PureSuit);
    return true;
}

bool frmMain::mblnfSemiPureSuit() {
    int32_t lngSuit = EarnedTiles[firstPairSlot].Tile.Suit;  // the one suit so far, 0 for none
    for (const int slot : setSlots) {
        const int32_t lngNext = EarnedTiles[slot].Tile.Suit;
        if (lngNext == 0) continue;
        if (lngSuit != 0 && lngSuit != lngNext) return false;
        lngSuit = lngNext;
    }
    if (lngSuit == 0) return false;
    msAddDoubles(ScoringItem::SemiPureSuit);
    return true;
}

bool frmMain::mblnfThreeOfAKindOnly() {
    bool blnHonoursOnly = true;
    bool blnOnesNinesOnly = true;
    const auto look = [&](const TileKind& tile) {
        if (tile.Suit != 0) blnHonoursOnly = false;
        if (tile.Number != 1 && tile.Number != 9) blnOnesNinesOnly = false;
    };
    for (const int slot : setSlots) {
        if (isSequence(EarnedTiles, slot)) return false;
        look(EarnedTiles[slot].Tile);
    }
    look(EarnedTiles[handTiles].Tile);

    msScoreItem(ScoringItem::ThreeOfAKind);
    if (blnHonoursOnly) msScoreItem(ScoringItem::DragonsAndWinds);
    if (blnOnesNinesOnly) msScoreItem(ScoringItem::OnesNinesOnly);
    return true;
}

bool frmMain::mblnfSequenceOnly() {
    for (const int slot : setSlots)
        if (isTrio(EarnedTiles, slot)) return false;
    msScoreItem(ScoringItem::Sequences);
    return true;
}
