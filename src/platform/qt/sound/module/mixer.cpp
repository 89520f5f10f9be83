#include "platform/qt/sound/module/mixer.h"

#include <SDL.h>
#include <dlfcn.h>

#include <algorithm>
#include <mutex>
#include <span>
#include <utility>
#include <vector>

#include "platform/qt/sound/module/limiter.h"
#include "platform/qt/sound/module/music.h"
#include "platform/qt/sound/module/samples.h"

namespace platform::qt {
namespace {

constexpr float soundGain = 1.8F;         // thunder is then 13 LU above the music in its loudest moment
constexpr int framesToRest = sampleRate;  // of silence, until the device may be closed

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

/// The sound device. While it is closed nothing of it is left, no thread and no connection. While it is locked, it asks
/// for no frames.
class Device {
  public:
    /// The filler writes the next frames, from the device's own thread. The name is shown beside its volume.
    Device(const std::string& programName, std::function<void(std::span<float> samples)> filler)
        : filler_(std::move(filler)) {
        hushAlsa();
        SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
        SDL_SetHint(SDL_HINT_AUDIO_DEVICE_APP_NAME, programName.c_str());
        SDL_SetHint(SDL_HINT_AUDIO_DEVICE_STREAM_NAME, programName.c_str());
    }
    ~Device() {
        close();
        SDL_Quit();
    }
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;

    bool open();            ///< From now on it asks for frames; false if it can't be had.
    void close();           ///< Plays out what it has been given. Nothing if it isn't open.
    void closeVanished() {  ///< Closes it if it was open and has been taken away.
        if (SDL_GetAudioDeviceStatus(id_) == SDL_AUDIO_STOPPED) close();
    }
    void lock() { SDL_LockAudioDevice(id_); }
    void unlock() { SDL_UnlockAudioDevice(id_); }

  private:
    static void SDLCALL fill(void* self, Uint8* bytes, int length) {
        const auto samples = static_cast<size_t>(length) / sizeof(float);
        static_cast<Device*>(self)->filler_({reinterpret_cast<float*>(bytes), samples});
    }

    std::function<void(std::span<float> samples)> filler_;
    SDL_AudioDeviceID id_ = 0;
};

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

void Device::close() {
    if (id_ == 0) return;
    SDL_CloseAudioDevice(std::exchange(id_, 0));
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

/// A sound on its way out.
struct Sound {
    std::vector<float> samples;
    size_t next = 0;

    void addTo(std::span<float> frames) {
        const size_t count = std::min(frames.size(), samples.size() - next);
        for (size_t i = 0; i < count; ++i) frames[i] += samples[next + i];
        next += count;
    }
    bool over() const { return next == samples.size(); }
};

class ModuleMixer final : public Mixer {
  public:
    ModuleMixer(const std::string& programName, MixerEvents events)
        : events_(std::move(events)), device_(programName, [this](std::span<float> samples) { mix(samples); }) {}

    bool begin(const std::string& file, uint64_t performance) override;
    void pause() override;
    bool resume() override;
    void playSound(const std::string& file) override;
    void rest() override;

  private:
    bool start(const std::function<void()>& action);
    void add(std::vector<float> samples);
    void mix(std::span<float> samples);
    void noteSilence(std::span<const float> samples);

    MixerEvents events_;
    Music music_;
    std::vector<Sound> sounds_;
    Limiter limiter_;
    int silentFrames_ = 0;
    Device device_;  // last, so that it stops asking before the others go
};

bool ModuleMixer::begin(const std::string& file, uint64_t performance) {
    if (const std::lock_guard hold(device_); music_.going() || !music_.isLoaded(file)) add(music_.silence());
    return music_.load(file) && start([&] { music_.begin(performance); });
}

void ModuleMixer::pause() {
    const std::lock_guard hold(device_);
    add(music_.silence());
}

bool ModuleMixer::resume() {
    return music_.begun() && start([&] { music_.resume(); });
}

void ModuleMixer::playSound(const std::string& file) {
    auto samples = samplesOf(file);
    if (samples.empty()) return;
    for (float& sample : samples) sample *= soundGain;
    start([&] { add(std::move(samples)); });
}

/// Does what begins to sound, and sees to it that it is heard; false if it can't be. The device is opened only when
/// there is something to ask for, so that it doesn't begin with silence.
bool ModuleMixer::start(const std::function<void()>& action) {
    device_.closeVanished();
    {
        const std::lock_guard hold(device_);
        action();
        silentFrames_ = 0;
    }
    if (device_.open()) return true;
    music_.silence();
    sounds_.clear();
    return false;
}

void ModuleMixer::rest() {
    if (const std::lock_guard hold(device_); silentFrames_ < framesToRest) return;
    device_.close();
}

void ModuleMixer::add(std::vector<float> samples) {
    if (!samples.empty()) sounds_.push_back({std::move(samples)});
}

void ModuleMixer::mix(std::span<float> samples) {
    std::ranges::fill(samples, 0.0F);
    const bool wentOn = music_.going();
    music_.render(samples.data(), static_cast<int>(samples.size()) / channels);
    if (wentOn && !music_.going()) events_.ended(music_.performance());
    for (Sound& sound : sounds_) sound.addTo(samples);
    std::erase_if(sounds_, [](const Sound& sound) { return sound.over(); });
    limiter_.pass(samples);
    noteSilence(samples);
}

void ModuleMixer::noteSilence(std::span<const float> samples) {
    const bool silent = !music_.going() && sounds_.empty() && isSilent(samples);
    const int before =
        std::exchange(silentFrames_, silent ? silentFrames_ + static_cast<int>(samples.size()) / channels : 0);
    if (before < framesToRest && silentFrames_ >= framesToRest) events_.quiet();
}

}  // namespace

extern "C" __attribute__((visibility("default"))) Mixer* makeMixer(const std::string& programName, MixerEvents events) {
    return new ModuleMixer(programName, std::move(events));
}

}  // namespace platform::qt
