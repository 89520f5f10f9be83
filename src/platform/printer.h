#pragma once

#include <string>
#include <vector>

#include "platform/surface.h"

namespace platform {

/// In place of a column: directly behind the text before, or below its beginning where the paper has no room there.
constexpr int columnBehind = 0;

/// A text and the column where it begins, counted from 1 in widths of the font's characters.
struct ColumnText {
    int column = 1;    ///< Or columnBehind.
    std::string text;  ///< UTF-8.
};

/// A line of print and what it is printed in.
struct PrintedLine {
    Font font;
    std::vector<ColumnText> texts;
};

/// The desktop's default printer. The page is a run of lines from the top, each as high as its font; a line that is too
/// long for the paper is cut, and lines that find no room go on to another page.
class Printer {
  public:
    Font font;  ///< Of the lines to come; it should be one whose characters are all of one width.

    /// Prints a line, one character a column; one that the font lacks is replaced. A text whose column has been passed
    /// goes to that column of the next line. Fails with number 482 if the printer does.
    void print(const std::vector<ColumnText>& texts);

    /// Sends what has been printed to the printer, or nothing if that is nothing, and begins anew, also on a failure:
    /// number 482 if the printer fails. With no printer set up the sheet becomes a file in the user's documents folder,
    /// whose place is told in a message box; if it can't be written, that fails as files do, with number 61, 70 or 75.
    /// Forms take no key and no click until it returns; events are served meanwhile.
    void endDoc();

  private:
    std::vector<PrintedLine> lines_;  // of the document that has begun
};

/// The one printer of the program.
Printer& printer();

}  // namespace platform
