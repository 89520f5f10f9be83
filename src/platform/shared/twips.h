#pragma once

#include <cmath>

namespace platform {

constexpr double twipsPerPixel = 15;

/// The nearest whole number of pixels.
inline int toPixels(double twips) { return static_cast<int>(std::lround(twips / twipsPerPixel)); }

}  // namespace platform
