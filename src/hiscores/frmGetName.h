#pragma once

#include <cstdint>
#include <string>

#include "platform/controls.h"
#include "platform/fields.h"
#include "platform/form.h"
#include "toolkit/formRef.h"

/// Tells the player of a high score and asks for a name. The object stays once made, and with it the last name.
struct frmGetName {
    frmGetName();

    /// Takes the score to tell of. Before the form is shown.
    void msLoadFormVariables(int32_t alngScore) { mlngHiScore = alngScore; }
    /// The name that was accepted last, as it was typed; empty before the first.
    const std::string& mprpName() const { return mstrName; }

    platform::Form form;
    platform::Panel SSPanel1;            // holds all the others
    platform::Panel sspCongratulations;  // tells the score
    platform::Panel sspEnterName;
    platform::TextBox txtName;
    std::string mstrName;
    int32_t mlngHiScore = 0;

    /// Sizes and places the form and shows the score.
    void Form_Load();
    /// Accepts the name on Enter where the box hasn't the focus.
    void Form_KeyPress(int keyAscii);
    /// Selects all that the box holds.
    void txtName_GotFocus();
    /// Lets through what a name may hold; Enter accepts the name.
    void txtName_KeyPress(int& keyAscii);
    /// Takes the name and closes the form.
    void msAcceptName();
};

inline FormRef<frmGetName> gfrmGetName;
