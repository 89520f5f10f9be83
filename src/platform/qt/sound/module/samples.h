#pragma once

namespace platform::qt {

constexpr int sampleRate = 22050;     // frames a second
constexpr int channels = 2;           // samples a frame, left and right in turn
constexpr float inaudible = 0.0001F;  // a sample below is silence

}  // namespace platform::qt
