#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "tools/selfplay/handWorth.h"

namespace selfplay {

/// Tiles side by side in a row of the board.
struct Window {
    int row;     ///< 1 at the top to 12.
    int column;  ///< Of the tile at the left, from 1.
    int tiles;   ///< 1 to 3.
    bool operator==(const Window&) const = default;
};

/// What a tick does to the table.
enum class Tick { Nothing, MatchEnds, HandEnds, Enters, Lands, Falls };

/// The referee's own count of a game, led by the rules and by what is done to the table, and by nothing else. It shares
/// neither code nor tables with the game, so that a fault there isn't made here as well.
class Books {
  public:
    static constexpr int tiles = 144, rows = 12, columns = 9, entry = 5, fullHand = 14, seats = 4;
    static constexpr int suitKinds = 9, lastSuited = 27, lastHonour = 34;  ///< Kinds.
    static constexpr int nowhere = -1;         ///< The row of the tile while none is on its way.
    static constexpr int droppingPace = 5;     ///< Milliseconds a row after the drop key.
    static constexpr size_t mostOffered = 11;  ///< Candidates of one offer.

    static int kindOf(int tile);  ///< The kind, 1 to 42, of a tile, 1 to 144.

    void beginMatch(int drawnSeat);
    void beginHand(uint32_t number, const std::array<int, tiles + 1>& newOrder);  ///< The order counts from 1.

    Tick beginTick();         ///< What is done before anything else can happen, and what kind of tick it is.
    void endTick(Tick tick);  ///< What is done after all that happened inside it; the hand is still the same.

    void steer(int step);  ///< A sideways key, -1 or 1.
    void drop();           ///< The drop key.
    bool steers() const;   ///< Whether the keys mean anything to the tile.

    void take(const Window& set);      ///< One of the offer. The next offer follows.
    void decline() { offer.clear(); }  ///< The offer.

    bool hasPair() const { return pairSlot > 0; }
    bool landsNext() const;  ///< The place below the tile is taken, or there is none.

    int version = 0;  ///< Grows whenever the order, the board or the tiles taken change.

    // The options, and how long a match lasts
    int level = 1;
    int roundsWanted = 4;
    bool breakDown = true, music = true, chinese = true, peek = false;

    // The match
    bool running = false;
    int64_t score = 0;
    int seat = 0, house = 0, wind = 0, houseMoves = 0, rounds = 0, games = 0, won = 0;

    // The hand
    uint32_t hand = 0;
    std::array<int, tiles + 1> order{};
    int drawn = 0;                                               ///< Tiles, from the order.
    std::array<std::array<int, columns + 1>, rows + 2> board{};  ///< Kinds by row and column; 0 where none lies.
    std::vector<int> earned;                                     ///< Kinds in their slots, 14 in the end.
    std::vector<int> bonus;                                      ///< Kinds of single tiles, in the order of taking.
    int pairSlot = 0;                                            ///< From 1; 0 without a pair.
    HandWorth worth;                                             ///< Once the hand is complete.

    // The tile
    int row = 0, column = 0, tile = 0;
    int pace = 500;        ///< Milliseconds between two ticks.
    bool dropped = false;  ///< By the drop key.
    bool falls = false;    ///< The timer ticks.
    bool busy = false;     ///< A tick is at work, or the match has ended.
    bool landing = false;  ///< It lies on the board, and what it completes is offered.
    std::vector<Window> offer;

  private:
    bool isSet(const Window& window) const;
    void findSets(int lowest, int highest, int left, int right);
    void land();
    void endHand();
    void addSet(const Window& set);
    void completeHand();

    std::vector<WonHand::Set> sets_;  ///< Taken, without the pair.
};

}  // namespace selfplay
