#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/controls.h"
#include "platform/form.h"
#include "toolkit/formRef.h"

/// The counts of a match that has ended, with the winning percentage.
struct frmGameSummary {
    frmGameSummary();

    /// Takes the counts to show. Before the form is shown.
    void msLoadFormVariables(int16_t aintRoundsPlayed, int16_t aintGamesPlayed, int16_t aintGamesWon);

    platform::Form form;
    platform::Panel pnlOuter;
    platform::Panel pnlTitle;
    platform::Panel pnlFrame;
    platform::Panel pnlHeading;
    platform::Panel pnlList;
    std::vector<platform::Panel> pnlLabel;        // what each line counts
    std::vector<platform::Panel> pnlGameSummary;  // the counts, from 0
    int16_t mintSumRounds = 0;
    int16_t mintSumGames = 0;
    int16_t mintSumWon = 0;

    /// Sizes and places the form and shows the counts.
    void Form_Load();
    /// Closes the form on Enter or Escape.
    void Form_KeyPress(int keyAscii);
    /// Lets go of the form.
    void Form_Unload();
    /// Empties the counts on the panels.
    void msClearSummary();
    /// Shows the counts and the percentage.
    void msDisplayGameSummary();
    /// The share of hands won, rounded to two decimal places with ties to the even digit, in its shortest form.
    std::string mstrfPercentage() const;
};

inline FormRef<frmGameSummary> gfrmGameSummary;
