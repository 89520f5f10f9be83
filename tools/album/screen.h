#pragma once

#include <QImage>
#include <QWidget>

#include "platform/surface.h"

// What stands on the screen, beside what ought to.

namespace album {

/// What has been painted of a window so far, as it stands on the screen.
QImage screenOf(const QWidget& window);

/// Whether the zoom parts a pixel of the game into a fraction of the screen's, so that it is smoothed; which rounds a
/// part in another way than the whole.
bool isSmoothed(const QImage& screen, const QWidget& window);

/// Whether two images are the same but for so much in each colour.
bool areAlike(const QImage& one, const QImage& other, int difference);

/// The first row below the toolbar, in the screen's pixels, in which the game's picture isn't what stands on the
/// screen; -1 if it all does.
int firstRowUnlike(const QImage& screen, const platform::Surface& picture);

}  // namespace album
