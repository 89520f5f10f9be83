#pragma once

#include <string>
#include <vector>

#include "art/thunder.h"

/// Numbers of instruments in General MIDI, counted from 0.
constexpr int bell = 14, organ = 19, woodBlock = 115;

struct Note {
    int at, length;  ///< Milliseconds.
    int key;         ///< 60 is the middle C.
};

/// A MIDI file of one instrument, shorter than 16 seconds. The notes follow one another; an event of another kind may
/// follow the last.
inline std::string piece(int instrument, const std::vector<Note>& notes, int milliseconds,
                         const std::string& lastEvent = "") {
    std::string track;
    int now = 0;
    const auto add = [&](int at, const std::string& event) {  // Seven bits of the time a byte; the last has no top bit.
        track += {static_cast<char>(0x80 | (at - now) >> 7), static_cast<char>((at - now) & 0x7F)};
        track += event;
        now = at;
    };
    add(0, {'\xC0', static_cast<char>(instrument)});
    for (const Note& note : notes) {
        add(note.at, {'\x90', static_cast<char>(note.key), 100});
        add(note.at + note.length, {'\x80', static_cast<char>(note.key), 0});
    }
    if (!lastEvent.empty()) add(now, lastEvent);
    add(milliseconds, {'\xFF', '\x2F', 0});
    const std::string length = {0, 0, static_cast<char>(track.size() >> 8), static_cast<char>(track.size())};
    return std::string("MThd\0\0\0\6\0\0\0\1\1\xF4MTrk", 18) + length +
           track;  // 500 parts of a beat: a millisecond each
}

/// A wave file whose every sample is a quarter of the loudest: told from music by its mean.
inline std::string plateau(int milliseconds) {
    const std::vector<int16_t> samples(static_cast<size_t>(milliseconds) * thunder::sampleRate / 1000, 8192);
    const std::vector<uint8_t> bytes = thunder::waveFile(samples);
    return {bytes.begin(), bytes.end()};
}
