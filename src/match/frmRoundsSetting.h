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

    void Form_Load();
    void Form_Unload();
    void SpinButton1_SpinUp();
    void SpinButton1_SpinDown();
    void cmdOK_Click();
    void cmdCancel_Click();
    void msShowRounds();
};

inline FormRef<frmRoundsSetting> gfrmRoundsSetting;
