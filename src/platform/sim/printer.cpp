#include "platform/printer.h"

#include <utility>

#include "platform/base/runtime.h"
#include "platform/sim/state.h"

void sim::breakPrinter(int line, bool atEnd) {
    state().printerFailsAtLine = line;
    state().printerFailsAtEnd = atEnd;
}

const std::vector<std::vector<platform::PrintedLine>>& sim::sheets() { return state().sheets; }

namespace platform {

Printer& printer() { return sim::state().printer; }

void Printer::print(const std::vector<ColumnText>& texts) {
    if (static_cast<int>(lines_.size()) + 1 == sim::state().printerFailsAtLine) failure::printerError();
    lines_.push_back({font, texts});
}

void Printer::endDoc() {
    auto lines = std::exchange(lines_, {});
    if (lines.empty()) return;
    if (sim::state().printerFailsAtEnd) failure::printerError();
    sim::note("sheet of", lines.size(), "lines");
    sim::state().sheets.push_back(std::move(lines));
}

}  // namespace platform
