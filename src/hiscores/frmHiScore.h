#pragma once

#include "hiscores/scoreFile.h"
#include "platform/base/runtime.h"
#include "platform/form.h"
#include "platform/surface.h"
#include "toolkit/formRef.h"

/// The view of the table of high scores.
struct frmHiScore {
    frmHiScore();

    platform::Form form;
    Table<platform::PixelPoint, 1, hiScoreRows> maudtNamePsn;    // left edges of the names
    Table<platform::PixelPoint, 1, hiScoreRows> maudtRoundsPsn;  // left edges of the rounds
    Table<platform::PixelPoint, 1, hiScoreRows> maudtLevelPsn;   // left edges of the Levels
    Table<platform::PixelPoint, 1, hiScoreRows> maudtScorePsn;   // right edges of the scores

    /// Sizes and places the form and prints the table.
    void Form_Load();
    /// Closes the form on Enter or Escape.
    void Form_KeyPress(int keyAscii);
    /// Lets go of the form.
    void Form_Unload();
    /// Fills the places of the texts.
    void msInitPrtPsns();
    /// Reads the score file, if it is there, and prints each row that was ever filled.
    void msPrintHiScores();
    /// A row of the table as a screen reader says it.
    std::string mstrfSpokenRow(int row) const;
    /// Prints the texts of a row in a colour, so many pixels up and to the left of their places.
    void msPrintRow(int row, platform::Color color, int shift);
};

inline FormRef<frmHiScore> gfrmHiScore;
