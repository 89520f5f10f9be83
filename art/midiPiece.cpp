#include "midiPiece.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <stdexcept>
#include <utility>

namespace {

class Reader {
  public:
    explicit Reader(std::vector<char> content) : bytes(std::move(content)) {}

    size_t place() const { return at; }
    int peek() const {
        if (at >= bytes.size()) throw std::runtime_error("the piece is cut off");
        return uint8_t(bytes[at]);
    }
    int byte() {
        const int value = peek();
        ++at;
        return value;
    }
    int number(int size) {
        int value = 0;
        while (size-- > 0) value = value << 8 | byte();
        return value;
    }
    int variable() {
        int value = 0;
        int next = 0;
        do {
            next = byte();
            value = value << 7 | (next & 0x7F);
        } while (next & 0x80);
        return value;
    }
    void word(const std::string& letters) {
        for (const char letter : letters)
            if (byte() != letter) throw std::runtime_error("no " + letters + " where it belongs");
    }
    void skip(int size) {
        while (size-- > 0) byte();
    }

  private:
    std::vector<char> bytes;
    size_t at = 0;
};

/// Reads the events of one track.
class TrackReader {
  public:
    TrackReader(Reader& from, std::vector<Tempo>& tempoList) : reader(from), tempos(tempoList) {}

    Track read() {
        reader.word("MTrk");
        const size_t size = size_t(reader.number(4));
        const size_t stop = reader.place() + size;
        while (reader.place() < stop) {
            track.end += reader.variable();
            if (reader.peek() & 0x80) status = reader.byte();
            if (status == 0xFF) {
                readMeta();
            } else {
                readVoice();
            }
        }
        if (!open.empty()) throw std::runtime_error("a note that never ends");
        return track;
    }

  private:
    void readMeta() {
        const int kind = reader.byte();
        const int size = reader.variable();
        if (kind == 0x51) {
            tempos.push_back({track.end, reader.number(size)});
        } else {
            reader.skip(size);
        }
    }

    void readVoice() {
        const int kind = status >> 4;
        const int first = reader.byte();
        track.channel = status & 0xF;
        if (kind == 0xC) {
            track.program = first;
            return;
        }
        const int second = reader.byte();
        if (kind == 0x9 && second > 0) {
            if (!open.try_emplace(first, track.notes.size()).second) throw std::runtime_error("a note begun twice");
            track.notes.push_back({track.end, 0, first, second});
        } else if (kind == 0x8 || kind == 0x9) {
            endNote(first);
        } else if (kind == 0xB) {
            if (first == 7) track.volume = second;
            if (first == 10) track.pan = second;
        } else {
            throw std::runtime_error("an event that is not expected");
        }
    }

    void endNote(int key) {
        const auto note = open.find(key);
        if (note == open.end()) throw std::runtime_error("a note ends that never began");
        track.notes[note->second].end = track.end;
        open.erase(note);
    }

    Reader& reader;
    std::vector<Tempo>& tempos;
    Track track;
    int status = 0;
    std::map<int, size_t> open;
};

}  // namespace

double Piece::secondsAt(int tick) const {
    double seconds = 0;
    for (size_t i = 0; i < tempos.size() && tempos[i].tick < tick; ++i) {
        const int stop = i + 1 < tempos.size() ? std::min(tick, tempos[i + 1].tick) : tick;
        seconds += 1e-6 * (stop - tempos[i].tick) * tempos[i].microseconds / ticksInQuarter;
    }
    return seconds;
}

Piece readPiece(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error(path + " can't be opened");
    Reader reader({std::istreambuf_iterator<char>(file), {}});
    reader.word("MThd");
    reader.skip(6);
    const int count = reader.number(2);
    Piece piece;
    piece.ticksInQuarter = reader.number(2);
    for (int i = 0; i < count; ++i) piece.tracks.push_back(TrackReader(reader, piece.tempos).read());
    return piece;
}
