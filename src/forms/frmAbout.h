#pragma once

#include <vector>

#include "platform/controls.h"
#include "platform/form.h"
#include "toolkit/formRef.h"

/// The box with the game's name and version and who made it.
struct frmAbout {
    frmAbout();

    platform::Form form;
    platform::Panel SSPanel1;              // holds all the others
    std::vector<platform::Panel> pnlText;  // the version, then who did what

    /// Sizes and places the form and shows the version.
    void Form_Load();
    /// Closes the form on Enter or Escape.
    void Form_KeyPress(int keyAscii);
    /// Lets go of the form.
    void Form_Unload();
};

inline FormRef<frmAbout> gfrmAbout;
