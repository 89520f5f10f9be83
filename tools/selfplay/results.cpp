#include "tools/selfplay/results.h"

#include <cstdio>
#include <ctime>
#include <string>
#include <vector>

#include "tools/selfplay/sitting.h"

namespace selfplay {
namespace {

std::string percent(int64_t part, int64_t all) {
    char text[32];
    std::snprintf(text, sizeof text, "%.1f",
                  all == 0 ? 0 : 100.0 * static_cast<double>(part) / static_cast<double>(all));
    return text;
}

void showRow(const std::string& head, const std::vector<std::string>& cells) {
    std::printf("| %s |", head.c_str());
    for (const std::string& cell : cells) std::printf(" %s |", cell.c_str());
    std::printf("\n");
}

void showHead(const std::string& head, const std::vector<std::string>& cells) {
    showRow(head, cells);
    showRow("---", std::vector<std::string>(cells.size(), "---:"));
}

}  // namespace

void Results::note(const PlayerRow& player, const HandReport& hand) {
    Hands& entry = byPlayer_[&player - players][hand.level - 1];
    ++entry.played;
    ++hands;
    if (!hand.won) return;
    ++entry.won;
    ++won_;
    ++byDoubles_[std::min(hand.doubles, mostDoubles)];
    points_ += hand.points;
}

double Results::handsASecond() const { return hands * double{CLOCKS_PER_SEC} / static_cast<double>(std::clock()); }

void Results::summarize() const {
    std::printf("Hands played: %d, won: %d (%s%%), points of won hands: %lld, matches: %d, hands a second: %.0f\n",
                hands, won_, percent(won_, hands).c_str(), static_cast<long long>(points_), matches, handsASecond());
}

void Results::showTable() const {
    std::printf(
        "%d hands, %d matches played to their end, %.0f hands a second of one processor; the referee had nothing to "
        "object.\n\n",
        hands, matches, handsASecond());
    showPlayers();
    std::printf("\n");
    showDoubles();
}

void Results::showPlayers() const {
    std::vector<std::string> captions;
    for (const LevelRow& level : levels) captions.emplace_back(level.caption);
    captions.emplace_back("hands");
    showHead("won of 100 hands", captions);
    for (const PlayerRow& player : players) {
        std::vector<std::string> cells;
        int64_t played = 0;
        for (const Hands& atLevel : byPlayer_[&player - players]) {
            cells.push_back(percent(atLevel.won, atLevel.played));
            played += atLevel.played;
        }
        cells.push_back(std::to_string(played));
        showRow(std::string("the ") + player.name + " player", cells);
    }
}

void Results::showDoubles() const {
    std::vector<std::string> captions, shares;
    for (int doubles = 0; doubles <= mostDoubles; ++doubles) {
        captions.push_back(std::to_string(doubles) + (doubles == mostDoubles ? " or more" : ""));
        shares.push_back(percent(byDoubles_[doubles], won_));
    }
    showHead("doubles", captions);
    showRow("of 100 won hands", shares);
}

}  // namespace selfplay
