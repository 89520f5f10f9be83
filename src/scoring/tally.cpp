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
        const int32_t lngBase = mblnDropKeyUsed ? 2 : 1;
        int32_t lngPoints = 0;
        if (lngSetKind == sequenceOfTiles) lngPoints = lngBase * sequencePoints;
        if (lngSetKind == trioOfTiles) lngPoints = lngBase * trioPoints;
        msAddPoints(lngPoints);
        if (blnTally) msTallyScore();
        msPrintScore();
    });
}

void frmMain::msAddPoints(int32_t lngPoints) { mlngScore = narrow32(int64_t{mlngScore} + lngPoints); }

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
        const bool blnTriosOnly = mblnfThreeOfAKindOnly();
        const bool blnSequencesOnly = mblnfSequenceOnly();
        if (!blnTriosOnly && !blnSequencesOnly) gstrScoreDesc += scoringItem(ScoringItem::Mixed).text;
        gsStripComma(gstrScoreDesc);

        const int32_t lngPoints = mlngfHandPoints();
        msAddPoints(lngPoints);
        glngHandPoints = lngPoints;
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
