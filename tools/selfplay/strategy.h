#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "play/model.h"

namespace selfplay {

/// The board as nine stacks of kinds: level 0 is the bottom row, column 0 the left one; kind 0 above a stack.
struct Stacks {
    std::array<uint8_t, columnCount> height{};
    std::array<std::array<uint8_t, columnCount>, bottomRow> kind{};

    /// Puts a tile on top of a column that isn't full.
    void drop(int column, int tileKind);
    /// Takes adjacent tiles of one level out; what stands on them sinks by one.
    void remove(int level, int column, int tiles);
};

/// What is on the table for the rest of the hand.
struct Holding {
    Stacks stacks;
    int handTiles = 0;       ///< Tiles taken that count towards the 14.
    bool pairTaken = false;  ///< The hand has its pair.
};

/// Copies of each kind, by its number from 1, that have not fallen yet.
using Unseen = std::array<int8_t, kindCount + 1>;

/// A set that can be taken: its level, its left column and its 1 to 3 tiles.
struct Candidate {
    int8_t level, column, tiles;
};

/// The judgement of the built-in player: values what the board may still become, and picks the best move.
class Strategy {
  public:
    Strategy(const Holding& holding, const Unseen& unseen);

    /// The column, from 0, on which to drop a tile that now hangs at that level over the column `from`. Only columns
    /// that the tile can reach sideways come into question.
    int bestColumn(int kind, int from, int level) const;

    /// The index of the candidate to take; the number of candidates to pass.
    size_t bestCandidate(std::span<const Candidate> candidates) const;

  private:
    using Chances = std::array<std::array<int, setTiles>, kindCount + 1>;

    int chanceOfRun(int kind, int firstStep, int secondStep) const;
    void findChances();
    int valueOfLevel(const Holding& holding, int level) const;
    int valueOfWindow(const Stacks& stacks, int level, int column) const;
    int valueOfPairs(const Stacks& stacks, int level) const;
    int value(const Holding& holding) const;
    int valueAfterTaking(const Holding& holding, const Candidate& candidate) const;
    int valueAtBest(const Holding& holding, std::span<const Candidate> candidates) const;
    int valueAfterDrop(int kind, int column) const;

    const Holding& holding_;
    const Unseen& unseen_;
    Chances chances_{};  ///< By kind and place in a window: ways in which a single tile may grow to a sequence.
};

}  // namespace selfplay
