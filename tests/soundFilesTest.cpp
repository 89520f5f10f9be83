// What the game and its players rely on in the committed sounds: a piece that loops and stays welcome, a thunder that
// cracks, rolls and ends without a click.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <numeric>
#include <set>
#include <span>
#include <tuple>

#include "art/thunder.h"
#include "tests/midiPiece.h"

namespace {

constexpr int sixteenthsInBar = 16;

const Piece& piece() {
    static const Piece music = readPiece(VELMORA_ASSETS "/sounds/mendel1.mid");
    return music;
}

int ticksInBar() { return 4 * piece().ticksInQuarter; }

int lastTick() {
    int last = 0;
    for (const Track& track : piece().tracks) last = std::max(last, track.end);
    return last;
}

int barCount() { return lastTick() / ticksInBar(); }

TEST(Music, lastsTwoToFourMinutesAtAWalkingPace) {
    EXPECT_GE(piece().secondsAt(lastTick()), 120);
    EXPECT_LE(piece().secondsAt(lastTick()), 240);
    ASSERT_FALSE(piece().tempos.empty());
    EXPECT_EQ(piece().tempos.front().tick, 0);
    for (const Tempo& tempo : piece().tempos) {
        const double beats = 60e6 / tempo.microseconds;
        EXPECT_GE(beats, 72 - 0.01) << "at tick " << tempo.tick;
        EXPECT_LE(beats, 84 + 0.01) << "at tick " << tempo.tick;
    }
}

TEST(Music, endsWithItsLastBarSoThatTheLoopKeepsTime) {
    // What is left over is heard as a stumble before the piece begins again.
    EXPECT_LT(lastTick() % ticksInBar(), ticksInBar() / (2 * sixteenthsInBar));
    for (const Track& track : piece().tracks) EXPECT_EQ(track.end / ticksInBar(), 60);
}

struct Voice {
    const char* name;
    int program, pan, lowest, highest;
};
constexpr std::array voices = {
    Voice{"marimba", 12, 20, 60, 76}, Voice{"koto", 107, 36, 57, 86},   Voice{"shakuhachi", 77, 50, 72, 88},
    Voice{"drum", 116, 61, 36, 47},   Voice{"strings", 45, 72, 43, 57}, Voice{"pan flute", 75, 84, 72, 91},
    Voice{"harp", 46, 100, 48, 81},   Voice{"block", 115, 114, 60, 79},
};

const Track* trackOf(const Voice& voice) {
    for (const Track& track : piece().tracks)
        if (track.program == voice.program) return &track;
    return nullptr;
}

TEST(Music, everyVoiceIsHeardFromItsOwnPlaceInItsRegister) {
    // The first track holds the tempo alone.
    ASSERT_EQ(piece().tracks.size(), voices.size() + 1);
    std::set<int> channels;
    for (const Voice& voice : voices) {
        SCOPED_TRACE(voice.name);
        const Track* track = trackOf(voice);
        ASSERT_NE(track, nullptr);
        EXPECT_TRUE(channels.insert(track->channel).second && track->channel != 9) << "channel " << track->channel;
        EXPECT_EQ(track->pan, voice.pan);
        EXPECT_GE(track->volume, 80);
        EXPECT_GE(track->notes.size(), 20U);
        for (const Note& note : track->notes) {
            EXPECT_TRUE(note.key >= voice.lowest && note.key <= voice.highest)
                << "key " << note.key << " in bar " << note.start / ticksInBar() + 1;
            EXPECT_GE(note.velocity, 30) << "in bar " << note.start / ticksInBar() + 1;
        }
    }
}

TEST(Music, playsOneNoteAtATimeInTheBass) {
    const Track& strings = *trackOf(voices[4]);
    for (size_t i = 1; i < strings.notes.size(); ++i)
        EXPECT_LE(strings.notes[i - 1].end, strings.notes[i].start) << "tick " << strings.notes[i].start;
}

TEST(Music, noBarIsCrowded) {
    std::vector<int> notes(barCount());
    for (const Track& track : piece().tracks)
        for (const Note& note : track.notes) ++notes.at(note.start / ticksInBar());
    for (int bar = 0; bar < barCount(); ++bar) {
        const double seconds = piece().secondsAt((bar + 1) * ticksInBar()) - piece().secondsAt(bar * ticksInBar());
        EXPECT_LE(notes[bar] / seconds, 14) << "bar " << bar + 1;
        EXPECT_GT(notes[bar], 0) << "bar " << bar + 1;
    }
}

using Stretch = std::set<std::tuple<int, int, int>>;

/// The notes that begin in eight bars: program, sixteenth within the stretch, and key.
Stretch eightBarsFrom(int bar) {
    Stretch stretch;
    const int first = bar * ticksInBar();
    for (const Track& track : piece().tracks)
        for (const Note& note : track.notes)
            if (note.start >= first && note.start < first + 8 * ticksInBar())
                stretch.emplace(track.program, (note.start - first) * sixteenthsInBar / ticksInBar(), note.key);
    return stretch;
}

TEST(Music, noEightBarsAreHeardTwice) {
    std::vector<Stretch> stretches;
    for (int bar = 0; bar + 8 <= barCount(); ++bar) stretches.push_back(eightBarsFrom(bar));
    for (size_t one = 0; one < stretches.size(); ++one)
        for (size_t other = one + 1; other < stretches.size(); ++other) {
            Stretch common;
            std::set_intersection(stretches[one].begin(), stretches[one].end(), stretches[other].begin(),
                                  stretches[other].end(), std::inserter(common, common.end()));
            // A tune that comes back in other hands is welcome; three notes in four alike would be the same again.
            EXPECT_LT(4 * common.size(), 3 * std::min(stretches[one].size(), stretches[other].size()))
                << "bars " << one + 1 << " and " << other + 1;
        }
}

constexpr size_t headerSize = 44;

const std::vector<uint8_t>& thunderFile() {
    static const std::vector<uint8_t> bytes = [] {
        std::ifstream file(VELMORA_ASSETS "/sounds/Thunder2.wav", std::ios::binary);
        return std::vector<uint8_t>{std::istreambuf_iterator<char>(file), {}};
    }();
    return bytes;
}

const std::vector<int>& thunderSamples() {
    static const std::vector<int> samples = [] {
        std::vector<int> values;
        for (size_t i = headerSize; i + 1 < thunderFile().size(); i += 2)
            values.push_back(int16_t(thunderFile()[i] | thunderFile()[i + 1] << 8));
        return values;
    }();
    return samples;
}

using Span = std::span<const int>;

/// One of so many equal parts of the thunder, counted from 0.
Span part(size_t number, size_t count) {
    const size_t size = thunderSamples().size() / count;
    return Span(thunderSamples()).subspan(number * size, size);
}

double powerOf(Span samples) {
    double sum = 0;
    for (const int sample : samples) sum += double(sample) * sample;
    return sum / double(samples.size());
}

int peakOf(Span samples) {
    int peak = 0;
    for (const int sample : samples) peak = std::max(peak, std::abs(sample));
    return peak;
}

/// The power of the steps from sample to sample beside that of the samples: high for a hiss, low for a rumble.
double brightnessOf(Span samples) {
    std::vector<int> steps(samples.size());
    std::adjacent_difference(samples.begin(), samples.end(), steps.begin());
    return powerOf(Span(steps).subspan(1)) / powerOf(samples);
}

TEST(Thunder, isAWaveFileOf16BitsMonoAt22050) {
    constexpr std::array<uint8_t, 32> format = {'W', 'A', 'V', 'E', 'f', 'm', 't', ' ', 16,  0,    0,
                                                0,   1,   0,   1,   0,   34,  86,  0,   0,   0x44, 0xAC,
                                                0,   0,   2,   0,   16,  0,   'd', 'a', 't', 'a'};
    const std::vector<uint8_t>& file = thunderFile();
    ASSERT_GT(file.size(), headerSize);
    EXPECT_EQ(std::string(file.begin(), file.begin() + 4), "RIFF");
    EXPECT_TRUE(std::equal(format.begin(), format.end(), file.begin() + 8));
    const auto number = [&](size_t at) {
        return file[at] | file[at + 1] << 8 | file[at + 2] << 16 | file[at + 3] << 24;
    };
    EXPECT_EQ(size_t(number(4)), file.size() - 8);
    EXPECT_EQ(size_t(number(40)), file.size() - headerSize);
    EXPECT_GE(thunderSamples().size(), 3U * 22050);
    EXPECT_LE(thunderSamples().size(), 5U * 22050);
}

TEST(Thunder, isWhatItsGeneratorMakes) {
    EXPECT_TRUE(thunder::waveFile(thunder::makeSamples()) == thunderFile()) << "art/make makes another thunder";
}

TEST(Thunder, cracksAtOnceAndThenRumbles) {
    const Span all = thunderSamples();
    EXPECT_GT(peakOf(all.first(220)), 12000) << "no crack in the first hundredth of a second";
    EXPECT_GT(brightnessOf(part(0, 32)), 20 * brightnessOf(part(2, 8))) << "the crack is no sharper than what follows";
    EXPECT_LT(brightnessOf(part(1, 2)), 0.01) << "the rumble is not low";
}

TEST(Thunder, rollsAndDiesAway) {
    std::vector<double> powers;
    for (size_t i = 0; i < 64; ++i) powers.push_back(powerOf(part(i, 64)));
    const auto loudest = std::max_element(powers.begin(), powers.end()) - powers.begin();
    EXPECT_LT(loudest, 16);
    int swells = 0;
    for (size_t i = 2; i + 2 < powers.size(); ++i)
        if (powers[i] > 2 * powers[i - 2] && powers[i] > 100) ++swells;
    EXPECT_GE(swells, 4) << "one noise that only fades";
    for (size_t quarter = 1; quarter < 4; ++quarter)
        EXPECT_LT(2 * powerOf(part(quarter, 4)), powerOf(part(quarter - 1, 4))) << "quarter " << quarter + 1;
    EXPECT_LE(peakOf(part(63, 64)), 3) << "the end is a click";
}

TEST(Thunder, isLoudButNowhereClipped) {
    const int peak = peakOf(thunderSamples());
    EXPECT_GT(peak, 18000);
    EXPECT_LT(peak, 23000) << "no room for the music that plays on";
    int flat = 0;
    for (size_t i = 1; i < thunderSamples().size(); ++i)
        if (thunderSamples()[i] == thunderSamples()[i - 1] && std::abs(thunderSamples()[i]) > 12000) ++flat;
    EXPECT_LE(flat, 1);
}

}  // namespace
