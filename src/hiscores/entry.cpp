#include "frmMain.h"
#include "hiscores/frmGetName.h"
#include "platform/base/text.h"
#include "toolkit/failures.h"

namespace {

/// Reads the table and finds the first row with a lower score, or the one behind the last; false after a failure, which
/// has been reported. Without a file the table is empty, and any score belongs into its first row.
bool findRow(int32_t score, int& row) {
    row = 1;
    if (!gblnfHiScoreFileIsThere()) {
        gaudtHiScore = {};
        return true;
    }
    if (!gblnfReadHiScoreFile()) return false;
    while (row <= hiScoreRows && score <= gaudtHiScore[row].lngScore) ++row;
    return true;
}

/// Makes room in the table at that row for the match, and stores it.
void enterMatch(const frmMain& m, int entered) {
    for (int row = hiScoreRows; row > entered; --row) gaudtHiScore[row] = gaudtHiScore[row - 1];
    HiScoreRecord& record = gaudtHiScore[entered];
    record.strName = platform::toCodePage(gfrmGetName->mprpName());
    record.intRounds = m.mintRoundsPlayed;
    record.intLevel = narrow16(m.mlngLevel);
    record.lngScore = m.mlngScore;
    gsSaveHiScore();
}

}  // namespace

bool frmMain::mblnfHiScore() {
    return guarded("mblnfHiScore", [&] {
        int row = 0;
        if (!findRow(mlngScore, row) || row > hiScoreRows) return false;
        gfrmGetName->msLoadFormVariables(mlngScore);
        gfrmGetName.showModal();
        // Another program in this folder may have stored its scores meanwhile, and none of them is lost: this one goes
        // below or between them. Where they leave it no row, the table is shown all the same, since it tells why.
        if (!findRow(mlngScore, row)) return false;
        if (row <= hiScoreRows) enterMatch(*this, row);
        return true;
    });
}
