// What the help says is what the game does.

#include <algorithm>
#include <fstream>
#include <map>
#include <regex>

#include "presentation/frmBitmaps.h"
#include "presentation/helpPictures.h"
#include "scoring/scoringItems.h"
#include "tests/gameFixture.h"

namespace {

using Row = std::vector<std::string>;  // the cells of a line

/// What stands in a text between the places that match, or else in their first group.
std::vector<std::string> partsOf(const std::string& text, const std::regex& match, int group = -1) {
    return {std::sregex_token_iterator(text.begin(), text.end(), match, group), {}};
}

Row cellsOf(const std::string& line) {
    return partsOf(line.substr(line.find_first_not_of("| ")), std::regex(" *\\| *"));
}

std::vector<std::string> linesOfHelp() {
    std::ifstream in(VELMORA_ASSETS "/ZQT.hlp");
    EXPECT_TRUE(in.good());
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

/// The rows of all tables whose header has those first cells, without header and rule.
std::vector<Row> rowsUnder(const Row& header) {
    std::vector<Row> rows;
    int lineOfTable = 0;
    bool wanted = false;
    for (const std::string& line : linesOfHelp()) {
        lineOfTable = line.starts_with('|') ? lineOfTable + 1 : 0;
        if (lineOfTable == 0) continue;
        const Row cells = cellsOf(line);
        if (lineOfTable == 1) wanted = std::ranges::mismatch(header, cells).in1 == header.end();
        if (lineOfTable > 2 && wanted) rows.push_back(cells);
    }
    return rows;
}

/// The pictures that a text asks for, by name.
std::vector<std::string> picturesIn(const std::string& text) {
    return partsOf(text, std::regex(R"(!\[[^\]]*\]\(([^)]*)\))"), 1);
}

/// The sets of tiles that a text shows, each as short names.
std::vector<std::string> setsIn(const std::string& text) {
    std::vector<std::string> sets;
    for (const std::string& name : picturesIn(text)) {
        EXPECT_TRUE(name.starts_with("tiles:")) << name;
        std::ranges::replace(sets.emplace_back(name.substr(6)), ',', ' ');
    }
    return sets;
}

class HelpText : public GameFixture {
  protected:
    /// Values a hand that holds these sets, filled up with sequences and a pair that score nothing by themselves.
    void tally(const std::vector<std::string>& sets, int seat, int house, int wind) {
        std::string hand, pair = "w5 w5", bonus;
        for (const std::string& set : sets)
            if (set[0] == 's' || set[0] == 'f')
                bonus += ' ' + set;
            else if (words(set).size() == 2)
                pair = set;
            else
                hand += set + ' ';
        for (const char* const filler : {"c1 c2 c3 ", "b1 b2 b3 ", "w1 w2 w3 ", "c1 c2 c3 "})
            if (words(hand).size() < 12) hand += filler;
        EXPECT_EQ(words(hand).size(), 12u) << "not of sets: " << hand;
        GameFixture::tally(hand + '*' + pair + " |" + bonus, seat, house, wind);
    }

    bool scored(const std::string& item) {
        return ("," + gstrScoreDesc + ",").find("," + item + ",") != std::string::npos;
    }

    /// Whether the tiles, side by side on the bottom row, would be offered.
    bool isOffered(const std::string& tiles) {
        beginHand();
        setBoard(tiles);
        return game->mblnfTileConnection(bottomRow, 1, narrow16(words(tiles).size()));
    }
};

TEST_F(HelpText, ListsEveryItemWithItsDoublesAndAnExample) {
    std::vector<std::pair<std::string, int>> listed, expected;
    for (const Row& row : rowsUnder({"Item", "Doubles", "When", "Example"})) {
        listed.emplace_back(row[0], std::stoi(row[1]));
        const auto example = setsIn(row[3]);
        ASSERT_FALSE(example.empty()) << row[0];
        tally(example, 1, 1, 1);
        EXPECT_TRUE(scored(row[0])) << row[0] << " isn't in " << gstrScoreDesc;
    }
    for (const ScoringItemRow& item : scoringItems) expected.emplace_back(item.text, item.doubles);
    EXPECT_EQ(listed, expected);
}

TEST_F(HelpText, CountsItsHandAsTheGameDoes) {
    std::string hand;
    for (const std::string& line : linesOfHelp())
        if (line.starts_with("![")) hand += line;
    tally(setsIn(hand), 2, 1, 2);
    std::string items;
    int together = 0;
    for (const Row& row : rowsUnder({"What counts"})) {
        items += (items.empty() ? "" : ",") + row[0];
        together += scoringItemNamed(row[0])->doubles;
        EXPECT_EQ(row[2], std::to_string(together)) << row[0];
    }
    EXPECT_EQ(items, gstrScoreDesc);
    EXPECT_EQ(together, game->mintDoubles);
    EXPECT_EQ(glngHandPoints, 25600);
}

TEST_F(HelpText, TellsThePointsOfSetsAndHands) {
    const std::map<std::string, int32_t> kinds = {{"Sequence", 2}, {"Trio", 3}, {"Pair, flower or season", 1}};
    const auto rows = rowsUnder({"Set", "Points", "Points after the Down key"});
    EXPECT_EQ(rows.size(), kinds.size());
    for (const Row& row : rows)
        for (const bool dropped : {false, true}) {
            beginHand();
            game->mlngScore = 0;
            game->mblnDropKeyUsed = dropped;
            game->msUpdateScore(kinds.at(row[0]), false);
            EXPECT_EQ(row[dropped ? 2 : 1], std::to_string(game->mlngScore)) << row[0];
        }

    Row points;
    for (const std::string& line : linesOfHelp())
        if (line.starts_with("| Points | 50 |")) points = cellsOf(line);
    ASSERT_EQ(points.size(), 8u);
    for (size_t doubles = 0; doubles + 1 < points.size(); ++doubles) {
        game->mintDoubles = narrow16(doubles);
        EXPECT_EQ(points[doubles + 1], std::to_string(game->mlngfHandPoints()));
    }
}

TEST_F(HelpText, TellsTheLevelsAsTheyAre) {
    const auto milliseconds = [](int interval) { return std::to_string(interval) + " ms"; };
    std::vector<Row> expected;
    for (const LevelRow& level : levels)
        expected.push_back({level.caption, milliseconds(level.interval),
                            level.threshold > 0 ? std::to_string(level.threshold) : "-",
                            milliseconds(level.intervalFromThen), std::to_string(level.leastDoubles)});
    EXPECT_EQ(rowsUnder({"Level", "At first", "From so many tiles on", "Then", "Least doubles"}), expected);
}

TEST_F(HelpText, TellsEveryCommandBesideItsIcon) {
    std::vector<Row> listed, expected;
    for (const Row& row : rowsUnder({"Button", "Command", "Key"}))
        listed.push_back({picturesIn(row[0]).at(0), row[1], row[2]});
    std::map<int, std::string> keysOf;
    int code = 0;
    game->tbrZQT.onButtonClick = [&](int button) {
        const std::map<int, std::string> names = {{112, "F1"}, {113, "F2"}, {'P', "P"}, {19, "Pause"}};
        keysOf[button] = names.at(code) + (keysOf[button].empty() ? "" : ", " + keysOf[button]);
    };
    for (code = 1; code < 255; ++code) sim::pressKey(code);
    for (int button = 1; button <= toolbarButtons; ++button) {
        const std::string& toolTip = game->mastrToolTip[button];
        if (toolTip.empty()) continue;
        const std::string name = toolTip.back() == ':' ? toolTip.substr(0, toolTip.size() - 1) : toolTip;
        expected.push_back({"icon:" + std::to_string(button), name, keysOf[button]});
    }
    EXPECT_EQ(listed, expected);
}

TEST_F(HelpText, ShowsSetsThatAreOfferedAndOthersThatAreNot) {
    for (const Row& row : rowsUnder({"Set", "Example", "Rule"}))
        for (const std::string& set : setsIn(row[1])) EXPECT_TRUE(isOffered(set)) << row[1];
    for (const Row& row : rowsUnder({"Tiles", "Why not"})) EXPECT_FALSE(isOffered(setsIn(row[0]).at(0))) << row[0];
}

TEST_F(HelpText, TellsWhatIsThePlayersOwn) {
    const auto rows = rowsUnder({"You sit", "Your wind", "Your season", "Your flower"});
    ASSERT_EQ(rows.size(), 4u);
    for (const int house : {1, 3})
        for (int place = 0; place < 4; ++place) {
            const Row& row = rows[static_cast<size_t>(place)];
            const std::string wind = setsIn(row[1]).at(0);
            tally({wind + ' ' + wind + ' ' + wind, setsIn(row[2]).at(0), setsIn(row[3]).at(0)},
                  (house - 1 + place) % 4 + 1, house, 1);
            for (const char* item : {"Own Wind Trio", "Own Season Tile", "Own Flower Tile"})
                EXPECT_TRUE(scored(item)) << row[0] << ": " << item;
        }
}

TEST_F(HelpText, HasNoRowWithoutItsTable) {
    const std::vector<std::string> lines = linesOfHelp();
    for (size_t i = 1; i + 1 < lines.size(); ++i) {
        const bool begins = lines[i].starts_with('|') && !lines[i - 1].starts_with('|');
        EXPECT_TRUE(!begins || lines[i + 1].find_first_not_of("|-:") == std::string::npos)
            << "no rule under: " << lines[i];
    }
}

TEST_F(HelpText, HasAPictureForEveryNameThatItAsksFor) {
    int pictures = 0;
    for (const std::string& line : linesOfHelp())
        for (const std::string& name : picturesIn(line)) {
            EXPECT_GT(gudtfHelpPicture(name).width, 0) << name;
            ++pictures;
        }
    EXPECT_GT(pictures, 100);
    for (const char* name : {"", "tiles:", "tiles:c0", "tiles:s5", "tiles:c10", "tiles:E1", "tiles:c1,x", "icon:0",
                             "icon:14", "icon:16", "icon:x", "c1"})
        EXPECT_EQ(gudtfHelpPicture(name).width, 0) << name;
}

TEST_F(HelpText, ShowsTheFacesThatItNames) {
    const platform::HelpPicture row = gudtfHelpPicture("tiles:c1,w9,E,B,s1,f4");
    EXPECT_EQ(row.width, 3 + 6 * 30 + 3);
    ASSERT_EQ(row.height, 39);
    const auto pixel = [&](int x, int y) { return row.pixels[static_cast<size_t>(y * row.width + x)]; };
    const int kinds[] = {1, 27, 28, 34, 35, 42};
    for (int i = 0; i < 6; ++i) {
        EXPECT_EQ(pixel(3 + 30 * i, 0), 0u) << "corner of " << i;
        for (int y = 5; y < 35; ++y)
            for (int x = 3; x < 27; ++x)
                ASSERT_EQ(pixel(3 + 30 * i + x, y),
                          platform::pixelOf(gfrmBitmaps->picAllTiles.point((kinds[i] - 1) * 30 + x, y)))
                    << "tile " << i;
    }
    const platform::HelpPicture icon = gudtfHelpPicture("icon:9");
    EXPECT_EQ(icon.width, 16);
    ASSERT_EQ(icon.height, 16);
    EXPECT_EQ(icon.pixels[0], 0u) << "clear beside the two bars";
    EXPECT_EQ(icon.pixels[8 * 16 + 4] >> 24, 0xFFu);
}

}  // namespace
