#pragma once

#include <climits>
#include <cstddef>
#include <string>
#include <vector>

/// Stands between the program and the system's calls on one file, by their own names, and lets them fail as a disk
/// does. Calls on other files, and calls that the end of faultyDisk.cpp doesn't define, pass through.
namespace faultyDisk {

/// A call that was made.
struct Call {
    std::string name;
    size_t bytes = 0;  ///< That it was to read or write.
};

constexpr int nothing = -1;  ///< In place of an error: the call reads or writes no byte, and tells of no error.
constexpr int forGood = INT_MAX;

/// What befalls the calls from one of them on.
struct Fault {
    const char* what = "";   ///< In words, for a report.
    size_t call = 0;         ///< The first one, counted from 1.
    int error = 0;           ///< What it and those of its name behind it tell of; 0 for no error.
    int times = 1;           ///< How many of them do so.
    bool ofAnyName = false;  ///< Whether those of all other names do so too.
    bool isCut = false;      ///< The first one reads or writes `bytes` before the next one fails.
    size_t bytes = 0;
    bool isKilled = false;  ///< The process is killed before the call, or behind it if it is cut.
};

/// All that can befall a call that was made as the number-th one.
std::vector<Fault> faultsOf(const Call& call, size_t number);

/// From now on the calls on that file count, and these faults befall them.
void begin(const std::string& path, const std::vector<Fault>& faults);

/// Ends that. The calls that were made, in order.
std::vector<Call> end();

/// How many handles of the file the program has opened and not closed since the last beginning.
size_t openHandles();

}  // namespace faultyDisk
