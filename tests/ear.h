#pragma once

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <mutex>
#include <numeric>
#include <span>
#include <thread>
#include <vector>

/// What came out of the sound device, left and right added up.
struct Heard {
    std::vector<float> frames;

    std::span<const float> part(size_t from, size_t count) const {
        from = std::min(from, frames.size());
        return {frames.data() + from, std::min(count, frames.size() - from)};
    }
    /// The loudest of so many frames.
    float peak(size_t from, size_t count) const {
        float loudest = 0;
        for (const float frame : part(from, count)) loudest = std::max(loudest, std::fabs(frame));
        return loudest;
    }
    float mean(size_t from, size_t count) const {
        const auto window = part(from, count);
        return std::reduce(window.begin(), window.end()) / static_cast<float>(window.size() + (window.empty() ? 1 : 0));
    }
    /// Decibels of the power, 0 for the loudest square wave.
    double level(size_t from, size_t count) const {
        constexpr double loudest = 2;  // left and right together
        double power = 0;
        for (const double frame : part(from, count)) power += frame * frame;
        return 10 * std::log10(power / static_cast<double>(count) / (loudest * loudest));
    }
    /// The first louder frame; frames.size() if none is.
    size_t firstAbove(float level, size_t from = 0) const {
        while (from < frames.size() && std::fabs(frames[from]) <= level) ++from;
        return from;
    }
    /// The last louder frame; 0 if none is.
    size_t lastAbove(float level) const {
        size_t at = frames.size();
        while (at > 0 && (at == frames.size() || std::fabs(frames[at]) <= level)) --at;
        return at;
    }
};

/// Listens to SDL's disk driver, from a pipe in place of its file. Time is counted in the frames that came, so that a
/// busy machine doesn't matter.
class Ear {
  public:
    /// Every device that is opened from now on is heard, through a pipe in that folder.
    explicit Ear(const std::filesystem::path& folder) : pipe_(folder / "device") {
        mkfifo(pipe_.c_str(), S_IRUSR | S_IWUSR);
        attend();
        const int end = open(pipe_.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
        thread_ = std::jthread([this, end](const std::stop_token& stop) { listen(stop, end); });
    }
    /// Goes deaf: what an open device writes then finds nobody, as if it had been unplugged.
    ~Ear() { std::filesystem::remove(pipe_); }
    Ear(const Ear&) = delete;
    Ear& operator=(const Ear&) = delete;

    /// Has it hear what is opened from now on, whatever the environment says.
    void attend() const {
        setenv("SDL_AUDIODRIVER", "disk", 1);
        setenv("SDL_DISKAUDIOFILE", pipe_.c_str(), 1);
    }
    /// So far.
    Heard heard() {
        const std::lock_guard lock(mutex_);
        Heard result;
        for (size_t at = 0; at + sizeof(Frame) <= bytes_.size(); at += sizeof(Frame)) {
            Frame frame;
            std::memcpy(&frame, &bytes_[at], sizeof(Frame));
            result.frames.push_back(frame[0] + frame[1]);
        }
        return result;
    }
    /// The number of frames so far.
    size_t now() {
        const std::lock_guard lock(mutex_);
        return bytes_.size() / sizeof(Frame);
    }
    bool deviceOpen() const { return open_; }

  private:
    using Frame = std::array<float, 2>;

    void listen(const std::stop_token& stop, int end) {
        std::array<char, 65536> buffer;
        for (; !stop.stop_requested(); std::this_thread::sleep_for(std::chrono::milliseconds(2))) {
            const ssize_t count = read(end, buffer.data(), buffer.size());
            open_ = count != 0;  // An empty pipe that someone may write to gives an error, a closed one nothing.
            const std::lock_guard lock(mutex_);
            if (count > 0) bytes_.insert(bytes_.end(), buffer.data(), buffer.data() + count);
        }
        close(end);
    }

    const std::filesystem::path pipe_;
    std::mutex mutex_;
    std::vector<char> bytes_;  // which it guards
    std::atomic<bool> open_ = false;
    std::jthread thread_;
};

/// Frames in so many milliseconds.
constexpr size_t framesIn(double milliseconds) { return static_cast<size_t>(milliseconds * 22.05); }
