#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <sstream>
#include <stdexcept>
#include <string>
#include <type_traits>

/// The options of the command line of a tool.
namespace tools {

/// What was asked for can't be done as it was written.
struct BadArguments : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// An option and what it sets.
template <class Options>
struct OptionRow {
    const char* name;
    void (*set)(Options& options, const std::string& name, const std::string& value);
    bool takesValue = true;  ///< Else the value is empty.
};

constexpr int many = 1'000'000'000;  ///< More than anybody asks for.

/// Sets a member to a whole number within those bounds; BadArguments for anything else.
template <auto member, int64_t least, int64_t most, class Options>
void setNumber(Options& options, const std::string& name, const std::string& value) {
    std::istringstream in(value);
    int64_t number = 0;
    if (!(in >> number) || !in.eof() || number < least || number > most)
        throw BadArguments(name + " takes a number from " + std::to_string(least) + " to " + std::to_string(most) +
                           ", not \"" + value + "\".");
    options.*member = static_cast<std::remove_reference_t<decltype(options.*member)>>(number);
}

/// Sets a member to the value as it is written.
template <auto member, class Options>
void setText(Options& options, const std::string& /*name*/, const std::string& value) {
    options.*member = value;
}

/// Sets a member to what the option alone stands for.
template <auto member, bool meaning, class Options>
void setFlag(Options& options, const std::string& /*name*/, const std::string& /*value*/) {
    options.*member = meaning;
}

/// Whether the usage is asked for, among whatever else.
inline bool asksForHelp(int count, char** arguments) {
    return std::find(arguments + 1, arguments + count, std::string("--help")) != arguments + count;
}

/// What is written there, each option set one after the other; BadArguments for a name that no row has, or without its
/// value.
template <class Options>
Options readOptions(std::span<const OptionRow<Options>> rows, int count, char** arguments) {
    Options options;
    for (int i = 1; i < count; ++i) {
        const std::string name = arguments[i];
        const auto row = std::ranges::find_if(rows, [&](const auto& candidate) { return name == candidate.name; });
        if (row == rows.end()) throw BadArguments("There is no option \"" + name + "\".");
        if (row->takesValue && i + 1 == count) throw BadArguments(name + " needs a value behind it.");
        row->set(options, name, row->takesValue ? arguments[++i] : "");
    }
    return options;
}

}  // namespace tools
