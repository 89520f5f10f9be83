#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/controls.h"
#include "platform/form.h"
#include "runtime.h"
#include "toolkit/formRef.h"

/// The counts of a match that has ended, with the winning percentage.
struct frmGameSummary {
    static constexpr int lines = 4;

    frmGameSummary();

    /// Takes the counts to show. Before the form is shown.
    void msLoadFormVariables(int16_t aintRoundsPlayed, int16_t aintGamesPlayed, int16_t aintGamesWon);

    platform::Form form;
    platform::Panel pnlOuter;
    platform::Panel pnlTitle;
    platform::Panel pnlFrame;
    platform::Panel pnlHeading;
    platform::Panel pnlList;
    std::vector<platform::Panel> pnlLabel;                                 // what each line counts
    Table<std::unique_ptr<platform::Panel>, 0, lines - 1> pnlGameSummary;  // the counts
    int16_t mintSumRounds = 0;
    int16_t mintSumGames = 0;
    int16_t mintSumWon = 0;

    void Form_Load();
    void Form_KeyPress(int intKeyAscii);
    void Form_Unload();
    void msClearSummary();
    void msDisplayGameSummary();
    std::string mstrfPercentage() const;
};

inline FormRef<frmGameSummary> gfrmGameSummary;
