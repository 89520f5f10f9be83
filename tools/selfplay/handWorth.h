#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

namespace selfplay {

/// A won hand as a set of kinds, numbered 1 to 42 as the tiles are.
struct WonHand {
    struct Set {
        int lowestKind;
        bool trio;  ///< Else a sequence from the lowest kind upward.
    };
    std::array<Set, 4> sets;  ///< In the order of taking.
    int pairKind;
    std::vector<int> bonusKinds;  ///< Single seasons and flowers, in the order of taking.
    int house, seat, wind;        ///< 1 to 4: the seat of the House, the player's seat, the wind of the round.
    int level;                    ///< 1 to 5.
};

/// What a hand is worth: its items in the order in which the game lists them, their doubles together, its points.
struct HandWorth {
    struct Item {
        std::string_view text;
        int doubles;
    };
    std::vector<Item> items;
    int doubles = 0;
    int32_t points = 0;
};

/// Counts a won hand from its kinds alone, apart from the game's own tally.
HandWorth handWorth(const WonHand& hand);

}  // namespace selfplay
