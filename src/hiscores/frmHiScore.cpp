#include "hiscores/frmHiScore.h"

#include <string>

#include "frmMain.h"
#include "toolkit/failures.h"
#include "toolkit/input.h"
#include "toolkit/modScreen.h"

namespace {

constexpr int ground = 104;
constexpr int formWidth = 500, formHeight = 351;  // pixels: a line more than the ground has

constexpr int16_t nameX = 66, roundsX = 230, levelX = 322, scoreX = 445;
constexpr int16_t firstY = 138, pitchY = 32;

constexpr int16_t textSize = 12;  // points

}  // namespace

frmHiScore::frmHiScore() {
    form.onLoad = [this] { Form_Load(); };
    form.onKeyPress = [this](int& keyAscii) { Form_KeyPress(keyAscii); };
    form.onPoint = [](int, int) { return true; };  // A click anywhere closes it.
    form.onUnload = [this] { Form_Unload(); };
}

void frmHiScore::Form_Load() {
    gsFitDialog(form, formWidth, formHeight, gfrmMain->form);
    gsLayGround(form, ground);
    msInitPrtPsns();
    msPrintHiScores();
}

void frmHiScore::msInitPrtPsns() {
    guarded("msInitPrtPsns", [&] {
        for (int row = 1; row <= hiScoreRows; ++row) {
            const int16_t y = narrow16(firstY + pitchY * (row - 1));
            maudtNamePsn[row] = {nameX, y};
            maudtRoundsPsn[row] = {roundsX, y};
            maudtLevelPsn[row] = {levelX, y};
            maudtScorePsn[row] = {scoreX, y};
        }
    });
}

void frmHiScore::msPrintHiScores() {
    guarded("msPrintHiScores", [&] {
        std::string spoken = "Top five high scores";
        if (gblnfHiScoreFileIsThere()) gblnfReadHiScoreFile();
        for (int row = 1; row <= hiScoreRows; ++row) {
            if (gaudtHiScore[row].lngScore == 0) continue;
            msPrintRow(row, darkGrey, 1);
            msPrintRow(row, black, 0);
            spoken += mstrfSpokenRow(row);
        }
        form.setCaption(spoken);
        form.refresh();
    });
}

void frmHiScore::msPrintRow(int row, platform::Color color, int shift) {
    const auto print = [&](const platform::PixelPoint& place, const std::string& text, int width = 0) {
        gsPrintText(form.surface(), narrow16(place.X - width - shift), narrow16(place.Y - shift), text, color,
                    romanFont, textSize, true);
    };
    const HiScoreRecord& record = gaudtHiScore[row];
    const std::string score = std::to_string(record.lngScore);
    print(maudtNamePsn[row], gstrfTrim(record.strName.text()));
    print(maudtRoundsPsn[row], std::to_string(record.intRounds));
    print(maudtLevelPsn[row], std::to_string(record.intLevel));
    print(maudtScorePsn[row], score, form.surface().textWidth(score));
}

std::string frmHiScore::mstrfSpokenRow(int row) const {
    const HiScoreRecord& record = gaudtHiScore[row];
    return ". " + std::to_string(row) + ": " + gstrfTrim(record.strName.text()) + ", rounds played " +
           std::to_string(record.intRounds) + ", Level " + std::to_string(record.intLevel) + ", score " +
           std::to_string(record.lngScore);
}

void frmHiScore::Form_KeyPress(int keyAscii) {
    if (keyAscii == platform::key::Enter || keyAscii == platform::key::Escape) form.unload();
}

void frmHiScore::Form_Unload() { gsClearObjects(gfrmHiScore); }
