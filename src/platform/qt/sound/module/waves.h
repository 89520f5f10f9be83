#pragma once

#include <string>
#include <vector>

namespace platform::qt {

/// The samples of a wave file, left and right in turn, as a device takes them; none if it is missing, too large or
/// corrupt.
std::vector<float> samplesOf(const std::string& waveFile);

}  // namespace platform::qt
