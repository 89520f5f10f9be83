#include "match/panels.h"

#include "frmMain.h"
#include "toolkit/modScreen.h"

void gsFitForm(platform::Form& form, const platform::Place& outer) {
    // The bevel lies inside the outer panel, and the sizing adds a pixel and a menu bar's 20.
    const int scaleWidth = outer.width - outerBevel - 1;
    const int scaleHeight = outer.height - outerBevel - 1;
    gsSetClientSize(0, 0, scaleWidth + outerBevel, scaleHeight + outerBevel - 20, form);
    gsCenterOver(form, gfrmMain->form);
}
