#include <cmath>

#include "platform/printer.h"
#include "toolkit/failures.h"
#include "toolkit/modScreen.h"

void gsSavePrinterSettings() {
    const platform::Font& font = platform::printer().font;
    gstrPrtFontName = font.name;
    // With a size beyond all measure the last one that was remembered stays.
    unreported([&] { gintPrtFontSize = narrow16(std::nearbyint(font.points)); });
    gblnPrtFontBold = font.bold;
}

void gsRestorePrinterSettings() {
    platform::printer().font = {gstrPrtFontName, gintPrtFontSize * 1.0, gblnPrtFontBold};
}
