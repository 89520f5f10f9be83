#pragma once

#include <cstdint>
#include <string>

#include "platform/form.h"
#include "runtime.h"
#include "toolkit/formRef.h"

/// What a won hand was worth: each scoring item with its doubles, their total and the points.
struct frmBreakDown {
    static constexpr int entries = 12;

    struct Place {
        int16_t X = 0, Y = 0;  // pixels
    };

    frmBreakDown();

    platform::Form form;
    Table<Place, 1, entries> maudtItemPsn;    // where each item's name is printed
    Table<Place, 1, entries> maudtDoublePsn;  // where its doubles are printed
    Place mudtTotalDoublesPsn;
    Place mudtTotalPointsPsn;

    void Form_Load();
    void Form_KeyPress(int intKeyAscii);
    void Form_Unload();
    void msInitPrtPsns();
    void msBreakDown();
    void msPrintPair(const Place& udtLeft, const std::string& strLeft, const Place& udtRight,
                     const std::string& strRight);
    std::string mstrfDouble(const std::string& strItem);
};

inline FormRef<frmBreakDown> gfrmBreakDown;
