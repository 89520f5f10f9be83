#include "frmMain.h"
#include "hiscores/frmGetName.h"
#include "toolkit/failures.h"

bool frmMain::mblnfHiScore() {
    return guarded("mblnfHiScore", [&] {
        const bool firstEver = !gblnfHiScoreFileIsThere();
        if (!firstEver && !gblnfReadHiScoreFile()) return false;
        const int entered = firstEver ? 1 : mintfHiScoreRow();
        if (entered > hiScoreRows) return false;

        gfrmGetName->msLoadFormVariables(mlngScore);
        gfrmGetName.showModal();

        if (firstEver) gaudtHiScore = {};
        for (int row = hiScoreRows; row > entered; --row) gaudtHiScore[row] = gaudtHiScore[row - 1];
        HiScoreRecord& record = gaudtHiScore[entered];
        record.strName = gfrmGetName->mprpName();
        record.intRounds = mintRoundsPlayed;
        record.intLevel = narrow16(mlngLevel);
        record.lngScore = mlngScore;
        gsSaveHiScore();
        return true;
    });
}

int16_t frmMain::mintfHiScoreRow() {
    int16_t row = 1;
    while (row <= hiScoreRows && mlngScore <= gaudtHiScore[row].lngScore) ++row;
    return row;
}
