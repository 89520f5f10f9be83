#include "hiscores/frmHiScore.h"

#include <string>

#include "platform/base/text.h"
#include "presentation/layout.h"
#include "toolkit/failures.h"
#include "toolkit/input.h"
#include "toolkit/modScreen.h"

namespace {

constexpr int16_t textSize = 12;  // points

}  // namespace

frmHiScore::frmHiScore() {
    form.onLoad = [this] { Form_Load(); };
    form.onKeyPress = [this](int& keyAscii) { Form_KeyPress(keyAscii); };
    form.onPoint = [](int, int) { return true; };  // A click anywhere closes it.
    form.onUnload = [this] { Form_Unload(); };
}

void frmHiScore::Form_Load() {
    gsFitDialog(form, hiScoreGround.width, hiScoreGround.height + 1);
    gsLayGround(form, hiScoreGround.number);
    msInitPrtPsns();
    msPrintHiScores();
}

void frmHiScore::msInitPrtPsns() {
    guarded("msInitPrtPsns", [&] {
        for (int row = 1; row <= hiScoreRows; ++row) {
            const int16_t y = narrow16(hiScorePlaces::firstTop + hiScorePlaces::pitch * (row - 1));
            maudtNamePsn[row] = {hiScorePlaces::nameLeft, y};
            maudtRoundsPsn[row] = {hiScorePlaces::roundsLeft, y};
            maudtLevelPsn[row] = {hiScorePlaces::levelLeft, y};
            maudtScorePsn[row] = {hiScorePlaces::scoreRight, y};
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
    print(maudtNamePsn[row], gstrfTrim(platform::fromCodePage(record.strName)));
    print(maudtRoundsPsn[row], std::to_string(record.intRounds));
    print(maudtLevelPsn[row], std::to_string(record.intLevel));
    print(maudtScorePsn[row], score, form.surface().textWidth(score));
}

std::string frmHiScore::mstrfSpokenRow(int row) const {
    const HiScoreRecord& record = gaudtHiScore[row];
    return ". " + std::to_string(row) + ": " + gstrfTrim(platform::fromCodePage(record.strName)) + ", rounds played " +
           std::to_string(record.intRounds) + ", Level " + std::to_string(record.intLevel) + ", score " +
           std::to_string(record.lngScore);
}

void frmHiScore::Form_KeyPress(int keyAscii) {
    if (keyAscii == platform::key::Enter || keyAscii == platform::key::Escape) form.unload();
}

void frmHiScore::Form_Unload() { gsClearObjects(gfrmHiScore); }
