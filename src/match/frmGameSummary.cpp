#include "match/frmGameSummary.h"

#include <charconv>
#include <cmath>

#include "toolkit/failures.h"
#include "toolkit/modScreen.h"
#include "toolkit/panelLooks.h"

namespace {

constexpr platform::Place outerPlace{0, 0, 353, 279};
constexpr platform::Color brightOrange = 0x0080FF;  // red 255, green 128
const platform::Font titleFont{romanFont, 14.25, true};
const platform::Font lineFont{romanFont, 12, true};

struct LineRow {
    const char* label;
    platform::Place labelPlace;
    platform::Place valuePlace;
};

constexpr LineRow lineRows[] = {
    {"# Of Rounds Played", {24, 16, 145, 25}, {176, 16, 57, 25}},
    {"# Of Games Played", {24, 48, 137, 25}, {176, 48, 57, 25}},
    {"# Of Games Won", {24, 80, 137, 25}, {176, 80, 57, 25}},
    {"Winning Percentage", {24, 112, 145, 25}, {176, 112, 57, 25}},
};

void dress(platform::Panel& panel, const platform::PanelLook& look, const platform::Font& font, const char* caption) {
    panel.setLook(look);
    panel.setFont(font);
    panel.setCaption(caption);
}

}  // namespace

frmGameSummary::frmGameSummary()
    : pnlOuter(form, outerPlace),
      pnlTitle(pnlOuter, {120, 16, 110, 17}),
      pnlFrame(pnlOuter, {24, 40, 305, 217}),
      pnlHeading(pnlFrame, {46, 13, 208, 17}),
      pnlList(pnlFrame, {24, 32, 255, 161}) {
    form.setCaption("Game summary");
    form.onLoad = [this] { Form_Load(); };
    form.onKeyPress = [this](int& keyAscii) { Form_KeyPress(keyAscii); };
    form.onPoint = [](int, int) { return true; };  // A click anywhere closes it.
    form.onUnload = [this] { Form_Unload(); };
    dress(pnlOuter, outerLook, titleFont, "");
    dress(pnlTitle, flatLook(black), titleFont, "Game Over...");
    dress(pnlFrame, raisedLook(black), titleFont, "");
    dress(pnlHeading, flatLook(blue), titleFont, "+++ Game Summary +++");
    dress(pnlList, insetLook(black), lineFont, "");
    for (const LineRow& row : lineRows) {
        pnlLabel.emplace_back(pnlList, row.labelPlace);
        dress(pnlLabel.back(), flatLook(panelOrange, platform::Align::Left), lineFont, row.label);
        pnlGameSummary.emplace_back(pnlList, row.valuePlace);
        dress(pnlGameSummary.back(), insetLook(brightOrange), lineFont, "");
    }
}

void frmGameSummary::msLoadFormVariables(int16_t aintRoundsPlayed, int16_t aintGamesPlayed, int16_t aintGamesWon) {
    mintSumRounds = aintRoundsPlayed;
    mintSumGames = aintGamesPlayed;
    mintSumWon = aintGamesWon;
}

void frmGameSummary::Form_Load() {
    guarded("Form_Load", [&] {
        gsFitDialog(form, outerPlace.width, outerPlace.height);
        msClearSummary();
        msDisplayGameSummary();
    });
}

void frmGameSummary::msClearSummary() {
    for (platform::Panel& panel : pnlGameSummary) panel.setCaption("");
}

void frmGameSummary::msDisplayGameSummary() {
    guarded("msDisplayGameSummary", [&] {
        pnlGameSummary[0].setCaption(std::to_string(mintSumRounds));
        pnlGameSummary[1].setCaption(std::to_string(mintSumGames));
        pnlGameSummary[2].setCaption(std::to_string(mintSumWon));
        pnlGameSummary[3].setCaption(mstrfPercentage());
    });
}

std::string frmGameSummary::mstrfPercentage() const {
    const double percentage = static_cast<double>(mintSumWon) / mintSumGames * 100;
    char digits[32];
    const auto end = std::to_chars(std::begin(digits), std::end(digits), std::nearbyint(percentage * 100) / 100,
                                   std::chars_format::fixed);
    return std::string(digits, end.ptr) + "%";
}

void frmGameSummary::Form_KeyPress(int keyAscii) {
    if (keyAscii == platform::key::Enter || keyAscii == platform::key::Escape) form.unload();
}

void frmGameSummary::Form_Unload() { gsClearObjects(gfrmGameSummary); }
