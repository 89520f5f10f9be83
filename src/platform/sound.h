#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/timer.h"

namespace platform {

/// What a control stands in.
constexpr int32_t modeNotReady = 524;  ///< Not open, or its piece can't be played.
constexpr int32_t modeStopped = 525;
constexpr int32_t modePlaying = 526;
constexpr int32_t modeOpen = 530;  ///< Open and ready, without a piece.

/// Plays a piece of music, a MIDI file, by commands in words. It has no visible part. Nothing of it ever waits: where
/// a piece, a font or a sound device can't be had it is silent, and only mode() tells.
class MMControl {
  public:
    MMControl();
    ~MMControl();
    MMControl(const MMControl&) = delete;
    MMControl& operator=(const MMControl&) = delete;

    std::function<void()> onStatusUpdate;  ///< The status event.

    void setDeviceType(const std::string& type) { deviceType_ = type; }  ///< "Sequencer"; no other can be opened.
    void setFileName(const std::string& file) { fileName_ = file; }      ///< The piece that "Open" opens.
    void setWait(bool /*wait*/) {}            ///< Changes nothing: mode() shows each command's effect at once.
    void setShareable(bool /*shareable*/) {}  ///< Changes nothing: no device is ever locked.

    int updateInterval() const { return statusTimer_.interval(); }
    void setUpdateInterval(int milliseconds);                ///< Between two status events; 0, as at first, for none.
    const std::string& command() const { return command_; }  ///< The last one.
    /// Carries a command out; one that can't be, or that has another name, does nothing.
    ///   "Open"          opens the piece, if the file is there; it then stands stopped at its beginning
    ///   "Play"          plays on from where the piece stands, to its end
    ///   "Stop"          silences it where it is
    ///   "Next", "Prev"  take it back to its beginning, since a piece is one track; one that plays plays on from there
    ///   "Close"         stops and closes it
    void setCommand(const std::string& command);

    /// modeStopped also at the end of the piece; modeNotReady when playing failed, until the next "Stop".
    int32_t mode() const;

  private:
    void open();
    void play();
    void stop();
    void rewind();
    void close();

    Timer statusTimer_{Timer::WhileAway::GoesOn};
    std::string deviceType_;
    std::string fileName_;
    std::string command_;

    std::string piece_;                   // that is open
    int32_t restingMode_ = modeNotReady;  // the mode while it doesn't play
    bool playing_ = false;                // "Play" was the last command that matters, though the piece may have ended
    uint64_t performance_ = 0;            // where the piece stands; 0 at its beginning
};

constexpr uint32_t SND_ASYNC = 1;
constexpr uint32_t SND_NODEFAULT = 2;

/// Plays a wave file once, beside the music and other sounds. False if there is no such file. Both flags are in force
/// whether given or not: it never waits, and no other sound takes the place of one that can't be played.
bool sndPlaySoundA(const std::string& file, uint32_t flags);

}  // namespace platform
