#include "tests/ear.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <numeric>
#include <span>

namespace {

std::string newFolder() {
    std::string name = std::filesystem::temp_directory_path() / "soundXXXXXX";
    return mkdtemp(name.data());
}

std::span<const float> part(const std::vector<float>& frames, size_t from, size_t count) {
    from = std::min(from, frames.size());
    return {frames.data() + from, std::min(count, frames.size() - from)};
}

}  // namespace

float Heard::peak(size_t from, size_t count) const {
    float loudest = 0;
    for (const float frame : part(frames, from, count)) loudest = std::max(loudest, std::fabs(frame));
    return loudest;
}

float Heard::mean(size_t from, size_t count) const {
    const auto window = part(frames, from, count);
    return window.empty() ? 0 : std::reduce(window.begin(), window.end()) / static_cast<float>(window.size());
}

double Heard::level(size_t from, size_t count) const {
    constexpr double loudest = 2;  // left and right together
    const auto window = part(frames, from, count);
    const double power = std::transform_reduce(window.begin(), window.end(), 0.0, std::plus<>(),
                                               [](double frame) { return frame * frame; });
    return 10 * std::log10(power / static_cast<double>(count) / (loudest * loudest));
}

size_t Heard::firstAbove(float level, size_t from) const {
    while (from < frames.size() && std::fabs(frames[from]) <= level) ++from;
    return from;
}

size_t Heard::lastAbove(float level) const {
    size_t end = frames.size();
    while (end > 0 && std::fabs(frames[end - 1]) <= level) --end;
    return end > 0 ? end - 1 : 0;
}

Ear::Ear() : folder_(newFolder()) {
    const std::string pipe = folder_ + "/device";
    mkfifo(pipe.c_str(), S_IRUSR | S_IWUSR);
    pipe_ = open(pipe.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    setenv("SDL_AUDIODRIVER", "disk", 1);
    setenv("SDL_DISKAUDIOFILE", pipe.c_str(), 1);
    std::signal(SIGPIPE, SIG_IGN);
    thread_ = std::thread([this] { listen(); });
}

Ear::~Ear() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
    }
    thread_.join();
    close(pipe_);
    std::filesystem::remove_all(folder_);
}

void Ear::listen() {
    constexpr auto moment = std::chrono::milliseconds(2);
    std::array<char, 65536> buffer;
    for (;; std::this_thread::sleep_for(moment)) {
        const ssize_t count = read(pipe_, buffer.data(), buffer.size());
        const std::lock_guard lock(mutex_);
        if (ending_) return;
        open_ = count != 0;  // An empty pipe that someone may write to gives an error, a closed one nothing.
        if (count > 0) bytes_.insert(bytes_.end(), buffer.data(), buffer.data() + count);
    }
}

Heard Ear::heard() {
    const std::lock_guard lock(mutex_);
    std::vector<float> samples(bytes_.size() / sizeof(float));
    if (!samples.empty()) std::memcpy(samples.data(), bytes_.data(), samples.size() * sizeof(float));
    Heard result;
    for (size_t i = 0; i + 1 < samples.size(); i += 2) result.frames.push_back(samples[i] + samples[i + 1]);
    return result;
}

size_t Ear::now() {
    const std::lock_guard lock(mutex_);
    return bytes_.size() / (2 * sizeof(float));
}

bool Ear::deviceOpen() {
    const std::lock_guard lock(mutex_);
    return open_;
}
