#include "platform/qt/help/pieces.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace platform::qt {
namespace {

constexpr size_t section = 1000;                  // bytes of a piece, after which a heading begins the next one
constexpr size_t longSection = 2500;              // after which a paragraph does
constexpr size_t longestRun = 2500;               // bytes of lines without an empty one between them
constexpr const char* fences[] = {"```", "~~~"};  // above and below a block of code

/// What the lines of a list begin with.
constexpr std::string_view listed = " -*+0123456789";

/// The next line, with its end, or so much of it as a run may have; of a long one as many whole words as fit.
std::string_view lineAt(std::string_view text, size_t from) {
    const size_t length = std::min(text.find('\n', from), text.size() - 1) + 1 - from;
    std::string_view line = text.substr(from, std::min(length, longestRun));
    if (line.size() == length) return line;
    const size_t blank = line.rfind(' ');
    if (blank != std::string_view::npos && blank > 0) return line.substr(0, blank + 1);
    while (line.size() > 1 && (text[from + line.size()] & 0xC0) == 0x80) line.remove_suffix(1);  // whole characters
    return line;
}

/// Collects lines, and begins a new piece where one may or must begin.
class Cutter {
  public:
    void add(std::string_view line);
    std::vector<Piece> finished();

  private:
    bool mayBegin(std::string_view line) const;
    bool mustBegin(std::string_view line) const;
    void begin();
    void noteCells(std::string_view line);
    void noteFence(std::string_view line);

    std::vector<Piece> pieces_;
    std::string piece_;
    size_t columns_ = 0;  // of the table that the lines are in; 0 outside
    size_t cells_ = 0;    // of all tables so far
    std::string fence_;   // the line that has begun a block of code; empty outside
    size_t run_ = 0;      // bytes since the last empty line
};

bool Cutter::mayBegin(std::string_view line) const {
    if (!fence_.empty()) return false;
    if (line.front() == '#') return piece_.size() >= section;
    const bool paragraph = run_ == 0 && listed.find(line.front()) == std::string_view::npos;
    return paragraph && piece_.size() >= longSection;
}

bool Cutter::mustBegin(std::string_view line) const {
    return run_ + line.size() > longestRun || piece_.size() + line.size() > mostBytes;
}

void Cutter::begin() {
    pieces_.push_back({std::exchange(piece_, fence_), cells_ <= mostCells});
    run_ = 0;
    columns_ = 0;
}

void Cutter::add(std::string_view line) {
    if (!piece_.empty() && (mayBegin(line) || mustBegin(line))) begin();
    piece_ += line;
    const size_t first = line.find_first_not_of(" \t\r\n");
    run_ = first == std::string_view::npos ? 0 : run_ + line.size();
    noteCells(line);
    if (run_ > 0) noteFence(line.substr(first));
}

/// A table begins with the rule under its header. Every line is then a row, up to an empty one, and every row has all
/// columns.
void Cutter::noteCells(std::string_view line) {
    const bool rule = line.find_first_not_of("|:-> \t\r\n") == std::string_view::npos;
    const auto bars = static_cast<size_t>(std::ranges::count(line, '|'));
    if (run_ == 0) columns_ = 0;
    if (columns_ == 0 && rule && bars > 0) columns_ = bars + 1;
    cells_ += columns_;
}

void Cutter::noteFence(std::string_view line) {
    const auto begins = [&](std::string_view fence) { return line.starts_with(fence); };
    if (std::ranges::any_of(fences, begins)) fence_ = fence_.empty() ? line : "";
}

std::vector<Piece> Cutter::finished() {
    if (!piece_.empty()) begin();
    return std::move(pieces_);
}

}  // namespace

std::vector<Piece> piecesOf(const std::string& markdown) {
    Cutter cutter;
    for (size_t from = 0; from < markdown.size();) {
        const std::string_view line = lineAt(markdown, from);
        cutter.add(line);
        from += line.size();
    }
    return cutter.finished();
}

}  // namespace platform::qt
