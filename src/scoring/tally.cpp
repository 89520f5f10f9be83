#include <cmath>

#include "frmMain.h"
#include "presentation/layout.h"
#include "scoring/scoringItems.h"
#include "toolkit/failures.h"
#include "toolkit/modScreen.h"

namespace {

constexpr int32_t sequencePoints = 1;
constexpr int32_t trioPoints = 2;
constexpr int32_t handBase = 50;   // points of a hand without doubles
constexpr int16_t scoreSize = 18;  // points of type

}  // namespace

void frmMain::msUpdateScore(int32_t lngSetKind, bool blnTally) {
    guarded("msUpdateScore", [&] {
        const int32_t base = mblnDropKeyUsed ? 2 : 1;
        int32_t points = 0;
        if (lngSetKind == sequenceOfTiles) points = base * sequencePoints;
        if (lngSetKind == trioOfTiles) points = base * trioPoints;
        msAddPoints(points);
        if (blnTally) msTallyScore();
        msPrintScore();
    });
}

void frmMain::msAddPoints(int32_t points) { mlngScore = narrow32(int64_t{mlngScore} + points); }

void frmMain::msPrintScore() {
    gsPrintShadowed(picWork, scorePlace.X, scorePlace.Y, std::to_string(mlngScore), red, scriptFont, scoreSize, true);
}

void frmMain::msTallyScore() {
    guarded("msTallyScore", [&] {
        if (mintPairSlot != firstPairSlot) msReArrangeTiles();
        msCheckForFlowers();
        msCheckForDragons();
        msCheckForWinds();
        if (mblnfPureSuit())
            msListItem(ScoringItem::PureSuit);
        else if (mblnfSemiPureSuit())
            msListItem(ScoringItem::SemiPureSuit);
        const bool triosOnly = mblnfThreeOfAKindOnly();
        const bool sequencesOnly = mblnfSequenceOnly();
        if (!triosOnly && !sequencesOnly) gstrScoreDesc += scoringItem(ScoringItem::Mixed).text;
        gsStripComma(gstrScoreDesc);

        const int32_t points = mlngfHandPoints();
        msAddPoints(points);
        glngHandPoints = points;
    });
}

void frmMain::msListItem(ScoringItem item) {
    gstrScoreDesc += scoringItem(item).text;
    gstrScoreDesc += ',';
}

void frmMain::msAddDoubles(ScoringItem item) { mintDoubles = narrow16(mintDoubles + scoringItem(item).doubles); }

void frmMain::msScoreItem(ScoringItem item) {
    msListItem(item);
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
