// The simulated desktop's devices: sound, the printer, the help's viewer and the program's folder.

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <utility>

#include "platform/base/runtime.h"
#include "platform/desktop.h"
#include "platform/help.h"
#include "platform/printer.h"
#include "platform/shared/sequencer.h"
#include "platform/sim/state.h"
#include "platform/sound.h"

namespace sim {
namespace {

/// The last performance, if it is that one.
Music* musicOf(uint64_t performance) { return state().music.performance == performance ? &state().music : nullptr; }

/// Where the piece plays or stands, in milliseconds from its beginning.
double piecePosition() {
    const Music& music = state().music;
    return music.playing ? std::min(music.length, music.start + state().now - music.since) : music.start;
}

/// An empty folder that goes, with all that was put into it, when it isn't needed any more.
struct OwnFolder {
    OwnFolder() {
        if (::mkdtemp(path.data()) == nullptr) throw std::runtime_error("no folder can be made for the program");
    }
    ~OwnFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }

    std::string path = std::filesystem::temp_directory_path() / "velmora-XXXXXX";
};
std::optional<OwnFolder> ownFolder;

}  // namespace

void emptyProgramFolder() { ownFolder.reset(); }

void setPieceLength(double milliseconds) { state().music.length = milliseconds; }
void setSoundDevice(bool present) { state().music.device = present; }

bool pieceSounds() {
    const Music& music = state().music;
    return music.playing && music.device && piecePosition() < music.length;
}

const std::vector<std::vector<platform::PrintedLine>>& sheets() { return state().sheets; }

void breakPrinter(int line, bool atEnd) {
    state().printerFailsAtLine = line;
    state().printerFailsAtEnd = atEnd;
}

}  // namespace sim

namespace platform {
namespace sequencer {

using sim::Music;

bool canOpen(const std::string& /*file*/) { return sim::state().music.length > 0; }

uint64_t begin(const std::string& /*file*/) {
    Music& music = sim::state().music;
    ++music.performance;
    music.playing = false;
    music.start = 0;
    setPlaying(music.performance, true);
    return music.performance;
}

void setPlaying(uint64_t performance, bool playing) {
    Music* const music = sim::musicOf(performance);
    if (music == nullptr || music->playing == playing) return;
    music->start = sim::piecePosition();
    music->since = sim::state().now;
    music->playing = playing;
    if (!playing) sim::note("music stops at", music->start);
    if (sim::pieceSounds()) sim::note("music plays from", music->start);
}

State stateOf(uint64_t performance) {
    const Music* const music = sim::musicOf(performance);
    if (music == nullptr) return State::Ended;
    if (!music->device) return State::Failed;
    return sim::piecePosition() < music->length ? State::Going : State::Ended;
}

}  // namespace sequencer

bool sndPlaySoundA(const std::string& file, uint32_t flags) {
    sim::note("sound", std::filesystem::path(file).filename().string(), flags);
    return true;
}

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

void WinHelpA(Form& /*window*/, const std::string& file, uint32_t command, uint32_t /*data*/) {
    if (command == HELP_INDEX) sim::note("help", file);
}

std::string programFile(const std::string& name) {
    if (!sim::ownFolder) sim::ownFolder.emplace();
    return sim::ownFolder->path + "/" + name;
}

}  // namespace platform
