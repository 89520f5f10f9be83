#include "platform/qt/sound/soundThread.h"

#include <QScopeGuard>
#include <utility>

#include "platform/base/files.h"
#include "platform/base/uncaught.h"
#include "platform/qt/window/modules.h"
#include "platform/sound.h"

namespace platform::qt {

using sequencer::State;

namespace {

/// False if that has failed with an exception, as everything may where memory is short; none may leave the thread.
template <class Action>
bool succeeds(const Action& action) {
    try {
        action();
        return true;
    } catch (...) {
        return false;
    }
}

}  // namespace

uint64_t SoundThread::begin(const std::string& file) {
    const std::lock_guard lock(mutex_);
    requests_.music = {requests_.music.performance + 1, file, true};
    request();
    return requests_.music.performance;
}

void SoundThread::setPlaying(uint64_t performance, bool playing) {
    const std::lock_guard lock(mutex_);
    if (performance != requests_.music.performance) return;
    requests_.music.playing = playing;
    request();
}

State SoundThread::stateOf(uint64_t performance) {
    const std::lock_guard lock(mutex_);
    if (performance == failed_) return State::Failed;
    return performance == ended_ || performance != requests_.music.performance ? State::Ended : State::Going;
}

void SoundThread::playSound(const std::string& file) {
    const std::lock_guard lock(mutex_);
    requests_.sounds.push_back(file);
    request();
}

/// Tells the thread that there is something to do.
void SoundThread::request() {
    if (thread_.get_stop_token().stop_requested()) return;
    changes_ = true;
    const auto start = [this] { thread_ = std::jthread([this](const std::stop_token& end) { run(end); }); };
    if (!thread_.joinable() && !succeeds(start)) failed_ = requests_.music.performance;
    changed_.notify_one();
}

void SoundThread::end() {
    thread_.request_stop();
    if (thread_.joinable()) thread_.join();
}

void SoundThread::run(const std::stop_token& end) {
    std::unique_lock lock(mutex_);
    while (changed_.wait(lock, end, [this] { return changes_; }) && !end.stop_requested()) {
        changes_ = false;
        const uint64_t performance = requests_.music.performance;
        if (!succeeds([&] { serve(lock); })) failed_ = performance;
    }
    lock.unlock();
    mixer_.reset();
}

void SoundThread::serve(std::unique_lock<std::mutex>& lock) {
    const Requests requests{requests_.music, std::exchange(requests_.sounds, {}),
                            std::exchange(requests_.quiet, false)};
    lock.unlock();
    carryOut(requests);
    lock.lock();
}

void SoundThread::carryOut(const Requests& requests) {
    bool heard = false;
    const bool carriedOut = succeeds([&] {
        if (!mixer_) makeMixer();
        heard = carryOut(requests.music);
    });
    if (!carriedOut) mixer_.reset();  // It could go on with what it was to stop.
    if (!heard) {
        const std::lock_guard lock(mutex_);
        failed_ = requests.music.performance;
    }
    if (!mixer_) return;
    for (const std::string& sound : requests.sounds) succeeds([&] { mixer_->playSound(sound); });
    if (requests.quiet) mixer_->rest();
}

bool SoundThread::carryOut(const Music& wanted) {
    const Music before = std::exchange(present_, wanted);
    if (!wanted.playing) {
        if (before.playing && mixer_) mixer_->pause();
        return true;
    }
    const bool same = wanted.performance == before.performance;
    if (same && before.playing) return true;
    return mixer_ && (same ? mixer_->resume() : mixer_->begin(wanted.file, wanted.performance));
}

void SoundThread::makeMixer() {
    const auto make = reinterpret_cast<MakeMixer>(moduleEntry(soundModule, soundEntry));
    if (make == nullptr) return;
    const auto tellEnded = [this](uint64_t performance) {
        const std::lock_guard lock(mutex_);
        ended_ = performance;
    };
    const auto tellQuiet = [this] {
        const std::lock_guard lock(mutex_);
        requests_.quiet = true;
        request();
    };
    mixer_.reset(make(programName, {tellEnded, tellQuiet}));
}

}  // namespace platform::qt

namespace platform {
namespace {

/// The one of the program. It ends when the program does, and is never destroyed.
qt::SoundThread& soundThread() {
    static auto& theThread = *new qt::SoundThread;  // Controls that are let go at the very end still ask for it.
    static const auto atEnd = qScopeGuard([] { theThread.end(); });
    return theThread;
}

}  // namespace

bool sequencer::canOpen(const std::string& file) { return isFileWithin(file, qt::largestPiece); }
uint64_t sequencer::begin(const std::string& file) { return soundThread().begin(file); }
void sequencer::setPlaying(uint64_t performance, bool playing) { soundThread().setPlaying(performance, playing); }
sequencer::State sequencer::stateOf(uint64_t performance) { return soundThread().stateOf(performance); }

bool sndPlaySoundA(const std::string& file, uint32_t /*flags*/) {
    if (!isFileWithin(file, qt::largestSound)) return false;
    soundThread().playSound(file);
    return true;
}

}  // namespace platform
