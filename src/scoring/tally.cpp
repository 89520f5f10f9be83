#include <cmath>

#include "frmMain.h"
#include "scoring/scoringItems.h"
#include "toolkit/failures.h"
#include "toolkit/modScreen.h"

namespace {

constexpr int32_t sequencePoints = 1;
constexpr int32_t trioPoints = 2;
constexpr int32_t handBase = 50;  // points of a hand without doubles

/// Appends an item and a comma to the list of items.
void listItem(ScoringItem item) {
    gstrScoreDesc += scoringItem(item).text;
    gstrScoreDesc += ',';
}

/// Adds to the score; an overflow fails and leaves it as it was.
void addPoints(frmMain& m, int32_t points) { m.mlngScore = narrow32(int64_t{m.mlngScore} + points); }

}  // namespace

void frmMain::msUpdateScore(int32_t lngSetKind, bool blnTally) {
    guarded("msUpdateScore", [&] {
        const int32_t base = mblnDropKeyUsed ? 2 : 1;
        int32_t points = 0;
        if (lngSetKind == sequenceOfTiles) points = base * sequencePoints;
        if (lngSetKind == trioOfTiles) points = base * trioPoints;
        addPoints(*this, points);
        if (blnTally) msTallyScore();
        msPrintScore();
    });
}

void frmMain::msTallyScore() {
    guarded("msTallyScore", [&] {
        if (mintPairSlot != firstPairSlot) msReArrangeTiles();
        msCheckForFlowers();
        msCheckForDragons();
        msCheckForWinds();
        if (mblnfPureSuit())
            listItem(ScoringItem::PureSuit);
        else if (mblnfSemiPureSuit())
            listItem(ScoringItem::SemiPureSuit);
        const bool triosOnly = mblnfThreeOfAKindOnly();
        const bool sequencesOnly = mblnfSequenceOnly();
        if (!triosOnly && !sequencesOnly) gstrScoreDesc += scoringItem(ScoringItem::Mixed).text;
        gsStripComma(gstrScoreDesc);

        const int32_t points = mlngfHandPoints();
        addPoints(*this, points);
        glngHandPoints = points;
    });
}

void frmMain::msAddDoubles(ScoringItem item) { mintDoubles = narrow16(mintDoubles + scoringItem(item).doubles); }

void frmMain::msScoreItem(ScoringItem item) {
    listItem(item);
    msAddDoubles(item);
}

int32_t frmMain::mlngfHandPoints() {
    if (mintDoubles < rowOf(levels, mlngLevel).leastDoubles) return 0;
    return narrow32(std::round(handBase * std::pow(2.0, mintDoubles)));
}

void frmMain::msClearScoreDesc() {
    gstrScoreDesc.clear();
    glngHandPoints = 0;
}
