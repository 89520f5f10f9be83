#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/printer.h"

namespace platform::qt {

// What the program and its module for printing tell each other.

constexpr const char* printModule = "velmora_print.so";
constexpr const char* printEntry = "velmoraPrint";

/// A sheet to be printed.
struct PrintJob {
    std::string name;                ///< What people read in the list of jobs, and the beginning of a file's name.
    std::vector<PrintedLine> lines;  ///< Their fonts have names that the desktop knows.
};

/// How it ended.
struct PrintOutcome {
    std::string file;         ///< Where the sheet lies if no printer is set up; else empty.
    int32_t failure = 0;      ///< The number of what went wrong; 0 if nothing did.
    std::string description;  ///< Of the failure.
};

/// The module's entry point. It takes as long as the print service does, and any thread may call it. Never throws.
using PrintEntry = PrintOutcome(const PrintJob& job);

}  // namespace platform::qt
