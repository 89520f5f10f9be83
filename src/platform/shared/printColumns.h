#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "platform/printer.h"

namespace platform {

/// The lines that texts make on paper of so many columns, a character for each column from 1 on. `charactersOf` turns a
/// text into the characters that stand for it.
template <class CharactersOf>
std::vector<std::u32string> linesInColumns(const std::vector<ColumnText>& texts, size_t columns,
                                           CharactersOf charactersOf) {
    std::vector<std::u32string> lines(1);
    size_t begin = 0;  // of the last text that has a column
    for (const ColumnText& text : texts) {
        const std::u32string characters = charactersOf(text.text);
        const size_t length = characters.find_last_not_of(U' ') + 1;  // Blanks at the end need no room.
        const bool isBehind = text.column == columnBehind;
        if (!isBehind) begin = static_cast<size_t>(text.column - 1);
        const size_t have = lines.back().size();
        const bool hasRoom = isBehind ? length == 0 || have + length <= columns : have <= begin;
        if (!hasRoom) lines.emplace_back();
        lines.back().resize(std::max(begin, lines.back().size()), U' ');
        lines.back() += characters;
    }
    return lines;
}

}  // namespace platform
