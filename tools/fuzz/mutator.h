#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace fuzz {

/// Makes inputs that are damaged in a few places, or random altogether; the same ones for the same seed.
class Mutator {
  public:
    /// The models are what is damaged, one at least; the words are what the reader looks for.
    Mutator(uint64_t seed, const std::vector<std::string>& models, const std::vector<std::string_view>& words);

    std::string make();

  private:
    size_t below(size_t end) { return std::uniform_int_distribution<size_t>(0, end - 1)(random_); }
    std::string noise();
    std::string number();
    void damage(std::string& input);

    std::mt19937_64 random_;
    const std::vector<std::string>& models_;
    const std::vector<std::string_view>& words_;
};

}  // namespace fuzz
