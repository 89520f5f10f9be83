#include "platform/qt/sound/module/device.h"

#include <dlfcn.h>

#include <utility>

#include "platform/qt/sound/module/samples.h"

namespace platform::qt {
namespace {

constexpr Uint16 bufferFrames = 2048;

void sayNothing(const char*, int, const char*, int, const char*, ...) {}

/// Keeps ALSA, one of SDL's ways to a device, from writing to the terminal that there is none.
void hushAlsa() {
    using SetHandler = int (*)(decltype(&sayNothing));
    void* const alsa = dlopen("libasound.so.2", RTLD_NOW | RTLD_NOLOAD);
    if (alsa == nullptr) return;
    const auto setHandler = reinterpret_cast<SetHandler>(dlsym(alsa, "snd_lib_error_set_handler"));
    if (setHandler != nullptr) setHandler(sayNothing);
}

}  // namespace

Device::Device(const std::string& programName, std::function<void(float* samples, int frames)> filler)
    : filler_(std::move(filler)) {
    hushAlsa();
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_APP_NAME, programName.c_str());
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_STREAM_NAME, programName.c_str());
}

Device::~Device() {
    close();
    SDL_Quit();
}

bool Device::open() {
    if (id_ != 0) return true;
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) return false;
    SDL_AudioSpec wanted{};
    wanted.freq = sampleRate;
    wanted.format = AUDIO_F32SYS;
    wanted.channels = channels;
    wanted.samples = bufferFrames;
    wanted.callback = fill;
    wanted.userdata = this;
    id_ = SDL_OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
    if (id_ == 0) SDL_QuitSubSystem(SDL_INIT_AUDIO);
    SDL_PauseAudioDevice(id_, 0);
    return id_ != 0;
}

void Device::closeVanished() {
    if (SDL_GetAudioDeviceStatus(id_) == SDL_AUDIO_STOPPED) close();
}

void Device::close() {
    if (id_ == 0) return;
    SDL_CloseAudioDevice(std::exchange(id_, 0));
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

void Device::fill(void* self, Uint8* bytes, int length) {
    constexpr int bytesPerFrame = channels * static_cast<int>(sizeof(float));
    static_cast<Device*>(self)->filler_(reinterpret_cast<float*>(bytes), length / bytesPerFrame);
}

}  // namespace platform::qt
