#pragma once

#include <algorithm>
#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string_view>

namespace wild {

/// What a run is to come to.
constexpr const char* sights[] = {
    "matches",
    "hands won",
    "hands lost",
    "draws of seats",
    "offers",
    "break-downs",
    "summaries",
    "name dialogs",
    "names entered",
    "views of the high scores",
    "settings of the rounds",
    "order forms",
    "sheets printed",
    "about boxes",
    "helps",
    "menus of Levels",
    "message boxes",
    "strikes of lightning",
    "absences",
    "whole screens",
    "changes of zoom",
    "other densities",
    "pictures compared",
    "keys answered",
    "ends",
    "last hands",
};

/// One of them, by its name in the list; another name doesn't compile.
struct Sight {
    consteval Sight(const char* name) : place(std::ranges::find(sights, std::string_view(name)) - sights) {
        if (place == std::size(sights)) throw name;
    }

    bool operator==(const Sight&) const = default;

    size_t place;  ///< In the list.
};

/// What an evening tells of itself, in memory that outlives it.
struct Ledger {
    static constexpr size_t lineLength = 120;
    static constexpr size_t linesKept = 24;

    uint64_t& count(Sight sight) { return seen[sight.place]; }  ///< How often it has been seen.

    std::atomic<uint64_t> beats;  ///< Grows as long as the window answers.
    uint64_t actions;
    std::array<uint64_t, std::size(sights)> seen;
    size_t hands;                       ///< Of which the gains are known.
    std::array<ptrdiff_t, 4096> gains;  ///< Of memory, of hands in which the window stayed where it was; sorted.
    std::array<std::array<char, lineLength>, linesKept> last;  ///< What was done last, in a ring.
    std::array<char, 1000> finding;                            ///< Empty while there is none.
};

}  // namespace wild
