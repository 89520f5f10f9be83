#include "frmMain.h"
#include "hiscores/frmGetName.h"
#include "toolkit/failures.h"

bool frmMain::mblnfHiScore() {
    return guarded("mblnfHiScore", [&] {
        int row = 0;
        if (!mblnfFindHiScoreRow(row) || row > hiScoreRows) return false;
        gfrmGetName->msLoadFormVariables(mlngScore);
        gfrmGetName.showModal();
        // Another program in this folder may have stored its scores meanwhile, and none of them is lost: this one goes
        // below or between them. Where they leave it no row, the table is shown all the same, since it tells why.
        if (!mblnfFindHiScoreRow(row)) return false;
        if (row <= hiScoreRows) msEnterHiScore(row);
        return true;
    });
}

bool frmMain::mblnfFindHiScoreRow(int& row) {
    row = 1;
    if (!gblnfHiScoreFileIsThere()) {
        gaudtHiScore = {};
        return true;
    }
    if (!gblnfReadHiScoreFile()) return false;
    while (row <= hiScoreRows && mlngScore <= gaudtHiScore[row].lngScore) ++row;
    return true;
}

void frmMain::msEnterHiScore(int entered) {
    for (int row = hiScoreRows; row > entered; --row) gaudtHiScore[row] = gaudtHiScore[row - 1];
    HiScoreRecord& record = gaudtHiScore[entered];
    record.strName = gfrmGetName->mprpName();
    record.intRounds = mintRoundsPlayed;
    record.intLevel = narrow16(mlngLevel);
    record.lngScore = mlngScore;
    gsSaveHiScore();
}
