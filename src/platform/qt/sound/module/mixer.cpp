#include "platform/qt/sound/module/mixer.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <utility>
#include <vector>

#include "platform/qt/sound/module/device.h"
#include "platform/qt/sound/module/limiter.h"
#include "platform/qt/sound/module/music.h"
#include "platform/qt/sound/module/samples.h"

namespace platform::qt {
namespace {

constexpr float soundGain = 1.8F;         // thunder is then 13 LU above the music in its loudest moment
constexpr int framesToRest = sampleRate;  // of silence, until the device may be closed

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
        : events_(std::move(events)),
          device_(programName, [this](float* samples, int frames) { mix(samples, frames); }) {}

    bool begin(const std::string& file, uint64_t performance) override;
    void pause() override;
    bool resume() override;
    void playSound(const std::string& file) override;
    void rest() override;

  private:
    void makeRoomFor(const std::string& file);
    bool openDevice();
    void add(std::vector<float> samples);
    void mix(float* samples, int frames);
    void noteSilence(std::span<const float> samples);

    MixerEvents events_;
    Music music_;
    std::vector<Sound> sounds_;
    Limiter limiter_;
    int silentFrames_ = 0;
    Device device_;  // last, so that it stops asking before the others go
};

bool ModuleMixer::begin(const std::string& file, uint64_t performance) {
    device_.closeVanished();
    makeRoomFor(file);
    if (!music_.load(file)) return false;
    {
        const Device::Hold hold(device_);
        music_.begin(performance);
        silentFrames_ = 0;
    }
    return openDevice();
}

void ModuleMixer::pause() {
    const Device::Hold hold(device_);
    add(music_.silence());
}

void ModuleMixer::makeRoomFor(const std::string& file) {
    const Device::Hold hold(device_);
    if (music_.going() || !music_.isLoaded(file)) add(music_.silence());
}

bool ModuleMixer::resume() {
    if (!music_.begun()) return false;
    device_.closeVanished();
    {
        const Device::Hold hold(device_);
        music_.resume();
        silentFrames_ = 0;
    }
    return openDevice();
}

void ModuleMixer::playSound(const std::string& file) {
    device_.closeVanished();
    auto samples = samplesOf(file);
    if (samples.empty()) return;
    for (float& sample : samples) sample *= soundGain;
    {
        const Device::Hold hold(device_);
        add(std::move(samples));
        silentFrames_ = 0;
    }
    openDevice();
}

// It is opened only when there is something to ask for, so that it doesn't begin with silence.
bool ModuleMixer::openDevice() {
    if (device_.open()) return true;
    music_.silence();
    sounds_.clear();
    return false;
}

void ModuleMixer::rest() {
    const bool quiet = [this] {
        const Device::Hold hold(device_);
        return silentFrames_ >= framesToRest;
    }();
    if (quiet) device_.close();
}

void ModuleMixer::add(std::vector<float> samples) {
    if (!samples.empty()) sounds_.push_back({std::move(samples)});
}

void ModuleMixer::mix(float* samples, int frames) {
    const std::span<float> out(samples, static_cast<size_t>(frames) * channels);
    std::ranges::fill(out, 0.0F);
    const bool wentOn = music_.going();
    music_.render(samples, frames);
    if (wentOn && !music_.going()) events_.ended(music_.performance());
    for (Sound& sound : sounds_) sound.addTo(out);
    std::erase_if(sounds_, [](const Sound& sound) { return sound.over(); });
    limiter_.pass(out);
    noteSilence(out);
}

void ModuleMixer::noteSilence(std::span<const float> samples) {
    const bool silent = !music_.going() && sounds_.empty() &&
                        std::ranges::all_of(samples, [](float sample) { return std::fabs(sample) < inaudible; });
    const int before =
        std::exchange(silentFrames_, silent ? silentFrames_ + static_cast<int>(samples.size()) / channels : 0);
    if (before < framesToRest && silentFrames_ >= framesToRest) events_.quiet();
}

}  // namespace

extern "C" __attribute__((visibility("default"))) Mixer* makeMixer(const std::string& programName, MixerEvents events) {
    return new ModuleMixer(programName, std::move(events));
}

}  // namespace platform::qt
