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
int32_t mlngfDistance(int32_t lngFromSeat, int32_t lngToSeat) {
    return (lngToSeat - lngFromSeat + seatCount) % seatCount;
}

std::string mstrfListed(ScoringItem item) { return scoringItem(item).text + std::string(","); }

/// Puts the new text in the place of the item in the list, with its comma; false if the item isn't there.
bool mblnfReplaceInList(ScoringItem item, const std::string& strNewText) {
    const std::string strItem = mstrfListed(item);
    const size_t place = gstrScoreDesc.find(strItem);
    if (place == std::string::npos) return false;
    gstrScoreDesc.replace(place, strItem.size(), strNewText);
    return true;
}

}  // namespace

void frmMain::msCheckForFlowers() {
    guarded("msCheckForFlowers", [&] {
        int held = 0;
        Table<bool, 1, bonusKinds> holds;
        for (int16_t slot = firstBonusSlot; slot <= slotCount; ++slot) {
            if (!EarnedTiles[slot].Filled) continue;
            ++held;
            msLookAtBonusTile(slot);
            holds[EarnedTiles[slot].Tile.Bonus] = true;
        }
        if (holds[1] && holds[2] && holds[3] && holds[4]) msScoreItem(ScoringItem::FourSeasons);
        if (holds[5] && holds[6] && holds[7] && holds[8]) msScoreItem(ScoringItem::FourFlowers);
        if (held >= sevenTiles) msScoreItem(ScoringItem::SevenBonus);
    });
}

void frmMain::msLookAtBonusTile(int16_t intSlot) {
    if (mlngHouse == mlngSeat) return msFlowerAndSeason(intSlot, seasonCount + 1, 1);
    switch (mlngHouse) {
        case 1:
            return msHouseIsEast(intSlot);
        case 2:
            return msHouseIsSouth(intSlot);
        case 3:
            return msHouseIsWest(intSlot);
        case 4:
            return msHouseIsNorth(intSlot);
        default:
            return;
    }
}

void frmMain::msHouseIsEast(int16_t intSlot) {
    guarded("msHouseIsEast", [&] { msOwnTiles(intSlot, 1); });
}

void frmMain::msHouseIsSouth(int16_t intSlot) {
    guarded("msHouseIsSouth", [&] { msOwnTiles(intSlot, 2); });
}

void frmMain::msHouseIsWest(int16_t intSlot) {
    guarded("msHouseIsWest", [&] { msOwnTiles(intSlot, 3); });
}

void frmMain::msHouseIsNorth(int16_t intSlot) {
    guarded("msHouseIsNorth", [&] { msOwnTiles(intSlot, 4); });
}

void frmMain::msOwnTiles(int16_t intSlot, int32_t lngHouse) {
    const int32_t lngSeason = mlngfDistance(lngHouse, mlngSeat) + 1;
    msFlowerAndSeason(intSlot, seasonCount + lngSeason, lngSeason);
}

void frmMain::msFlowerAndSeason(int16_t intSlot, int32_t lngOwnFlower, int32_t lngOwnSeason) {
    guarded("msFlowerAndSeason", [&] {
        const int32_t lngBonus = EarnedTiles[intSlot].Tile.Bonus;
        if (lngBonus == lngOwnFlower) msScoreItem(ScoringItem::OwnFlower);
        if (lngBonus == lngOwnSeason) msScoreItem(ScoringItem::OwnSeason);
    });
}

void frmMain::msCheckForDragons() {
    guarded("msCheckForDragons", [&] {
        int16_t trios = 0;
        for (const int slot : setSlots) {
            const int32_t number = EarnedTiles[slot].Tile.Number;
            if (!isTrio(EarnedTiles, slot) || number < redDragon || number > blueDragon) continue;
            msScoreItem(dragonTrios[number - redDragon]);
            ++trios;
        }
        const bool pair = pairNumberWithin(EarnedTiles, redDragon, blueDragon) != 0;
        if (trios != 3 && !(trios == 2 && pair)) return;
        const ScoringItem set = trios == 3 ? ScoringItem::ThreeDragons : ScoringItem::TwoDragons;
        msReplace_Dragon_Tiles_Desc(mstrfListed(set));
        msAddDoubles(set);
        mintDoubles = narrow16(mintDoubles - trios);  // The set stands in the place of its trios.
    });
}

void frmMain::msReplace_Dragon_Tiles_Desc(const std::string& strNewItem) {
    guarded("msReplace_Dragon_Tiles_Desc", [&] {
        bool blnPlaced = false;
        for (const ScoringItem trio : dragonTrios)
            if (mblnfReplaceInList(trio, blnPlaced ? "" : strNewItem)) blnPlaced = true;
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
            msCheckOwnWind((mlngHouse - 1 + number - eastWind) % seatCount +
                           1);  // The House plays East, and so on round.
        }
        if (trios == 4) msScoreItem(ScoringItem::FourWinds);
        if (trios == 3 && pairNumberWithin(EarnedTiles, eastWind, northWind) != 0) msScoreItem(ScoringItem::ThreeWinds);
    });
}

void frmMain::msCheckPrevailingWind(int32_t lngWind) {
    if (lngWind == mlngRoundWind) msScoreItem(ScoringItem::PrevailingWind);
}

void frmMain::msCheckOwnWind(int32_t lngSeat) {
    if (lngSeat == mlngSeat) msScoreItem(ScoringItem::OwnWind);
}
