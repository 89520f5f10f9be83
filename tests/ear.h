#pragma once

#include <cstddef>
#include <filesystem>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

/// What came out of the sound device, left and right added up.
struct Heard {
    std::vector<float> frames;

    float peak(size_t from, size_t count) const;  ///< The loudest of so many frames.
    float mean(size_t from, size_t count) const;
    double level(size_t from, size_t count) const;          ///< Decibels, 0 for the loudest square wave.
    size_t firstAbove(float level, size_t from = 0) const;  ///< The first louder frame; frames.size() if none is.
    size_t lastAbove(float level) const;                    ///< The last louder frame; 0 if none is.
};

/// Listens to SDL's disk driver, from a pipe in place of its file. Time is counted in the frames that came, so that a
/// busy machine doesn't matter.
class Ear {
  public:
    Ear();   ///< Every device that is opened from now on is heard.
    ~Ear();  ///< Goes deaf: what an open device writes then finds nobody, as if it had been unplugged.
    Ear(const Ear&) = delete;
    Ear& operator=(const Ear&) = delete;

    Heard heard();      ///< So far.
    size_t now();       ///< The number of frames so far.
    bool deviceOpen();  ///< Whether one is open now.

  private:
    void listen();

    const std::string folder_;
    int pipe_ = -1;
    std::thread thread_;

    std::mutex mutex_;  // guards what follows
    bool ending_ = false;
    bool open_ = false;
    std::vector<char> bytes_;
};

/// Frames in so many milliseconds.
constexpr size_t framesIn(double milliseconds) { return static_cast<size_t>(milliseconds * 22.05); }
