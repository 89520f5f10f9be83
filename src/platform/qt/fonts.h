#pragma once

#include <QFont>
#include <QFontMetrics>

#include "platform/surface.h"

namespace platform::qt {

struct Lettering {
    QFont font;
    QFontMetrics metrics;
};

/// The font as it stands on a screen of 96 pixels an inch, whatever the desktop's own is. Stays for the run.
const Lettering& letteringOf(const Font& font);

}  // namespace platform::qt
