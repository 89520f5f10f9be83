#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>

namespace wild {

/// What a run is to come to. The names of their numbers stand in main.cpp, in this order.
enum Sight : int {
    Matches,
    HandsWon,
    HandsLost,
    SeatDraws,
    Offers,
    BreakDowns,
    Summaries,
    NameDialogs,
    NamesEntered,
    HighScoreViews,
    RoundsSettings,
    OrderForms,
    SheetsPrinted,
    AboutBoxes,
    Helps,
    LevelMenus,
    MessageBoxes,
    Strikes,
    Absences,
    WholeScreens,
    ZoomChanges,
    OtherDensities,
    PicturesCompared,
    KeysAnswered,
    Exits,
    LastHands,
    sights
};

/// What an evening tells of itself, in memory that outlives it.
struct Ledger {
    static constexpr size_t lineLength = 120;
    static constexpr size_t linesKept = 24;

    std::atomic<uint64_t> beats;  ///< Grows as long as the window answers.
    uint64_t actions;
    std::array<uint64_t, sights> seen;
    size_t hands;                       ///< Of which the gains are known.
    std::array<ptrdiff_t, 4096> gains;  ///< Of memory, of hands in which the window stayed where it was; sorted.
    std::array<std::array<char, lineLength>, linesKept> last;  ///< What was done last, in a ring.
    std::array<char, 1000> finding;                            ///< Empty while there is none.
};

}  // namespace wild
