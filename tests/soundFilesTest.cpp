#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <vector>

#include "art/thunder.h"

namespace {

TEST(Thunder, isWhatItsGeneratorMakes) {
    std::ifstream file(VELMORA_ASSETS "/sounds/Thunder2.wav", std::ios::binary);
    const std::vector<uint8_t> bytes{std::istreambuf_iterator<char>(file), {}};
    EXPECT_TRUE(thunder::waveFile(thunder::makeSamples()) == bytes) << "art/make makes another thunder";
}

}  // namespace
