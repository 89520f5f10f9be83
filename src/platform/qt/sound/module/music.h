#pragma once

#include <fluidsynth.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace platform::qt {

/// A piece of music and the synthesizer that plays it. Silent until a piece has been loaded.
class Music {
  public:
    /// Makes a piece ready, with the instruments that it plays; false if the file or every sound font is missing or
    /// corrupt. Takes a fraction of a second; at once if it is loaded already, else it must have been silenced before.
    bool load(const std::string& file);

    // What follows must not run at the same time.
    void begin(uint64_t performance);  ///< From the beginning, under that number. What rings goes on ringing.
    void resume();                     ///< On from where it was silenced.
    /// Silences it where it is and returns a short rest of it, dying away, that saves the ear a click.
    std::vector<float> silence();
    void render(float* samples, int frames);  ///< Writes its next frames.

    bool begun() const { return player_ != nullptr; }
    bool isLoaded(const std::string& file) const { return !file_.empty() && file == file_; }
    bool going() const { return going_; }  ///< Plays, and hasn't come to its end.
    uint64_t performance() const { return performance_; }

  private:
    struct Deleter {
        void operator()(fluid_settings_t* settings) const { delete_fluid_settings(settings); }
        void operator()(fluid_synth_t* synth) const { delete_fluid_synth(synth); }
        void operator()(fluid_player_t* player) const { delete_fluid_player(player); }
    };
    using Synth = std::unique_ptr<fluid_synth_t, Deleter>;
    using Player = std::unique_ptr<fluid_player_t, Deleter>;

    bool loadFont();
    bool loadInstruments();
    Player makePlayer() const;
    void forgetControllers();

    std::unique_ptr<fluid_settings_t, Deleter> settings_;
    Synth synth_;
    std::string file_;   // that is loaded; empty if none is
    std::string piece_;  // its bytes
    Player player_;      // of the last performance
    uint64_t performance_ = 0;
    bool going_ = false;
    bool sounding_ = false;  // there is something to render: it plays, or its last notes ring
};

}  // namespace platform::qt
