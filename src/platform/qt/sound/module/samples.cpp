#include "platform/qt/sound/module/samples.h"

#include <SDL.h>

#include <filesystem>
#include <memory>
#include <system_error>

namespace platform::qt {
namespace {

std::vector<float> converted(const SDL_AudioSpec& from, const Uint8* bytes, int length) {
    const std::unique_ptr<SDL_AudioStream, decltype(&SDL_FreeAudioStream)> stream(
        SDL_NewAudioStream(from.format, from.channels, from.freq, AUDIO_F32SYS, channels, sampleRate),
        SDL_FreeAudioStream);
    if (!stream || SDL_AudioStreamPut(stream.get(), bytes, length) != 0) return {};
    SDL_AudioStreamFlush(stream.get());
    std::vector<float> samples(static_cast<size_t>(SDL_AudioStreamAvailable(stream.get())) / sizeof(float));
    SDL_AudioStreamGet(stream.get(), samples.data(), static_cast<int>(samples.size() * sizeof(float)));
    return samples;
}

}  // namespace

bool isOrdinaryFile(const std::string& file) {
    std::error_code failure;
    return std::filesystem::is_regular_file(file, failure);
}

std::vector<float> samplesOf(const std::string& waveFile) {
    SDL_AudioSpec format{};
    Uint8* bytes = nullptr;
    Uint32 length = 0;
    if (!isOrdinaryFile(waveFile) || SDL_LoadWAV(waveFile.c_str(), &format, &bytes, &length) == nullptr) return {};
    auto samples = converted(format, bytes, static_cast<int>(length));
    SDL_FreeWAV(bytes);
    return samples;
}

}  // namespace platform::qt
