#include "platform/qt/sound/module/limiter.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace platform::qt {
namespace {

constexpr float recovery = 0.005F;  // of the gain in a block, so that it is back within a quarter of a second

float gainFor(float peak) { return Limiter::loudest / std::max(peak, Limiter::loudest); }

}  // namespace

void Limiter::pass(std::span<float> frames) {
    for (float& sample : frames) {
        if (place_ % blockSamples == 0) beginBlock();
        arrivingPeak_ = std::max(arrivingPeak_, std::fabs(sample));
        sample = gain_ * std::exchange(waiting_[place_], sample);
        gain_ += step_;
        place_ = (place_ + 1) % waiting_.size();
    }
}

// Within a block the gain goes in a straight line. Both of its ends are low enough for the block's loudest sample, and
// so is all between them.
void Limiter::beginBlock() {
    const float leavingPeak = std::exchange(waitingPeak_, std::exchange(arrivingPeak_, 0.0F));
    gain_ = endGain_;
    endGain_ = std::min({gainFor(leavingPeak), gainFor(waitingPeak_), gain_ + recovery});
    step_ = (endGain_ - gain_) / blockSamples;
}

}  // namespace platform::qt
