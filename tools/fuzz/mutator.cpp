#include "tools/fuzz/mutator.h"

#include <algorithm>

namespace fuzz {
namespace {

constexpr size_t longestNoise = 200;   // bytes
constexpr size_t longestRepeat = 400;  // times
constexpr size_t mostDamages = 8;      // in an input; one of two has one or none

/// Keeps the length, since many readers turn down what isn't as long as it says.
void overwrite(std::string& input, size_t from, std::string_view bytes) {
    const size_t length = std::min(input.size() - from, bytes.size());
    input.replace(from, length, bytes.substr(0, length));
}

}  // namespace

Mutator::Mutator(uint64_t seed, const std::vector<std::string>& models, const std::vector<std::string_view>& words)
    : random_(seed), models_(models), words_(words) {}

std::string Mutator::make() {
    constexpr size_t oneInSo = 16;
    if (below(oneInSo) == 0) return noise();
    std::string input = models_[below(models_.size())];
    for (size_t damages = below(2) == 0 ? below(2) : below(mostDamages + 1); damages > 0; --damages) damage(input);
    return input;
}

std::string Mutator::noise() {
    std::string bytes(below(longestNoise), '\0');
    for (char& byte : bytes) byte = static_cast<char>(below(0x100));
    return bytes;
}

/// Bytes that readers trip over as a number: nothing, the least, the largest, one below.
std::string Mutator::number() {
    std::string bytes(size_t{1} << below(3), below(2) == 0 ? '\0' : '\xFF');
    if (below(2) == 0) bytes[below(2) == 0 ? 0 : bytes.size() - 1] ^= static_cast<char>(1 << below(8));
    return bytes;
}

void Mutator::damage(std::string& input) {
    const size_t from = below(input.size() + 1), length = below(std::min(input.size() - from, longestNoise) + 1);
    const std::string part = input.substr(from, length);
    const std::string_view word = words_[below(words_.size())];
    const std::string& other = models_[below(models_.size())];
    const size_t otherFrom = below(other.size() + 1);
    switch (below(9)) {
        case 0:
            if (from < input.size()) input[from] ^= static_cast<char>(1 << below(8));
            break;
        case 1:
            overwrite(input, from, number());
            break;
        case 2:
            input.insert(from, word);
            break;
        case 3:
            overwrite(input, from, word);
            break;
        case 4:
            input.erase(from, length);
            break;
        case 5:
            input.resize(from);
            break;
        case 6:
            for (size_t times = below(longestRepeat); times > 0; --times) input.insert(from, length < 4 ? word : part);
            break;
        case 7:
            overwrite(input, from, noise());
            break;
        default:
            input.insert(from, other, otherFrom, below(longestNoise));
            break;
    }
}

}  // namespace fuzz
