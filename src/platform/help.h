#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace platform {

class Form;

constexpr uint32_t HELP_QUIT = 2;   ///< Closes the help; the next opening begins anew.
constexpr uint32_t HELP_INDEX = 3;  ///< Opens the help, or brings it to the front.

/// Carries out a command of the help viewer; any other command does nothing, and the data isn't looked at. The viewer
/// is a window of its own, beside the one that it was opened for. It reads the file of that name in the program's folder
/// when it first opens, Markdown in UTF-8, or tells that there is no help text.
void WinHelpA(Form& window, const std::string& file, uint32_t command, uint32_t data);

/// A picture in the help text; rows from the top, a pixel as 0xAARRGGBB.
struct HelpPicture {
    int width = 0;                 ///< Pixels of the game's.
    int height = 0;                ///< The same.
    int density = 1;               ///< Real pixels for each of them, across and down.
    std::vector<uint32_t> pixels;  ///< The real ones.
};

/// Makes the picture that the help text asks for by that name; one of no size if there is none. Null at first: the text
/// has no pictures then.
inline HelpPicture (*makeHelpPicture)(const std::string& name) = nullptr;

}  // namespace platform
