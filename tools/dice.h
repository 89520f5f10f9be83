#pragma once

#include <cstdint>
#include <iterator>
#include <random>

namespace tools {

/// All that is left to chance, the same for the same seed on every machine.
class Dice {
  public:
    explicit Dice(uint32_t seed) : source_(seed) {}

    int below(int count) { return static_cast<int>(source_() % static_cast<uint32_t>(count)); }  ///< From 0.
    int between(int least, int most) { return least + below(most - least + 1); }
    bool oneIn(int times) { return below(times) == 0; }

    /// One of a list that isn't empty, all as often.
    template <class List>
    decltype(auto) oneOf(const List& list) {
        return *std::next(std::begin(list), below(static_cast<int>(std::size(list))));
    }

    /// One of the rows, each as often as its weight says.
    template <class Row, size_t Count>
    const Row& oneByWeight(const Row (&rows)[Count]) {
        int all = 0;
        for (const Row& row : rows) all += row.weight;
        int left = below(all);
        const Row* row = rows;
        while (left >= row->weight) left -= row++->weight;
        return *row;
    }

  private:
    std::mt19937 source_;
};

}  // namespace tools
