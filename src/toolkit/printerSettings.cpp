#include <cmath>

#include "platform/printer.h"
#include "platform/runtime.h"
#include "toolkit/modScreen.h"

void gsSavePrinterSettings() {
    const platform::Font& font = platform::printer().font;
    gstrPrtFontName = font.name;
    try {
        gintPrtFontSize = narrow16(std::nearbyint(font.points));
    } catch (const RuntimeError&) {  // A size beyond all measure: the last one that was remembered stays.
    }
    gblnPrtFontBold = font.bold;
}

void gsRestorePrinterSettings() {
    platform::printer().font = {gstrPrtFontName, gintPrtFontSize * 1.0, gblnPrtFontBold};
}
