#pragma once

#include <QFont>
#include <string>

#include "platform/surface.h"

namespace platform::qt {

/// The family that text in a font of that name is set in: one that the program carries, which Qt knows from now on, for
/// a name that Debian doesn't have.
std::string familyOf(const std::string& fontName);

/// What menus, boxes, tool-tips and the help are lettered in: where the desktop has no font with Latin letters, one
/// that the program carries becomes the application's. Costs milliseconds, so that a start does without.
void makeUpForMissingFonts();

/// The font as it stands on a screen of 96 pixels an inch, whatever the desktop's own is. Stays for the run.
const QFont& fontOf(const Font& font);

}  // namespace platform::qt
