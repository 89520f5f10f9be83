#include "platform/printer.h"

#include <utility>

#include "platform/printColumns.h"
#include "platform/runtime.h"
#include "platform/sim/state.h"
#include "platform/utf8.h"

namespace sim {
namespace {

constexpr char32_t firstLetter = U' ', lastLetter = U'~';
constexpr size_t paperColumns = 66;  // of a font of 14 points on A4

/// The printer's font has the letters of ASCII and no others.
std::u32string charactersOf(const std::string& text) {
    std::u32string characters;
    for (size_t at = 0; at < text.size();) {
        const char32_t character = platform::nextCharacter(text, at);
        characters += character >= firstLetter && character <= lastLetter ? character : U'?';
    }
    return characters;
}

}  // namespace

void breakPrinter(int line, bool atEnd) {
    state().printerFailsAtLine = line;
    state().printerFailsAtEnd = atEnd;
}

const std::vector<Sheet>& sheets() { return state().sheets; }

}  // namespace sim

namespace platform {

Printer& printer() { return sim::state().printer; }

void Printer::print(const std::vector<ColumnText>& texts) {
    if (static_cast<int>(lines_.size()) + 1 == sim::state().printerFailsAtLine) failure::printerError();
    lines_.push_back({font, texts});
}

void Printer::endDoc() {
    const auto lines = std::exchange(lines_, {});
    if (lines.empty()) return;
    if (sim::state().printerFailsAtEnd) failure::printerError();
    sim::Sheet sheet;
    for (const PrintedLine& line : lines)
        for (const std::u32string& characters : linesInColumns(line.texts, sim::paperColumns, sim::charactersOf))
            sheet.push_back({std::string(characters.begin(), characters.end()), line.font});
    sim::note("sheet of", sheet.size(), "lines");
    sim::state().sheets.push_back(std::move(sheet));
}

}  // namespace platform
