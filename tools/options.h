#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <sstream>
#include <stdexcept>
#include <string>

/// The options of the command line of a tool.
namespace tools {

/// What was asked for can't be done as it was written.
struct BadArguments : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// A whole number within those bounds; BadArguments for anything else.
template <class Number>
Number numberFrom(const std::string& option, const std::string& text, Number least, Number most) {
    std::istringstream in(text);
    int64_t value = 0;
    if (!(in >> value) || !in.eof() || value < int64_t{least} || value > int64_t{most})
        throw BadArguments(option + " takes a number from " + std::to_string(least) + " to " + std::to_string(most) +
                           ", not \"" + text + "\".");
    return static_cast<Number>(value);
}

/// An option and what it sets.
template <class Options>
struct OptionRow {
    const char* name;
    void (*set)(Options& options, const std::string& name, const std::string& value);
    bool takesValue = true;  ///< Else the value is empty.
};

/// Whether the usage is asked for, among whatever else.
inline bool asksForHelp(int count, char** arguments) {
    return std::any_of(arguments + 1, arguments + count,
                       [](const char* word) { return std::string(word) == "--help"; });
}

/// Sets all that is written there, one after the other; BadArguments for a name that no row has, or without its value.
template <class Options>
void readOptions(Options& options, std::span<const OptionRow<Options>> rows, int count, char** arguments) {
    for (int i = 1; i < count; ++i) {
        const std::string name = arguments[i];
        const auto row = std::ranges::find_if(rows, [&](const auto& candidate) { return name == candidate.name; });
        if (row == rows.end()) throw BadArguments("There is no option \"" + name + "\".");
        if (row->takesValue && i + 1 == count) throw BadArguments(name + " needs a value behind it.");
        row->set(options, name, row->takesValue ? arguments[++i] : "");
    }
}

}  // namespace tools
