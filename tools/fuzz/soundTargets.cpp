// The piece and the thunder, as the module of sound reads and plays them.

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "platform/qt/sound/module/limiter.h"
#include "platform/qt/sound/module/music.h"
#include "platform/qt/sound/module/samples.h"
#include "tools/fuzz/target.h"

namespace fuzz {
namespace {

using platform::qt::channels;
using platform::qt::Limiter;
using platform::qt::sampleRate;

constexpr int blockFrames = 512;
constexpr size_t longestSound = size_t{202} * sampleRate * channels;
constexpr size_t heardSamples = size_t{10} * sampleRate * channels;

/// What comes out of the device.
void hear(Limiter& limiter, std::span<float> samples) {
    limiter.pass(samples);
    const auto fits = [](float sample) { return std::fabs(sample) <= Limiter::loudest + 0.001F; };
    require(std::ranges::all_of(samples, fits), "a device can play each sample");
}

/// However loud it was, soft sound comes out as it is soon after.
void hearSoftSound(Limiter& limiter) {
    constexpr float soft = 0.5F;
    std::vector<float> samples(size_t{sampleRate} * channels, soft);
    limiter.pass(samples);
    require(std::fabs(samples.back() - soft) < 0.001F, "the gain comes back");
}

}  // namespace

/// A standard MIDI file. What can be loaded is played from its beginning, silenced and played on.
bool takePiece(const std::string& file) {
    static platform::qt::Music music;  // keeps its font
    static int pieces = 0;
    if (music.begun()) music.silence();
    // One of another name than the last is read anew.
    if (!music.load(laid(++pieces % 2 == 0 ? "even.mid" : "odd.mid", file))) return false;
    Limiter limiter;
    std::array<float, size_t{blockFrames} * channels> samples{};
    music.begin(1);
    for (const bool again : {false, true}) {
        for (int frames = 0; frames < sampleRate && music.going(); frames += blockFrames) {
            music.render(samples.data(), blockFrames);
            hear(limiter, samples);
        }
        std::vector<float> rest = music.silence();
        hear(limiter, rest);
        require(!music.going(), "it is silent");
        if (!again) music.resume();
    }
    return true;
}

/// A wave file.
bool takeThunder(const std::string& file) {
    std::vector<float> samples = platform::qt::samplesOf(laid("fuzzed.wav", file));
    require(samples.size() % channels == 0, "there are as many samples for the left as for the right");
    require(samples.size() <= longestSound, "no sound is longer than minutes");
    Limiter limiter;
    samples.resize(std::min(samples.size(), heardSamples));
    hear(limiter, samples);
    hearSoftSound(limiter);
    return !samples.empty();
}

}  // namespace fuzz
