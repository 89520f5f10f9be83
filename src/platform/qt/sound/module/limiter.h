#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <span>
#include <utility>

#include "platform/qt/sound/module/samples.h"

namespace platform::qt {

/// Turns sound down for the moments in which it would be louder than a device can play, which would cut it flat. The
/// gain goes down before such a moment and comes back after it, never in a step that would be heard as a click.
class Limiter {
  public:
    static constexpr float loudest = 0.89F;  ///< That a sample comes out; between two samples a wave goes higher.

    /// Takes the next frames and puts in their place those of 6 milliseconds before. Softer sound comes out as it came.
    void pass(std::span<float> frames) {
        for (float& sample : frames) {
            if (place_ % blockSamples == 0) beginBlock();
            arrivingPeak_ = std::max(arrivingPeak_, std::fabs(sample));
            sample = gain_ * std::exchange(waiting_[place_], sample);
            gain_ += step_;
            place_ = (place_ + 1) % waiting_.size();
        }
    }

  private:
    // Within a block the gain goes in a straight line. Both of its ends are low enough for the block's loudest sample,
    // and so is all between them.
    void beginBlock() {
        const float leavingPeak = std::exchange(waitingPeak_, std::exchange(arrivingPeak_, 0.0F));
        gain_ = endGain_;
        endGain_ = std::min({gainFor(leavingPeak), gainFor(waitingPeak_), gain_ + recovery});
        step_ = (endGain_ - gain_) / blockSamples;
    }

    static float gainFor(float peak) { return loudest / std::max(peak, loudest); }

    static constexpr float recovery = 0.005F;  // of the gain in a block: it is back within a quarter of a second
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
