// The first hands of two seeds, as the built-in player plays them, against the texts in tests/golden. A rule, a time, a
// point or a choice of the player that changes shows as the first line that differs. After a change that is meant to
// be, write the texts anew and look at their difference before it is committed:
//     VELMORA_WRITE_GOLDEN=1 build/dev/velmora_tests --gtest_filter='Golden.*'

#include <cstdlib>
#include <fstream>
#include <iomanip>
#include <sstream>

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

    std::ostringstream text;

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
        text << "Hand " << hand_ << ": seat " << winds[game.mlngSeat - 1] << ", House on " << winds[game.mlngHouse - 1]
             << ", round " << winds[game.mlngRoundWind - 1] << '\n';
    }

    void tellLanding(const frmMain& game) {
        landed_ = game.mintTilesDropped;
        text << std::setw(5) << std::right << landed_ << std::setw(9) << std::fixed << std::setprecision(3)
             << sim::now() / 1000 << " s  " << std::setw(2) << std::left << tileName(game.TileKindOf[game.mintCurTile])
             << " lands in row " << row_ << ", column " << game.mintCurCol << '\n';
    }

    void tellOffer() {
        if (chooser_ == gfrmChooseTiles.hold()) return;
        chooser_ = gfrmChooseTiles.hold();
        offered_ = offeredSets();
        for (const OfferedSet& set : offered_)
            text << "            " << set.tiles << " at row " << set.row << ", column " << set.column << '\n';
    }

    /// What the player answered to the last offer, once its chooser is gone.
    void tellAnswer() {
        if (!chooser_ || (gfrmChooseTiles.isOpen() && gfrmChooseTiles.hold() == chooser_)) return;
        if (chooser_->mprpNumTiles() == 0) text << "        passes\n";
        for (const OfferedSet& set : offered_)
            if (set.row == chooser_->mprpCellTableRow() && set.column == chooser_->mprpCellTableCol() &&
                words(set.tiles).size() == static_cast<size_t>(chooser_->mprpNumTiles()))
                text << "        takes " << set.tiles << ", score " << gfrmMain->mlngScore << '\n';
        chooser_.reset();
    }

    void tellEnd(const selfplay::HandReport& hand) {
        tellAnswer();
        over_ = true;
        text << (hand.won ? "  won" : "  lost") << " after " << hand.tiles << " tiles, score " << hand.score << '\n';
        if (!hand.won) return;
        std::istringstream items(hand.items);
        for (std::string item; std::getline(items, item, ',');)
            text << "        " << item << ": " << scoringItemNamed(item)->doubles << '\n';
        text << "        doubles " << hand.doubles << ", points " << hand.points << '\n';
    }

    uint32_t hand_ = 0;
    int landed_ = 0;   // tiles of the hand
    int16_t row_ = 0;  // of the falling tile, as it was last seen
    bool over_ = true;
    std::shared_ptr<frmChooseTiles> chooser_;  // open, or its answer not yet told
    std::vector<OfferedSet> offered_;
};

TEST(Golden, TheFirstHandsOfASeedAreTheCommittedOnes) {
    struct {
        const char* file;
        uint32_t seed;
        int level;
    } const transcripts[] = {{"easy.txt", 1, 1}, {"superHard.txt", 2, 5}};
    const Unseen unseen;
    for (const auto& row : transcripts) {
        selfplay::Sitting sitting(row.seed, true);
        sitting.setLevel(row.level);
        Transcript played(sitting);
        while (sitting.hands() < 3) sitting.playMatch(3 - sitting.hands());
        const std::string path = std::string(VELMORA_SOURCE) + "/tests/golden/" + row.file;
        if (std::getenv("VELMORA_WRITE_GOLDEN") != nullptr) std::ofstream(path) << played.text.str();
        std::ostringstream committed;
        committed << std::ifstream(path).rdbuf();
        EXPECT_EQ(played.text.str(), committed.str()) << row.file;
    }
}

}  // namespace
