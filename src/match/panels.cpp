#include "match/panels.h"

#include "frmMain.h"
#include "platform/desktop.h"
#include "toolkit/modScreen.h"

void gsFitForm(platform::Form& form, const platform::Place& outer) {
    // The sizing adds a pixel and a menu bar.
    gsSetClientSize(0, 0, outer.width - 1, outer.height - 1 - platform::menuBarHeight, form);
    gsCenterOver(form, gfrmMain->form);
}
