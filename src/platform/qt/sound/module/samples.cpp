#include "platform/qt/sound/module/samples.h"

#include <SDL.h>

#include <memory>

#include "platform/base/files.h"
#include "platform/qt/sound/module/mixer.h"

namespace platform::qt {
namespace {

constexpr double longestSound = 200;  // seconds; a rate that is next to nothing would make hours of it

std::vector<float> converted(const SDL_AudioSpec& from, const Uint8* bytes, int length) {
    const std::unique_ptr<SDL_AudioStream, decltype(&SDL_FreeAudioStream)> stream(
        SDL_NewAudioStream(from.format, from.channels, from.freq, AUDIO_F32SYS, channels, sampleRate),
        SDL_FreeAudioStream);
    if (!stream || SDL_AudioStreamPut(stream.get(), bytes, length) != 0) return {};
    SDL_AudioStreamFlush(stream.get());
    std::vector<float> samples(static_cast<size_t>(SDL_AudioStreamAvailable(stream.get())) / sizeof(float));
    SDL_AudioStreamGet(stream.get(), samples.data(), static_cast<int>(samples.size() * sizeof(float)));
    // A file may hold numbers that are beyond all sound, or none; one of those would silence all that follows.
    for (float& sample : samples) sample = std::isnan(sample) ? 0 : std::clamp(sample, -1.0F, 1.0F);
    return samples;
}

}  // namespace

std::vector<float> samplesOf(const std::string& waveFile) {
    const std::string contents = contentsWithin(waveFile, largestSound);
    SDL_RWops* const file = SDL_RWFromConstMem(contents.data(), static_cast<int>(contents.size()));
    SDL_AudioSpec format{};
    Uint8* bytes = nullptr;
    Uint32 length = 0;
    if (SDL_LoadWAV_RW(file, 1, &format, &bytes, &length) == nullptr) return {};
    const std::unique_ptr<Uint8, decltype(&SDL_FreeWAV)> release(bytes, SDL_FreeWAV);
    const Uint32 frames = length / (SDL_AUDIO_BITSIZE(format.format) / 8 * format.channels);
    if (frames > longestSound * format.freq) return {};
    return converted(format, bytes, static_cast<int>(length));
}

}  // namespace platform::qt
