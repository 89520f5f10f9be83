#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "platform/qt/sound/module/samples.h"

namespace platform::qt {

/// Turns sound down for the moments in which it would be louder than a device can play, which would cut it flat. The
/// gain goes down before such a moment and comes back after it, never in a step that would be heard as a click.
class Limiter {
  public:
    static constexpr float loudest = 0.89F;  ///< That a sample comes out; between two samples a wave goes higher.

    /// Takes the next frames and puts in their place those of 6 milliseconds before. Softer sound comes out as it came.
    void pass(std::span<float> frames);

  private:
    void beginBlock();

    /// The gain goes all the way within a block, which lasts 3 milliseconds.
    static constexpr size_t blockSamples = size_t{64} * channels;
    std::array<float, 2 * blockSamples> waiting_{};  // the block that goes out, and the one after it
    size_t place_ = 0;                               // in them, of the sample that goes out next
    float arrivingPeak_ = 0;                         // of the block that comes in
    float waitingPeak_ = 0;                          // of the block after the one that goes out
    float gain_ = 1;                                 // of the next sample
    float endGain_ = 1;                              // at the end of the block that goes out
    float step_ = 0;                                 // of the gain, from sample to sample
};

}  // namespace platform::qt
