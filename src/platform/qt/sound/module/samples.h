#pragma once

#include <algorithm>
#include <cmath>
#include <span>
#include <string>
#include <vector>

namespace platform::qt {

constexpr int sampleRate = 22050;  // frames a second
constexpr int channels = 2;        // samples a frame, left and right in turn

/// Whether nobody can hear them.
inline bool isSilent(std::span<const float> samples) {
    constexpr float inaudible = 0.0001F;
    return std::ranges::all_of(samples, [](float sample) { return std::fabs(sample) < inaudible; });
}

/// The samples of a wave file, as a device takes them; none if it is missing, too large or corrupt.
std::vector<float> samplesOf(const std::string& waveFile);

}  // namespace platform::qt
