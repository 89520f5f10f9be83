#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>

#include "play/model.h"
#include "tools/selfplay/player.h"

namespace selfplay {

struct HandReport;

/// The built-in players by name.
struct PlayerRow {
    const char* name;
    Player::Manner manner;
};

inline constexpr PlayerRow players[] = {
    {"strong", {}},
    {"stubborn", {.stubborn = 100}},
    {"hesitant", {.passing = 70}},
    {"careless", {.careless = 50, .passing = 30}},
    {"aimless", {.aimless = 100}},
};
constexpr int strongPlayers = 2;  ///< The first of them: they win most hands.

/// What has come of all hands that were played.
class Results {
  public:
    void note(const PlayerRow& player, const HandReport& hand);  ///< One of the table's players.

    void summarize() const;  ///< In one line of the standard output.
    void showTable() const;  ///< As the README has it.

    int hands = 0;
    int matches = 0;

  private:
    static constexpr int mostDoubles = 9;  ///< And more.

    struct Hands {
        int64_t played = 0, won = 0;
    };

    double handsASecond() const;  ///< Of the processor's time.
    void showPlayers() const;
    void showDoubles() const;

    std::array<std::array<Hands, levelCount>, std::size(players)> byPlayer_{};
    std::array<int64_t, mostDoubles + 1> byDoubles_{};  ///< Of won hands.
    int64_t points_ = 0;                                ///< Of won hands, without those of their sets.
    int won_ = 0;
};

}  // namespace selfplay
