// The first hands of two seeds, as the built-in player plays them, against the texts in tests/golden. A rule, a time, a
// point or a choice of the player that changes shows as the first line that differs. After a change that is meant to
// be, write the texts anew and look at their difference before it is committed:
//     VELMORA_WRITE_GOLDEN=1 build/dev/velmora_tests --gtest_filter='Golden.*'

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iomanip>
#include <sstream>

#include "platform/sim/simulation.h"
#include "play/frmChooseTiles.h"
#include "scoring/scoringItems.h"
#include "tests/gameFixture.h"
#include "tools/selfplay/sitting.h"

namespace {

constexpr const char* winds[] = {"East", "South", "West", "North"};

/// Writes down what happens in a sitting: each landing, what was offered and taken, the score, the end of each hand.
class Transcript {
  public:
    explicit Transcript(selfplay::Sitting& sitting) {
        sitting.onLook = [this] { look(); };
        sitting.onHand = [this](const selfplay::HandReport& hand) { tellEnd(hand); };
    }

    std::vector<std::string> lines;

  private:
    void look() {
        const frmMain& game = *gfrmMain.hold();
        tellAnswer();
        if (game.mlngHandNumber != hand_) tellHand(game);
        if (over_ || hand_ == 0) return;
        const bool landing = gfrmChooseTiles.isOpen();
        if (game.mintCurRow > 0) row_ = game.mintCurRow;
        if (game.mintTilesDropped > landed_ && (landing || game.mintCurRow == noRow)) tellLanding(game);
        if (landing) tellOffer();
    }

    void tellHand(const frmMain& game) {
        hand_ = game.mlngHandNumber;
        landed_ = 0;
        over_ = false;
        add("Hand ", hand_, ": seat ", winds[game.mlngSeat - 1], ", House on ", winds[game.mlngHouse - 1], ", round ",
            winds[game.mlngRoundWind - 1]);
    }

    void tellLanding(const frmMain& game) {
        landed_ = game.mintTilesDropped;
        CellInfo tile;
        tile.fill(game.TileKinds[game.TileKindOf[game.mintCurTile]]);
        add(std::setw(5), landed_, std::setw(9), std::fixed, std::setprecision(3), sim::now() / 1000, " s  ",
            std::setw(2), std::left, tileName(tile), " lands in row ", row_, ", column ", game.mintCurCol);
    }

    void tellOffer() {
        if (chooser_ == gfrmChooseTiles.hold()) return;
        chooser_ = gfrmChooseTiles.hold();
        offered_.clear();
        for (int i = 1; i < chooser_->mintNumEntries; ++i) {
            std::string tiles;
            for (const CellInfo& tile : PossibleTiles[i])
                if (tile.Filled) tiles += (tiles.empty() ? "" : " ") + tileName(tile);
            const auto count = static_cast<int>(words(tiles).size());
            offered_.push_back({tiles, {chooser_->maintRows[i], chooser_->maintCols[i], count}});
            add("            ", tiles, " at row ", chooser_->maintRows[i], ", column ", chooser_->maintCols[i]);
        }
    }

    /// What the player answered to the last offer, once its chooser is gone.
    void tellAnswer() {
        if (!chooser_ || (gfrmChooseTiles.isOpen() && gfrmChooseTiles.hold() == chooser_)) return;
        const Candidate taken = {chooser_->mprpCellTableRow(), chooser_->mprpCellTableCol(), chooser_->mprpNumTiles()};
        chooser_.reset();
        if (taken.tiles == 0) return add("        passes");
        for (const auto& [tiles, candidate] : offered_)
            if (candidate == taken) add("        takes ", tiles, ", score ", gfrmMain->mlngScore);
    }

    void tellEnd(const selfplay::HandReport& hand) {
        tellAnswer();
        over_ = true;
        add(hand.won ? "  won" : "  lost", " after ", hand.tiles, " tiles, score ", hand.score);
        if (!hand.won) return;
        std::istringstream items(hand.items);
        for (std::string item; std::getline(items, item, ',');)
            add("        ", item, ": ", scoringItemNamed(item)->doubles);
        add("        doubles ", hand.doubles, ", points ", hand.points);
    }

    template <class... Parts>
    void add(const Parts&... parts) {
        std::ostringstream line;
        (line << ... << parts);
        lines.push_back(line.str());
    }

    uint32_t hand_ = 0;
    int landed_ = 0;   // tiles of the hand
    int16_t row_ = 0;  // of the falling tile, as it was last seen
    bool over_ = true;
    std::shared_ptr<frmChooseTiles> chooser_;  // open, or its answer not yet told
    std::vector<std::pair<std::string, Candidate>> offered_;
};

std::vector<std::string> handsOf(uint32_t seed, int level, int hands) {
    const Unseen unseen;
    selfplay::Sitting sitting(seed, true);
    sitting.setLevel(level);
    Transcript transcript(sitting);
    while (sitting.hands() < hands) sitting.playMatch(hands - sitting.hands());
    return transcript.lines;
}

std::vector<std::string> linesOf(const std::string& path) {
    std::ifstream in(path);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

/// So many lines from the one with that index on, each behind a mark.
std::string excerpt(const std::vector<std::string>& lines, size_t from, size_t to, const char* mark) {
    std::string text;
    for (size_t i = from; i < std::min(to, lines.size()); ++i) text += mark + lines[i] + '\n';
    return text;
}

/// The first line that differs, as both have it, with its neighbours.
std::string firstDifference(const std::vector<std::string>& expected, const std::vector<std::string>& played) {
    constexpr size_t before = 4, after = 3;
    const auto [left, right] = std::mismatch(expected.begin(), expected.end(), played.begin(), played.end());
    if (left == expected.end() && right == played.end()) return {};
    const auto at = static_cast<size_t>(left - expected.begin());
    return "line " + std::to_string(at + 1) + ":\n" + excerpt(expected, at > before ? at - before : 0, at, "  ") +
           excerpt(expected, at, at + after, "- ") + excerpt(played, at, at + after, "+ ");
}

TEST(Golden, TheFirstHandsOfASeedAreTheCommittedOnes) {
    struct {
        const char* file;
        uint32_t seed;
        int level, hands;
    } const transcripts[] = {{"easy.txt", 1, 1, 3}, {"superHard.txt", 2, 5, 3}};
    for (const auto& row : transcripts) {
        const std::string path = std::string(VELMORA_SOURCE) + "/tests/golden/" + row.file;
        const auto played = handsOf(row.seed, row.level, row.hands);
        if (std::getenv("VELMORA_WRITE_GOLDEN") != nullptr) {
            std::ofstream out(path);
            out << excerpt(played, 0, played.size(), "");
            ASSERT_TRUE(out.flush().good()) << path;
        }
        EXPECT_EQ(firstDifference(linesOf(path), played), "") << row.file;
    }
}

}  // namespace
