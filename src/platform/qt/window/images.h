#pragma once

#include <QColor>
#include <QImage>

#include "platform/surface.h"

namespace platform::qt {

/// The surface's own pixels as an image to show, without a copy; null if it has none.
QImage imageOf(const Surface& surface);

/// The surface's own pixels as an image to paint on, without a copy; null if it has none.
QImage canvasOf(Surface& surface);

/// The picture's own pixels as an image, without a copy; null if it has none.
QImage imageOf(const Picture& picture);

/// The colour as Qt has it.
QColor colorOf(Color color);

}  // namespace platform::qt
