#pragma once

#include <cstdint>

#include "platform/controls.h"
#include "platform/form.h"
#include "toolkit/formRef.h"

/// The setting of how many rounds a match lasts.
struct frmRoundsSetting {
    frmRoundsSetting();

    platform::Form form;
    platform::Panel SSPanel1;  // holds all the others
    platform::Panel sspRoundsCaption;
    platform::Panel sspNumRounds;  // the number, inside the caption
    platform::SpinButton SpinButton1;
    platform::CommandButton cmdOK;
    platform::CommandButton cmdCancel;
    int16_t mintNewRounds = 0;  // the value under edit, 1 to 100

    /// Sizes and places the form and shows the present number.
    void Form_Load();
    /// Lets go of the form.
    void Form_Unload();
    /// Raises the number up to 100.
    void SpinButton1_SpinUp();
    /// Lowers the number down to 1.
    void SpinButton1_SpinDown();
    /// Sets the rounds of a match and closes.
    void cmdOK_Click();
    /// Closes and changes nothing.
    void cmdCancel_Click();
    /// Shows the number under edit.
    void msShowRounds();
};

inline FormRef<frmRoundsSetting> gfrmRoundsSetting;
