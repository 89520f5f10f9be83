#pragma once

#include <string>
#include <vector>

namespace platform::qt {

constexpr size_t mostBytes = 6000;  ///< Of a piece.
constexpr size_t mostCells = 1000;  ///< Of tables in a text, which take long to lay out.

/// A part of a text.
struct Piece {
    std::string text;
    bool tables = true;  ///< Whether what looks like a table is one: not any more behind so many cells.
};

/// Cuts a Markdown text in UTF-8 into pieces that are shown one after the other, since Qt takes much more than twice as
/// long for a paragraph, a list or a table of twice the length. The cuts lie before headings, else between paragraphs;
/// one through a paragraph, a list or a table is made only in one that is longer than anybody would read.
std::vector<Piece> piecesOf(const std::string& markdown);

}  // namespace platform::qt
