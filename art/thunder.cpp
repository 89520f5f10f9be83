#include "thunder.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>

namespace thunder {

namespace {

constexpr int length = sampleRate * 43 / 10;
constexpr int loudest = 22000;  // of what a sample can be, 32767

/// White noise from a shift register, -32768 to 32767.
class Noise {
  public:
    explicit Noise(uint32_t seed) : state(seed) {}
    int next() {
        state ^= state << 13;
        state ^= state >> 17;
        state ^= state << 5;
        return int(state >> 16) - 32768;
    }

  private:
    uint32_t state;
};

/// Lets pass what is slower than a corner, 12 decibels an octave; a smaller share of 4096 is a lower corner.
class LowPass {
  public:
    int64_t next(int64_t value, int share) {
        first += (value * 256 - first) * share / 4096;
        second += (first - second) * share / 4096;
        return second / 256;
    }

  private:
    int64_t first = 0;
    int64_t second = 0;
};

/// One part of the thunder: noise below a corner that sinks while the part dies away.
struct Clap {
    int start;         ///< Milliseconds from the beginning.
    int rise;          ///< Milliseconds to its loudest moment.
    int half;          ///< Milliseconds in which it then falls to a half.
    int loudness;      ///< 1000 is the loudest.
    int bright, dull;  ///< Corner at its start and after four halvings, shares of 4096.
};

// The near end of the bolt is heard first, sharp and in splinters; what comes from higher up has lost its edge on the
// way, and is spread over a longer time.
constexpr std::array claps = {
    Clap{0, 1, 26, 1000, 3000, 700},    Clap{38, 1, 22, 620, 2400, 600},    Clap{81, 2, 34, 760, 1900, 460},
    Clap{150, 3, 60, 520, 1300, 300},   Clap{230, 30, 150, 720, 420, 130},  Clap{520, 70, 170, 640, 300, 100},
    Clap{840, 90, 210, 560, 240, 84},   Clap{1010, 25, 70, 250, 520, 200},  Clap{1330, 120, 240, 460, 190, 72},
    Clap{1800, 150, 260, 350, 160, 64}, Clap{2290, 160, 280, 250, 140, 56}, Clap{2830, 190, 300, 160, 120, 50},
};

constexpr int samplesOf(int milliseconds) { return milliseconds * sampleRate / 1000; }

/// How loud a clap is a while after its start, 0 to 65536; between two halvings it falls in a straight line.
int64_t envelope(const Clap& clap, int time) {
    const int rise = samplesOf(clap.rise);
    if (time < rise) return 65536LL * time / rise;
    const int half = samplesOf(clap.half);
    const int halvings = (time - rise) / half;
    if (halvings > 14) return 0;
    const int64_t above = 65536LL >> halvings;
    return above - above / 2 * ((time - rise) % half) / half;
}

int cornerOf(const Clap& clap, int time) {
    const int fall = samplesOf(4 * clap.half);
    return clap.bright + (clap.dull - clap.bright) * std::min(time, fall) / fall;
}

using Wave = std::vector<int64_t>;

/// Makes the wave as loud as told at its loudest sample.
void scaleTo(Wave& wave, int64_t wanted) {
    int64_t peak = 1;
    for (const int64_t value : wave) peak = std::max(peak, std::abs(value));
    for (int64_t& value : wave) value = value * wanted / peak;
}

Wave waveOf(const Clap& clap, uint32_t seed) {
    const int start = samplesOf(clap.start);
    Noise noise(seed);
    LowPass air;
    Wave wave(length - start);
    for (int time = 0; time < length - start; ++time)
        wave[time] = air.next(noise.next(), cornerOf(clap, time)) * envelope(clap, time) / 4096;
    scaleTo(wave, 1000 * clap.loudness);
    return wave;
}

/// A loudspeaker can't follow a pressure that stays: takes away what is slower than about 30 a second.
void takeAwayDrift(Wave& wave) {
    int64_t drift = 0;
    for (int64_t& value : wave) {
        drift += (value * 256 - drift) / 116;
        value -= drift / 256;
    }
}

/// The last moments go down to nothing, so that the end is no click.
void fadeOut(Wave& wave) {
    const int fade = samplesOf(900);
    for (int left = 0; left < fade; ++left) {
        int64_t& value = wave[length - 1 - left];
        value = value * left / fade * left / fade;
    }
}

}  // namespace

std::vector<int16_t> makeSamples() {
    Wave sum(length);
    for (size_t i = 0; i < claps.size(); ++i) {
        const Wave wave = waveOf(claps[i], 2463534242U + 7919U * uint32_t(i));
        const size_t start = sum.size() - wave.size();
        for (size_t time = 0; time < wave.size(); ++time) sum[start + time] += wave[time];
    }
    takeAwayDrift(sum);
    fadeOut(sum);
    scaleTo(sum, loudest);
    return {sum.begin(), sum.end()};
}

std::vector<uint8_t> waveFile(const std::vector<int16_t>& samples) {
    std::vector<uint8_t> bytes;
    bytes.reserve(44 + 2 * samples.size());
    const auto word = [&](const std::string& letters) {
        for (const char letter : letters) bytes.push_back(uint8_t(letter));
    };
    const auto number = [&](uint32_t value, int size) {
        for (int i = 0; i < size; ++i) bytes.push_back(uint8_t(value >> 8 * i));
    };
    const uint32_t dataSize = uint32_t(2 * samples.size());
    word("RIFF"), number(36 + dataSize, 4), word("WAVE");
    word("fmt "), number(16, 4), number(1, 2), number(1, 2);
    number(sampleRate, 4), number(2 * sampleRate, 4), number(2, 2), number(16, 2);
    word("data"), number(dataSize, 4);
    for (const int16_t sample : samples) number(uint16_t(sample), 2);
    return bytes;
}

}  // namespace thunder
