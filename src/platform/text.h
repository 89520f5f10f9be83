#pragma once

#include <string>

#include "platform/surface.h"

namespace platform {

/// Prints UTF-8 text with the top left of its line at (x, y), cut to the surface; a missing font has a replacement.
void drawText(Surface& surface, int x, int y, const std::string& text, const Font& font, Color color);

/// The width in pixels of the text in that font.
int measureText(const std::string& text, const Font& font);

/// The font that stands in for a name that Debian doesn't have; any other name is its own.
std::string standInFor(const std::string& fontName);

}  // namespace platform
