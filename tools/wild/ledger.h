#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <iterator>

namespace wild {

/// What a run is to come to.
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

struct SightRow {
    Sight sight;
    const char* name;  ///< Of its number.
};

constexpr SightRow sightRows[] = {
    {Matches, "matches"},
    {HandsWon, "hands won"},
    {HandsLost, "hands lost"},
    {SeatDraws, "draws of seats"},
    {Offers, "offers"},
    {BreakDowns, "break-downs"},
    {Summaries, "summaries"},
    {NameDialogs, "name dialogs"},
    {NamesEntered, "names entered"},
    {HighScoreViews, "views of the high scores"},
    {RoundsSettings, "settings of the rounds"},
    {OrderForms, "order forms"},
    {SheetsPrinted, "sheets printed"},
    {AboutBoxes, "about boxes"},
    {Helps, "helps"},
    {LevelMenus, "menus of Levels"},
    {MessageBoxes, "message boxes"},
    {Strikes, "strikes of lightning"},
    {Absences, "absences"},
    {WholeScreens, "whole screens"},
    {ZoomChanges, "changes of zoom"},
    {OtherDensities, "other densities"},
    {PicturesCompared, "pictures compared"},
    {KeysAnswered, "keys answered"},
    {Exits, "ends"},
    {LastHands, "last hands"},
};

/// True if every sight has its row, and the rows stand in the order of the sights.
constexpr bool sightsInOrder() {
    for (int i = 0; i < sights; ++i)
        if (sightRows[i].sight != i) return false;
    return std::size(sightRows) == sights;
}
static_assert(sightsInOrder());

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
