#pragma once

#include <cstdint>
#include <string>

#include "platform/form.h"
#include "platform/surface.h"
#include "runtime.h"
#include "toolkit/formRef.h"

/// Sizes a form from a rectangle in pixels, grown by a menu bar of 20 pixels at the top.
void gsSetClientSize(int32_t left, int32_t top, int32_t right, int32_t bottom, platform::Form& form);

/// Moves a form to the centre of the screen.
void gsCenterForm(platform::Form& form);

/// Moves a dialog to the centre of another form, and by so many twips further down.
void gsCenterOver(platform::Form& form, const platform::Form& over, double down = 0);

/// Prints a text at a place in pixels; the font stays set on the surface.
void gsPrintText(platform::Surface& surface, int16_t x, int16_t y, const std::string& text, platform::Color color,
                 const std::string& fontName, int16_t fontSize, bool bold);

/// Removes one comma from one end of a text: the first character, else the last.
void gsStripComma(std::string& text);

/// Lets events run until so many seconds have passed.
void gsDelay(double seconds);

/// Empties form references, one after the other.
template <class... FormObjects>
void gsClearObjects(FormRef<FormObjects>&... references) {
    (references.clear(), ...);
}
