#pragma once

#include <optional>
#include <string>

/// What the program says, instead of opening its window, to the words behind its name.
struct Answer {
    std::string text;
    int exitCode = 0;  ///< 0 for what was asked for, 2 for words that the program doesn't know.
};

/// What a command line asks for.
struct CommandLine {
    std::optional<Answer> answer;  ///< None if the game is to be played.
    double zoom = 0;               ///< At its start, in quarters from 1 on; 0 for one that suits the screen.
};

/// What a command line of so many words asks for, the program's name first.
CommandLine read(int argc, const char* const* argv);
