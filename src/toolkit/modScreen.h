#pragma once

#include <cstdint>
#include <string>

#include "platform/base/runtime.h"
#include "platform/form.h"
#include "platform/surface.h"
#include "toolkit/formRef.h"

constexpr const char* scriptFont = "Wonton ICG";
constexpr const char* romanFont = "Times New Roman";

constexpr platform::Color black = 0;
constexpr platform::Color white = 0xFFFFFF;
constexpr platform::Color red = 0x0000FF;
constexpr platform::Color blue = 0xFF0000;
constexpr platform::Color yellow = 0x00FFFF;
constexpr platform::Color magenta = 0xFF00FF;
constexpr platform::Color darkGrey = 0x404040;

/// Sizes a form from a rectangle in pixels, grown by a menu bar of 20 pixels at the top.
void gsSetClientSize(int32_t left, int32_t top, int32_t right, int32_t bottom, platform::Form& form);

/// Moves a form to the centre of the screen.
void gsCenterForm(platform::Form& form);

/// Gives a dialog a size in pixels and moves it to the centre of the main window, and so many twips further down. A
/// dialog whose ground is a picture is a line higher than the picture; one that a panel covers is as large as the
/// panel.
void gsFitDialog(platform::Form& form, int width, int height, double down = 0);

/// Lays the picture with that number on a dialog that has its size already; the dialog's lines below the picture repeat
/// the picture's last one, which is the lower edge of its frame. Without the picture the dialog stays black.
void gsLayGround(platform::Form& form, int number);

/// Makes the picture that the program carries under that name the surface's lasting background and gives it the
/// picture's size. A picture that is missing is reported, and the surface stays as it is.
void gsLoadPicture(platform::Surface& surface, const std::string& name);

/// Prints a text at a place in pixels; the font stays set on the surface.
void gsPrintText(platform::Surface& surface, int16_t x, int16_t y, const std::string& text, platform::Color color,
                 const std::string& fontName, int16_t fontSize, bool bold);

/// Prints a text over a black shadow of its own, a pixel up and to the left.
void gsPrintShadowed(platform::Surface& surface, int16_t x, int16_t y, const std::string& text, platform::Color color,
                     const std::string& fontName, int16_t fontSize, bool bold);

/// Removes one comma from one end of a text: the first character, else the last.
void gsStripComma(std::string& text);

/// Lets events run until so many seconds have passed.
void gsDelay(double seconds);

/// The printer's font between gsSavePrinterSettings and gsRestorePrinterSettings.
inline std::string gstrPrtFontName;
inline int16_t gintPrtFontSize = 0;  // points
inline bool gblnPrtFontBold = false;

/// Remembers the printer's font; what can't be remembered is passed over without a report.
void gsSavePrinterSettings();

/// Gives the printer the font that was remembered.
void gsRestorePrinterSettings();

/// Empties form references, one after the other.
template <class... FormObjects>
void gsClearObjects(FormRef<FormObjects>&... references) {
    (references.clear(), ...);
}
