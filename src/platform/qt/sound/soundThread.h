#pragma once

#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "platform/qt/sound/module/mixer.h"
#include "platform/shared/sequencer.h"

namespace platform::qt {

/// Works the mixer on a thread of its own, since loading a sound font and opening or closing a device take up to a
/// second. No call waits for that thread: it carries out the latest request, and those that came before it while the
/// thread was at work are forgotten. Nothing of sound is loaded before the first request.
class SoundThread {
  public:
    ~SoundThread() { end(); }

    uint64_t begin(const std::string& file);
    void setPlaying(uint64_t performance, bool playing);
    sequencer::State stateOf(uint64_t performance);
    void playSound(const std::string& file);

    /// Silences everything and waits for the thread to end; requests after that are not heard.
    void end();

  private:
    struct Music {
        uint64_t performance = 0;
        std::string file;
        bool playing = false;
    };
    struct Requests {
        Music music;
        std::vector<std::string> sounds;
        bool quiet = false;  // the mixer has told so
    };

    void request();
    void run(const std::stop_token& end);
    void serve(std::unique_lock<std::mutex>& lock);
    void carryOut(const Requests& requests);
    bool carryOut(const Music& wanted);
    void makeMixer();

    std::mutex mutex_;  // held for moments only; guards what follows
    std::condition_variable_any changed_;
    std::jthread thread_;
    Requests requests_;
    bool changes_ = false;
    uint64_t ended_ = 0;   // the last performance that came to the end of its piece
    uint64_t failed_ = 0;  // the last one that couldn't be heard

    // The thread's own
    std::unique_ptr<Mixer> mixer_;
    Music present_;
};

}  // namespace platform::qt
