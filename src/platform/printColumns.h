#pragma once

#include <string>
#include <vector>

#include "platform/printer.h"

namespace platform {

/// The lines that texts make on paper, a character for each column from 1 on. `charactersOf` turns a text into the
/// characters that stand for it.
template <class CharactersOf>
std::vector<std::u32string> linesInColumns(const std::vector<ColumnText>& texts, CharactersOf charactersOf) {
    std::vector<std::u32string> lines(1);
    for (const ColumnText& text : texts) {
        const auto before = static_cast<size_t>(text.column - 1);
        if (lines.back().size() > before) lines.emplace_back();
        lines.back().resize(before, U' ');
        lines.back() += charactersOf(text.text);
    }
    return lines;
}

}  // namespace platform
