#include "tools/selfplay/album.h"

#include <filesystem>

#include "frmMain.h"
#include "match/frmChooseSeat.h"
#include "match/frmGameSummary.h"
#include "platform/sim/simulation.h"
#include "play/frmChooseTiles.h"
#include "scoring/frmBreakDown.h"
#include "tools/png.h"

namespace selfplay {
namespace {

struct Moment {
    const char* name;
    bool (*hasCome)(const frmMain& game);
};

constexpr int wellOnItsWay = 6;   // the row of a tile in mid-air
constexpr int wellIntoAHand = 8;  // hand tiles
constexpr int oneOffer = 2;       // entries of a chooser: the offer and Pass

constexpr Moment moments[] = {
    {"01-seat-draw.png", [](const frmMain&) { return gfrmChooseSeat.isOpen(); }},
    {"02-first-tile.png", [](const frmMain& game) { return game.mintTilesDropped == 1 && game.mintCurRow == 1; }},
    {"03-tile-chooser.png",
     [](const frmMain&) { return gfrmChooseTiles.isOpen() && gfrmChooseTiles->mintNumEntries > oneOffer; }},
    {"04-in-play.png",
     [](const frmMain& game) {
         return game.mintHandCount >= wellIntoAHand && game.mintCurRow == wellOnItsWay && sim::modalDepth() == 0;
     }},
    {"05-break-down.png", [](const frmMain&) { return gfrmBreakDown.isOpen(); }},
    {"06-match-end.png", [](const frmMain&) { return gfrmGameSummary.isOpen(); }},
};

}  // namespace

Album::Album(const std::string& folder) : folder_(folder), seen_(std::size(moments)) {
    std::filesystem::create_directories(folder);
}

void Album::look() {
    const auto game = gfrmMain.hold();
    for (size_t i = 0; i < std::size(moments); ++i) {
        if (seen_[i] || !moments[i].hasCome(*game)) continue;
        const platform::Surface screen = sim::screen();
        saved_.push_back((std::filesystem::path(folder_) / moments[i].name).string());
        writePng(saved_.back(), screen.width(), screen.height(), screen.row(0));
        seen_[i] = true;
    }
}

}  // namespace selfplay
