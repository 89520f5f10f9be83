#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace fuzz {

/// What a reader has made of its input isn't true.
struct Objection : std::logic_error {
    using std::logic_error::logic_error;
};

inline void require(bool holds, const char* what) {
    if (!holds) throw Objection(what);
}

/// Something of the program that reads what comes from outside.
struct Target {
    const char* name;
    int runs;                              ///< Of a short run.
    std::vector<std::string> (*models)();  ///< Inputs that are as they should be.
    std::vector<std::string_view> words;
    bool (*take)(const std::string& input);  ///< Has it read; false if that was turned down. Throws an Objection.
};

extern const std::vector<Target> targets;

// The readers. What each input is stands with its function.
bool takeScores(const std::string& file);
bool takeCommandLine(const std::string& lines);
bool takeHelp(const std::string& file);
bool takeName(const std::string& script);
bool takeOrder(const std::string& script);
bool takePiece(const std::string& file);
bool takeThunder(const std::string& file);

/// The bytes of a file; none if it can't be read.
std::string contentsOf(const std::string& path);

/// The bytes of a file that comes with the game, by its name in the folder assets.
std::string asset(const std::string& name);

/// Lays an input for a reader beside the program, and returns its path.
std::string laid(const std::string& name, const std::string& bytes);

}  // namespace fuzz
