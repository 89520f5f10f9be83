#include "tests/soundFiles.h"

#include <cstdint>

namespace {

void appendNumber(std::string& bytes, uint32_t value, int width) {
    for (int shift = 8 * (width - 1); shift >= 0; shift -= 8) bytes += static_cast<char>(value >> shift);
}

/// A time in a MIDI file: seven bits a byte, the last byte without the top bit.
void appendTime(std::string& bytes, int milliseconds) {
    bytes += static_cast<char>(0x80 | (milliseconds >> 7 & 0x7F));
    bytes += static_cast<char>(milliseconds & 0x7F);
}

}  // namespace

std::string piece(int instrument, const std::vector<Note>& notes, int milliseconds, const std::string& lastEvent) {
    std::string track;
    appendTime(track, 0);
    track += {'\xC0', static_cast<char>(instrument)};
    int now = 0;
    for (const Note& note : notes) {
        appendTime(track, note.at - now);
        track += {'\x90', static_cast<char>(note.key), 100};
        appendTime(track, note.length);
        track += {'\x80', static_cast<char>(note.key), 0};
        now = note.at + note.length;
    }
    if (!lastEvent.empty()) {
        appendTime(track, 0);
        track += lastEvent;
    }
    appendTime(track, milliseconds - now);
    track += {'\xFF', '\x2F', 0};
    std::string file = "MThd";
    appendNumber(file, 6, 4);
    for (const int value : {0, 1, 500}) appendNumber(file, value, 2);
    file += "MTrk";
    appendNumber(file, static_cast<uint32_t>(track.size()), 4);
    return file + track;
}

std::string plateau(int milliseconds) {
    const uint32_t bytes = static_cast<uint32_t>(milliseconds * 22050 / 1000 * 2);
    const auto number = [](uint32_t value, int width) {
        std::string text;
        for (int i = 0; i < width; ++i) text += static_cast<char>(value >> 8 * i);
        return text;
    };
    std::string file = "RIFF" + number(36 + bytes, 4) + "WAVEfmt " + number(16, 4) + number(1, 2) + number(1, 2) +
                       number(22050, 4) + number(44100, 4) + number(2, 2) + number(16, 2) + "data" + number(bytes, 4);
    for (uint32_t i = 0; i < bytes / 2; ++i) file += number(8192, 2);
    return file;
}
