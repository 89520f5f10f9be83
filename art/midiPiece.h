#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// A note, in ticks from the beginning of its piece.
struct Note {
    int start, end;
    int key;       ///< 60 is C4.
    int velocity;  ///< 1 to 127.
};

/// What one track of a piece plays. A program, volume or pan that is never set is -1.
struct Track {
    int channel = -1;
    int program = -1;
    int volume = -1;
    int pan = -1;
    int end = 0;  ///< Tick of the track's end.
    std::vector<Note> notes;
};

/// From a tick on, how long a quarter lasts.
struct Tempo {
    int tick, microseconds;
};

struct Piece {
    int ticksInQuarter = 0;
    std::vector<Track> tracks;
    std::vector<Tempo> tempos;  ///< In order of their ticks.

    double secondsAt(int tick) const;  ///< Time from the beginning to a tick.
};

/// Reads a MIDI file; one that is cut off, or holds what the project's music doesn't use, is a std::runtime_error.
Piece readPiece(const std::string& path);
