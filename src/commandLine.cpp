#include "commandLine.h"

#include <charconv>
#include <cmath>
#include <string_view>
#include <system_error>

#include "product.h"

namespace {

constexpr const char* usage = "Usage: velmora [--zoom N | --help | --version]\n";
constexpr const char* zoomUsage = "velmora: The zoom is a number from 1 to 8 in steps of a quarter, such as 1.5.\n";
constexpr double largestZoom = 8, stepsInOne = 4;

constexpr const char* help = R"(
A mahjong game of falling tiles. Press Start Anew, the first button of the
toolbar, or F2 to begin; Help, the button with the question mark, or F1 tells
the rules.

Keys in play
  Left, Right    steer the falling tile
  Down           drop it; the sets that it completes count double
  P, Pause       stop the fall, and let it go on
  F2             begin a match
  F1             open the help
  F10            go to the toolbar: Left and Right move along it, Enter presses
                 a button, Esc goes back to the board
  Ctrl with + - 0 or the wheel
                 show everything larger, smaller, or as at the start
  F11            fill the screen, and give it back, as Esc does then

Keys in the tile chooser and in the draw of seats
  arrow keys     move the highlight
  Enter          take what is highlighted; a click draws a seat as well

4, 6, 2 and 8 of the number pad are arrow keys too. Enter or Esc closes the
break-down, the summary, the high scores and the about box, and so does a click.

Options
  --zoom N       begin so many times as large as at the smallest, such as 1.5,
                 as far as the screen goes
  --help         show this text and end
  --version      show the version and end
)";

std::optional<double> zoomOf(std::string_view word) {
    double zoom = 0;
    const char* const end = word.data() + word.size();
    const auto [rest, failure] = std::from_chars(word.data(), end, zoom, std::chars_format::fixed);
    const bool isNumber = failure == std::errc() && rest == end;
    const bool isZoom = zoom >= 1 && zoom <= largestZoom && std::floor(zoom * stepsInOne) == zoom * stepsInOne;
    return isNumber && isZoom ? std::optional(zoom) : std::nullopt;
}

}  // namespace

CommandLine read(int argc, const char* const* argv) {
    if (argc <= 1) return {};
    const std::string_view word = argv[1];
    if (argc == 2 && word == "--help") return {Answer{std::string(usage) + help, 0}};
    if (argc == 2 && word == "--version") return {Answer{PRODUCT_NAME " " PRODUCT_VERSION "\n", 0}};
    if (argc != 3 || word != "--zoom") return {Answer{usage, 2}};
    if (const auto zoom = zoomOf(argv[2])) return {std::nullopt, *zoom};
    return {Answer{zoomUsage, 2}};
}
