#pragma once

#include <string>

#include "platform/surface.h"

namespace platform {

/// Prints UTF-8 text with the top left of its line at (x, y): draws it, cut to the surface and with a replacement for a
/// missing font, or adds it to the surface's texts. Only called for a surface that has pixels, or where none are kept.
void drawText(Surface& surface, int x, int y, const std::string& text, const Font& font, Color color);

/// The width in pixels of the text in that font.
int measureText(const std::string& text, const Font& font);

}  // namespace platform
