#include "forms/frmAbout.h"

#include "product.h"
#include "toolkit/failures.h"
#include "toolkit/modScreen.h"
#include "toolkit/panelLooks.h"

namespace {

constexpr platform::Place outerPlace{0, 0, 273, 153};
constexpr platform::PanelLook labelLook = flatLook(black, platform::Align::Left);
const platform::Font textFont{romanFont, 9.75, true};

struct PanelRow {
    platform::Place place;
    platform::PanelLook look;
    const char* text;
};

constexpr PanelRow panels[] = {
    {{40, 24, 193, 25}, raisedLook(black), ""},  // the version
    {{48, 64, 97, 17}, labelLook, "Programmed By:"}, {{152, 64, 97, 17}, labelLook, PRODUCT_AUTHOR},
    {{48, 88, 97, 17}, labelLook, "Graphics By:"},   {{152, 88, 97, 17}, labelLook, PRODUCT_AUTHOR},
};

}  // namespace

frmAbout::frmAbout() : SSPanel1(form, outerPlace) {
    form.onLoad = [this] { Form_Load(); };
    form.onKeyPress = [this](int& keyAscii) { Form_KeyPress(keyAscii); };
    form.onPoint = [](int, int) { return true; };  // A click anywhere closes it.
    form.onUnload = [this] { Form_Unload(); };
    form.setCaption("About " PRODUCT_NAME);
    SSPanel1.setLook(outerLook);
    for (const PanelRow& row : panels) {
        platform::Panel& panel = pnlText.emplace_back(SSPanel1, row.place);
        panel.setLook(row.look);
        panel.setFont(textFont);
        panel.setCaption(row.text);
    }
}

void frmAbout::Form_Load() {
    guarded("Form_Load", [&] {
        gsFitDialog(form, outerPlace.width, outerPlace.height);
        pnlText.front().setCaption(PRODUCT_NAME " v" PRODUCT_VERSION_SHORT);
    });
}

void frmAbout::Form_KeyPress(int keyAscii) {
    if (keyAscii == platform::key::Enter || keyAscii == platform::key::Escape) form.unload();
}

void frmAbout::Form_Unload() { gsClearObjects(gfrmAbout); }
