#include "scoring/frmBreakDown.h"

#include <algorithm>

#include "modZQT.h"
#include "presentation/layout.h"
#include "product.h"
#include "scoring/scoringItems.h"
#include "toolkit/failures.h"
#include "toolkit/modScreen.h"

namespace {

constexpr double below = 1440;    // twips under the centre of the main window
constexpr int16_t textSize = 11;  // points

}  // namespace

frmBreakDown::frmBreakDown() {
    form.onLoad = [this] { Form_Load(); };
    form.onKeyPress = [this](int& keyAscii) { Form_KeyPress(keyAscii); };
    form.onPoint = [](int, int) { return true; };  // A click anywhere closes it.
    form.onUnload = [this] { Form_Unload(); };
}

void frmBreakDown::Form_Load() {
    guarded("Form_Load", [&] {
        gsFitDialog(form, breakDownGround.width, breakDownGround.height + 1, below);
        gsLayGround(form, breakDownGround.number);
        form.setCaption(PRODUCT_NAME);
        msInitPrtPsns();
        msBreakDown();
    });
}

void frmBreakDown::msInitPrtPsns() {
    guarded("msInitPrtPsns", [&] {
        for (int i = 1; i <= entries; ++i) {
            const int column = (i - 1) / breakDownPlaces::rows;
            const int row = (i - 1) % breakDownPlaces::rows;
            const int16_t y = narrow16(breakDownPlaces::firstTop + breakDownPlaces::pitch * row);
            maudtItemPsn[i] = {breakDownPlaces::nameLefts[column], y};
            maudtDoublePsn[i] = {breakDownPlaces::doublesLefts[column], y};
        }
        mudtTotalDoublesPsn = breakDownPlaces::totalDoubles;
        mudtTotalPointsPsn = breakDownPlaces::totalPoints;
    });
}

void frmBreakDown::msBreakDown() {
    guarded("msBreakDown", [&] {
        int total = 0;
        int entry = 0;
        for (size_t start = 0; start <= gstrScoreDesc.size();) {
            const size_t comma = std::min(gstrScoreDesc.find(',', start), gstrScoreDesc.size());
            const std::string item = gstrScoreDesc.substr(start, comma - start);
            const std::string doubles = mstrfDouble(item);
            ++entry;
            msPrintPair(maudtItemPsn[entry], item, maudtDoublePsn[entry], doubles);
            if (!doubles.empty()) total += doubles.front() - '0';
            start = comma + 1;
        }
        msPrintPair(mudtTotalDoublesPsn, std::to_string(total), mudtTotalPointsPsn, std::to_string(glngHandPoints));
        form.refresh();
        form.announce([&] {
            return "Break-down: " + gstrScoreDesc + ". Total doubles: " + std::to_string(total) +
                   ", total points: " + std::to_string(glngHandPoints);
        });
    });
}

void frmBreakDown::msPrintPair(const PixelPoint& leftPlace, const std::string& leftText, const PixelPoint& rightPlace,
                               const std::string& rightText) {
    const auto print = [&](int x, int y, const std::string& text, platform::Color color) {
        gsPrintText(form.surface(), narrow16(x), narrow16(y), text, color, scriptFont, textSize, true);
    };
    print(leftPlace.X - 1, leftPlace.Y - 1, leftText, darkGrey);
    print(rightPlace.X, rightPlace.Y - 1, rightText, darkGrey);
    print(leftPlace.X, leftPlace.Y, leftText, yellow);
    print(rightPlace.X, rightPlace.Y, rightText, yellow);
}

std::string frmBreakDown::mstrfDouble(const std::string& item) {
    return guarded("mstrfDouble", [&]() -> std::string {
        const ScoringItemRow* row = scoringItemNamed(item);
        if (row == nullptr) return {};
        return std::to_string(row->doubles) + (row->doubles > 1 ? " Doubles" : " Double");
    });
}

void frmBreakDown::Form_KeyPress(int keyAscii) {
    if (keyAscii == platform::key::Enter || keyAscii == platform::key::Escape) form.unload();
}

void frmBreakDown::Form_Unload() { gsClearObjects(gfrmBreakDown); }
