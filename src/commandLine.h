#pragma once

#include <optional>
#include <string>

/// What the program says, instead of opening its window, to the words behind its name.
struct Answer {
    std::string text;
    int exitCode = 0;  ///< 0 for what was asked for, 2 for words that the program doesn't know.
};

/// The answer to a command line of so many words, the program's name first; none if the game is to be played.
std::optional<Answer> answerTo(int argc, const char* const* argv);
