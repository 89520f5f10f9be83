#include "frmMain.h"
#include "scoring/handShape.h"
#include "scoring/scoringItems.h"
#include "toolkit/failures.h"

namespace {

// Numbers, as the tiles have them.
constexpr int32_t eastWind = 10, northWind = 13;
constexpr int32_t redDragon = 14, blueDragon = 16;

constexpr int32_t seasonCount = 4;  // seasons are Bonus 1 to 4, flowers 5 to 8
constexpr int32_t bonusKinds = 8;
constexpr int sevenTiles = 7;

constexpr ScoringItem dragonTrios[] = {ScoringItem::RedTrio, ScoringItem::GreenTrio, ScoringItem::BlueTrio};

/// How many seats further round the table the second seat is, 0 to 3.
int32_t distance(int32_t fromSeat, int32_t toSeat) { return (toSeat - fromSeat + seatCount) % seatCount; }

std::string listed(ScoringItem item) { return scoringItem(item).text + std::string(","); }

/// Puts the new text wherever the item stands in the list, with its comma; false if the item isn't there.
bool replaceInList(ScoringItem item, const std::string& newText) {
    const std::string text = listed(item);
    const size_t first = gstrScoreDesc.find(text);
    for (size_t place = first; place != std::string::npos; place = gstrScoreDesc.find(text, place + newText.size()))
        gstrScoreDesc.replace(place, text.size(), newText);
    return first != std::string::npos;
}

/// Scores a tile that is the player's own while that seat, another than his, holds the House.
void lookForOwnTiles(frmMain& m, int16_t slot, int32_t house) {
    const int32_t season = distance(house, m.mlngSeat) + 1;
    if (m.mlngSeat != house) m.msFlowerAndSeason(slot, seasonCount + season, season);
}

/// Scores the tile of a slot if it is the player's own, which depends on who holds the House.
void lookAtBonusTile(frmMain& m, int16_t slot) {
    if (m.mlngHouse == m.mlngSeat) return m.msFlowerAndSeason(slot, seasonCount + 1, 1);
    switch (m.mlngHouse) {
        case 1:
            return m.msHouseIsEast(slot);
        case 2:
            return m.msHouseIsSouth(slot);
        case 3:
            return m.msHouseIsWest(slot);
        case 4:
            return m.msHouseIsNorth(slot);
        default:
            return;
    }
}

}  // namespace

void frmMain::msCheckForFlowers() {
    guarded("msCheckForFlowers", [&] {
        int held = 0;
        Table<bool, 1, bonusKinds> holds;
        for (int16_t slot = firstBonusSlot; slot <= slotCount; ++slot) {
            if (!EarnedTiles[slot].Filled) continue;
            ++held;
            lookAtBonusTile(*this, slot);
            holds[EarnedTiles[slot].Tile.Bonus] = true;
        }
        if (holds[1] && holds[2] && holds[3] && holds[4]) msScoreItem(ScoringItem::FourSeasons);
        if (holds[5] && holds[6] && holds[7] && holds[8]) msScoreItem(ScoringItem::FourFlowers);
        if (held >= sevenTiles) msScoreItem(ScoringItem::SevenBonus);
    });
}

void frmMain::msHouseIsEast(int16_t slot) {
    guarded("msHouseIsEast", [&] { lookForOwnTiles(*this, slot, 1); });
}

void frmMain::msHouseIsSouth(int16_t slot) {
    guarded("msHouseIsSouth", [&] { lookForOwnTiles(*this, slot, 2); });
}

void frmMain::msHouseIsWest(int16_t slot) {
    guarded("msHouseIsWest", [&] { lookForOwnTiles(*this, slot, 3); });
}

void frmMain::msHouseIsNorth(int16_t slot) {
    guarded("msHouseIsNorth", [&] { lookForOwnTiles(*this, slot, 4); });
}

void frmMain::msFlowerAndSeason(int16_t slot, int32_t ownFlower, int32_t ownSeason) {
    guarded("msFlowerAndSeason", [&] {
        const int32_t bonus = EarnedTiles[slot].Tile.Bonus;
        if (bonus == ownFlower) msScoreItem(ScoringItem::OwnFlower);
        if (bonus == ownSeason) msScoreItem(ScoringItem::OwnSeason);
    });
}

void frmMain::msCheckForDragons() {
    guarded("msCheckForDragons", [&] {
        int trios = 0;
        int doublesOfTrios = 0;
        for (const int slot : setSlots) {
            const int32_t number = EarnedTiles[slot].Tile.Number;
            if (!isTrio(EarnedTiles, slot) || number < redDragon || number > blueDragon) continue;
            const ScoringItem trio = dragonTrios[number - redDragon];
            msScoreItem(trio);
            ++trios;
            doublesOfTrios += scoringItem(trio).doubles;
        }
        const bool pair = pairNumberWithin(EarnedTiles, redDragon, blueDragon) != 0;
        if (trios != 3 && !(trios == 2 && pair)) return;
        const ScoringItem set = trios == 3 ? ScoringItem::ThreeDragons : ScoringItem::TwoDragons;
        msReplace_Dragon_Tiles_Desc(listed(set));
        msAddDoubles(set);
        mintDoubles = narrow16(mintDoubles - doublesOfTrios);  // The set stands in the place of its trios.
    });
}

void frmMain::msReplace_Dragon_Tiles_Desc(const std::string& newItem) {
    guarded("msReplace_Dragon_Tiles_Desc", [&] {
        bool placed = false;
        for (const ScoringItem trio : dragonTrios)
            if (replaceInList(trio, placed ? "" : newItem)) placed = true;
    });
}

void frmMain::msCheckForWinds() {
    guarded("msCheckForWinds", [&] {
        int16_t trios = 0;
        for (const int slot : setSlots) {
            const int32_t number = EarnedTiles[slot].Tile.Number;
            if (!isTrio(EarnedTiles, slot) || number < eastWind || number > northWind) continue;
            ++trios;
            msCheckPrevailingWind(number - eastWind + 1);
            // The seat that holds the House plays East, the next one round the table South, and so on.
            msCheckOwnWind((mlngHouse - 1 + number - eastWind) % seatCount + 1);
        }
        if (trios == 4) msScoreItem(ScoringItem::FourWinds);
        if (trios == 3 && pairNumberWithin(EarnedTiles, eastWind, northWind) != 0) msScoreItem(ScoringItem::ThreeWinds);
    });
}

void frmMain::msCheckPrevailingWind(int32_t wind) {
    if (wind == mlngRoundWind) msScoreItem(ScoringItem::PrevailingWind);
}

void frmMain::msCheckOwnWind(int32_t seat) {
    if (seat == mlngSeat) msScoreItem(ScoringItem::OwnWind);
}
