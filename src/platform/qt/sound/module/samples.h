#pragma once

#include <string>
#include <vector>

namespace platform::qt {

constexpr int sampleRate = 22050;     // frames a second
constexpr int channels = 2;           // samples a frame, left and right in turn
constexpr float inaudible = 0.0001F;  // a sample below is silence

/// Whether there is a file of that name that can be read without waiting: no folder, no pipe.
bool isOrdinaryFile(const std::string& file);

/// The samples of a wave file; empty if it is missing or corrupt.
std::vector<float> samplesOf(const std::string& waveFile);

}  // namespace platform::qt
