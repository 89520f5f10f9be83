#pragma once

#include <QColor>
#include <QImage>

#include "platform/surface.h"

namespace platform::qt {

/// The surface's own real pixels as an image to show, without a copy; null if it has none.
QImage imageOf(const Surface& surface);

/// The picture's real pixels at that density, or the nearest lower one, as an image without a copy; null if it has
/// none.
QImage imageOf(const Picture& picture, int ofDensity = 1);

/// The density for a screen that has so many real pixels for each: the least that isn't below.
int densityFor(qreal scale);

/// The colour as Qt has it.
inline QColor colorOf(Color color) { return QColor(QRgb{pixelOf(color)}); }

}  // namespace platform::qt
