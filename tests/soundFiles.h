#pragma once

#include <string>
#include <vector>

/// Numbers of instruments in General MIDI, counted from 0.
constexpr int bell = 14, organ = 19, woodBlock = 115;

struct Note {
    int at, length;  ///< Milliseconds.
    int key;         ///< 60 is the middle C.
};

/// A MIDI file of one instrument, shorter than 16 seconds. The notes follow one another; an event of another kind may
/// follow the last.
std::string piece(int instrument, const std::vector<Note>& notes, int milliseconds, const std::string& lastEvent = "");

/// A wave file whose every sample is a quarter of the loudest: told from music by its mean.
std::string plateau(int milliseconds);
