#pragma once

#include <cstdint>
#include <vector>

namespace thunder {

constexpr int sampleRate = 22050;  ///< Samples a second.

/// One clap of thunder, mono: a crack at once, then a roll that dies away within about four seconds. It is reckoned in
/// whole numbers alone, so that every machine makes the same samples.
std::vector<int16_t> makeSamples();

/// The samples as the bytes of a wave file: mono, 16 bits, at sampleRate.
std::vector<uint8_t> waveFile(const std::vector<int16_t>& samples);

}  // namespace thunder
