// Judges the music and the thunder: a piece that loops and stays welcome, a thunder that cracks, rolls and ends without
// a click. Its one argument is the piece; the thunder is made anew.

#include <algorithm>
#include <array>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <iterator>
#include <numeric>
#include <set>
#include <span>
#include <string>
#include <tuple>
#include <vector>

#include "expect.h"
#include "midiPiece.h"
#include "thunder.h"

namespace {

constexpr int sixteenthsInBar = 16;

int ticksInBar(const Piece& piece) { return 4 * piece.ticksInQuarter; }

int lastTick(const Piece& piece) {
    int last = 0;
    for (const Track& track : piece.tracks) last = std::max(last, track.end);
    return last;
}

int barCount(const Piece& piece) { return lastTick(piece) / ticksInBar(piece); }

std::string barOf(const Piece& piece, const Note& note) {
    return "bar " + std::to_string(note.start / ticksInBar(piece) + 1);
}

void checkPace(const Piece& piece) {
    const double seconds = piece.secondsAt(lastTick(piece));
    expect(seconds >= 120 && seconds <= 240, "the piece doesn't last two to four minutes");
    for (const Tempo& tempo : piece.tempos) {
        const double beats = 60e6 / tempo.microseconds;
        expect(beats > 71.9 && beats < 84.1, "no walking pace from tick " + std::to_string(tempo.tick));
    }
}

// What is left over is heard as a stumble before the piece begins again.
void checkLoop(const Piece& piece) {
    expect(lastTick(piece) % ticksInBar(piece) < ticksInBar(piece) / (2 * sixteenthsInBar),
           "the piece doesn't end with its last bar");
    for (const Track& track : piece.tracks)
        expect(track.end / ticksInBar(piece) == 60, "a track that doesn't last 60 bars");
}

struct Voice {
    const char* name;
    int program, pan, lowest, highest;
};
constexpr Voice strings = {"strings", 45, 72, 43, 57};
constexpr std::array voices = {
    Voice{"marimba", 12, 20, 60, 76},    Voice{"koto", 107, 36, 57, 86},
    Voice{"shakuhachi", 77, 50, 72, 88}, Voice{"drum", 116, 61, 36, 47},
    Voice{"pan flute", 75, 84, 72, 91},  Voice{"harp", 46, 100, 48, 81},
    Voice{"block", 115, 114, 60, 79},    strings,
};

/// An empty track if there is none.
Track trackOf(const Piece& piece, const Voice& voice) {
    const auto found = std::ranges::find(piece.tracks, voice.program, &Track::program);
    return found == piece.tracks.end() ? Track() : *found;
}

// Every voice is heard from its own place, in its register.
void checkVoices(const Piece& piece) {
    expect(piece.tracks.size() == voices.size() + 1, "other voices than expected");  // The first track has the tempo.
    std::set<int> channels = {9};                                                    // That of the drums.
    for (const Voice& voice : voices) {
        const Track track = trackOf(piece, voice);
        const std::string name = voice.name;
        expect(channels.insert(track.channel).second, name + " on the channel of another voice");
        expect(track.pan == voice.pan, name + " at another place");
        expect(track.volume >= 80, name + " is turned low");
        expect(track.notes.size() >= 20, name + " has hardly a note");
        for (const Note& note : track.notes) {
            expect(note.key >= voice.lowest && note.key <= voice.highest,
                   name + " leaves its register in " + barOf(piece, note));
            expect(note.velocity >= 30, name + " isn't heard in " + barOf(piece, note));
        }
    }
}

void checkBass(const Piece& piece) {
    const std::vector<Note> notes = trackOf(piece, strings).notes;
    for (size_t i = 1; i < notes.size(); ++i)
        expect(notes[i - 1].end <= notes[i].start, "two notes at once in the bass, " + barOf(piece, notes[i]));
}

void checkCrowds(const Piece& piece) {
    std::vector<int> notes(barCount(piece) + 1);
    for (const Track& track : piece.tracks)
        for (const Note& note : track.notes) ++notes.at(note.start / ticksInBar(piece));
    for (int bar = 0; bar < barCount(piece); ++bar) {
        const int start = bar * ticksInBar(piece);
        const double seconds = piece.secondsAt(start + ticksInBar(piece)) - piece.secondsAt(start);
        expect(notes[bar] > 0 && notes[bar] <= 14 * seconds, "bar " + std::to_string(bar + 1) + " is empty or crowded");
    }
}

using Stretch = std::set<std::tuple<int, int, int>>;

/// The notes that begin in eight bars: program, sixteenth within the stretch, and key.
Stretch eightBarsFrom(const Piece& piece, int bar) {
    Stretch stretch;
    const int bars = ticksInBar(piece);
    for (const Track& track : piece.tracks)
        for (const Note& note : track.notes)
            if (note.start >= bar * bars && note.start < (bar + 8) * bars)
                stretch.emplace(track.program, (note.start - bar * bars) * sixteenthsInBar / bars, note.key);
    return stretch;
}

// A tune that comes back in other hands is welcome; three notes in four alike would be the same again.
void checkRepeats(const Piece& piece) {
    std::vector<Stretch> stretches;
    for (int bar = 0; bar + 8 <= barCount(piece); ++bar) stretches.push_back(eightBarsFrom(piece, bar));
    for (size_t one = 0; one < stretches.size(); ++one)
        for (size_t other = one + 1; other < stretches.size(); ++other) {
            Stretch common;
            std::ranges::set_intersection(stretches[one], stretches[other], std::inserter(common, common.end()));
            expect(4 * common.size() < 3 * std::min(stretches[one].size(), stretches[other].size()),
                   "bars " + std::to_string(one + 1) + " are heard again from " + std::to_string(other + 1));
        }
}

using Samples = std::span<const int16_t>;

/// One of so many equal parts, counted from 0.
Samples part(Samples all, size_t number, size_t count) {
    return all.subspan(number * (all.size() / count), all.size() / count);
}

double powerOf(Samples samples) {
    return std::transform_reduce(samples.begin(), samples.end(), 0.0, std::plus<>(),
                                 [](double sample) { return sample * sample; }) /
           double(samples.size());
}

int peakOf(Samples samples) {
    int peak = 0;
    for (const int sample : samples) peak = std::max(peak, std::abs(sample));
    return peak;
}

/// The power of the steps from sample to sample beside that of the samples: high for a hiss, low for a rumble.
double brightnessOf(Samples samples) {
    double steps = 0;
    for (size_t i = 1; i < samples.size(); ++i) {
        const double step = samples[i] - samples[i - 1];
        steps += step * step;
    }
    return steps / double(samples.size()) / powerOf(samples);
}

void checkCrack(Samples thunder) {
    expect(peakOf(thunder.first(220)) > 12000, "no crack in the first hundredth of a second of the thunder");
    expect(brightnessOf(part(thunder, 0, 32)) > 20 * brightnessOf(part(thunder, 2, 8)),
           "the crack is no sharper than what follows");
    expect(brightnessOf(part(thunder, 1, 2)) < 0.01, "the rumble is not low");
}

void checkRoll(Samples thunder) {
    std::vector<double> powers;
    for (size_t i = 0; i < 64; ++i) powers.push_back(powerOf(part(thunder, i, 64)));
    expect(std::ranges::max_element(powers) - powers.begin() < 16, "the thunder is loudest late");
    int swells = 0;
    for (size_t i = 2; i + 2 < powers.size(); ++i)
        if (powers[i] > 2 * powers[i - 2] && powers[i] > 100) ++swells;
    expect(swells >= 4, "the thunder is one noise that only fades");
    for (size_t quarter = 1; quarter < 4; ++quarter)
        expect(2 * powerOf(part(thunder, quarter, 4)) < powerOf(part(thunder, quarter - 1, 4)),
               "the thunder doesn't die away");
    expect(peakOf(part(thunder, 63, 64)) <= 3, "the thunder ends with a click");
}

void checkLoudness(Samples thunder) {
    const double seconds = double(thunder.size()) / thunder::sampleRate;
    expect(seconds >= 3 && seconds <= 5, "the thunder doesn't last about four seconds");
    expect(peakOf(thunder) > 18000 && peakOf(thunder) < 23000, "the thunder is soft or loud");
    int flat = 0;
    for (size_t i = 1; i < thunder.size(); ++i)
        if (thunder[i] == thunder[i - 1] && std::abs(thunder[i]) > 12000) ++flat;
    expect(flat <= 1, "the thunder is cut flat");
}

}  // namespace

int main(int count, char** words) {
    if (count != 2) {
        std::cerr << "usage: check_sounds PIECE\n";
        return 2;
    }
    const Piece piece = readPiece(words[1]);
    for (const auto check : {checkPace, checkLoop, checkVoices, checkBass, checkCrowds, checkRepeats}) check(piece);
    const std::vector<int16_t> samples = thunder::makeSamples();
    for (const auto check : {checkCrack, checkRoll, checkLoudness}) check(samples);
    return pleased ? 0 : 1;
}
