#pragma once

#include <cstdint>
#include <string>

#include "platform/base/runtime.h"
#include "platform/form.h"
#include "play/model.h"
#include "toolkit/formRef.h"

/// What a won hand was worth: each scoring item with its doubles, their total and the points.
struct frmBreakDown {
    static constexpr int entries = 12;

    frmBreakDown();

    platform::Form form;
    Table<PixelPoint, 1, entries> maudtItemPsn;    // where each item's name is printed
    Table<PixelPoint, 1, entries> maudtDoublePsn;  // where its doubles are printed
    PixelPoint mudtTotalDoublesPsn;
    PixelPoint mudtTotalPointsPsn;

    /// Sizes and places the form and prints everything.
    void Form_Load();
    /// Closes the form on Enter or Escape.
    void Form_KeyPress(int keyAscii);
    /// Lets go of the form.
    void Form_Unload();
    /// Fills the places of the texts.
    void msInitPrtPsns();
    /// Prints each item with its doubles, and the totals.
    void msBreakDown();
    /// Prints two texts side by side, the shadows of both first.
    void msPrintPair(const PixelPoint& leftPlace, const std::string& leftText, const PixelPoint& rightPlace,
                     const std::string& rightText);
    /// The doubles of an item as text, with the number first; empty for a text that is no item.
    std::string mstrfDouble(const std::string& item);
};

inline FormRef<frmBreakDown> gfrmBreakDown;
