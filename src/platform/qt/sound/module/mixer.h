#pragma once

#include <cstdint>
#include <functional>
#include <string>

/// The module of sound, as the program sees it. Music and sounds come out of one device, which is open only while
/// something sounds.
namespace platform::qt {

/// Bytes of what is heard; a larger file counts as missing. That is a hundred times the game's piece, and minutes of
/// sound, but nothing that would take long to read.
constexpr uintmax_t largestPiece = 1 << 20, largestSound = 4 << 20;

/// What the mixer tells. It calls from the thread that makes the sound, so that a handler must return at once.
struct MixerEvents {
    std::function<void(uint64_t performance)> ended;  ///< A performance has come to the end of its piece.
    std::function<void()> quiet;                      ///< Nothing has sounded for a second.
};

/// All calls may take up to a second and come from one thread.
class Mixer {
  public:
    virtual ~Mixer() = default;

    /// Plays a piece from its beginning under a number; false if it can't be heard. What plays is cut off; the last
    /// notes of what has ended ring on.
    virtual bool begin(const std::string& file, uint64_t performance) = 0;
    virtual void pause() = 0;                             ///< Silences the piece where it is.
    virtual bool resume() = 0;                            ///< Plays it on from there; false if it can't be heard.
    virtual void playSound(const std::string& file) = 0;  ///< A wave file; nothing if it can't be heard.
    virtual void rest() = 0;                              ///< Closes the device if it is still quiet.
};

/// The module's file and its entry point. The caller deletes the mixer; the name is what a desktop shows beside its
/// volume.
constexpr const char* soundModule = "velmora_sound.so";
constexpr const char* soundEntry = "makeMixer";
using MakeMixer = Mixer* (*)(const std::string& programName, MixerEvents events);

}  // namespace platform::qt
