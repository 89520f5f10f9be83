// The score file, byte for byte, all that can stand in its way, the view of its table, and the dialog that asks for a
// name.

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#include "hiscores/frmGetName.h"
#include "hiscores/frmHiScore.h"
#include "match/frmGameSummary.h"
#include "modZQT.h"
#include "platform/base/text.h"
#include "platform/desktop.h"
#include "platform/pictures.h"
#include "platform/sim/simulation.h"
#include "tests/gameFixture.h"
#include "tests/seenText.h"
#include "tools/faultyDisk.h"

namespace {

namespace fs = std::filesystem;
using std::string_literals::operator""s;
using namespace platform::key;

/// A row of the file; the name is of the code page's bytes.
std::string record(std::string name, int rounds, int level, int score) {
    name.resize(10, ' ');
    for (const int number : {rounds, rounds >> 8, level, level >> 8, score, score >> 8, score >> 16, score >> 24})
        name += static_cast<char>(number);
    return name;
}

const std::string blankRecord = record("", 0, 0, 0);
const std::string fullTable = record("ANN", 4, 2, 500) + record("Bob Miller", 1, 1, 400) + record("", 100, 5, 300) +
                              record("c", 2, 3, 200) + record("\xC9mile", 3, 4, 100);

class HiScores : public GameFixture {
  protected:
    void SetUp() override {
        GameFixture::SetUp();
        path = platform::programFile("HiScore.dat");
        gaudtHiScore = {};
    }

    void put(const std::string& bytes) const { std::ofstream(path, std::ios::binary) << bytes; }

    std::string bytes() const {
        std::ostringstream out;
        out << std::ifstream(path, std::ios::binary).rdbuf();
        return out.str();
    }

    /// Ends a match of two rounds at Level 3 with that score; a name is given if it is asked for. What opened, in
    /// order.
    std::string endMatch(int32_t score) {
        std::string opened;
        beginHand();
        game->msShowHintBriefly("The last hand is lost");
        game->mlngScore = score, game->mlngLevel = 3;
        gintNumRounds = game->mintRoundsPlayed = 2;
        sim::setHands([&] {
            if (sim::modalDepth() == 0) return;
            if (gfrmGameSummary.isOpen()) opened += "summary ";
            if (gfrmHiScore.isOpen()) opened += "table ";
            if (gfrmGetName.isOpen()) {
                opened += "name ";
                if (!meanwhile.empty()) put(meanwhile);
                sim::typeText("Eve");
            }
            sim::pressKey(Enter);
        });
        sim::runFor(1000);
        sim::setHands({});
        EXPECT_EQ(game->mblnGameRunning ? "" : game->lblHint.text(), "Start Anew (F2) begins a match");
        return opened;
    }

    /// What the player was told since this was asked last, but for the beginning and the path.
    std::string told() {
        std::string all;
        for (; heard < sim::messages().size(); ++heard) {
            const std::string& message = sim::messages()[heard];
            EXPECT_TRUE(message.starts_with("Error In ") && message.ends_with(path)) << message;
            all += message.substr(9, message.size() - path.size() - 9);
        }
        return all;
    }

    /// Enters a score as the end of a match does, while those faults befall the file, which holds these bytes or, for
    /// none, isn't there. The calls.
    std::vector<faultyDisk::Call> enterOn(const std::vector<faultyDisk::Fault>& faults, const std::string& held) {
        fs::remove(path);
        if (!held.empty()) put(held);
        gaudtHiScore = {};
        game->mlngScore = 600;
        game->mlngLevel = 3;
        game->mintRoundsPlayed = 2;
        const size_t before = sim::messages().size();
        sim::setHands([&] {
            if (sim::modalDepth() == 0) return;
            if (gfrmGetName.isOpen()) {
                EXPECT_EQ(sim::messages().size(), before) << "a name is asked for in vain";
                sim::typeText("Eve");
            }
            sim::pressKey(Enter);
        });
        faultyDisk::begin(path, faults);
        game->mblnfHiScore();
        sim::setHands({});
        return faultyDisk::end();
    }

    /// The number of the call that is the count-th of that name behind another one.
    static size_t numberOf(const std::string& name, size_t count, const std::vector<faultyDisk::Call>& calls,
                           size_t behind = 0) {
        size_t number = behind;
        while (count > 0) count -= calls.at(number++).name == name ? 1 : 0;
        return number;
    }

    /// What those faults leave of a table, in words. It is another process that they kill.
    std::string leftBy(const std::vector<faultyDisk::Fault>& faults, const std::string& before) {
        heard = sim::messages().size();
        const bool isKilled = faults.front().isKilled;
        const pid_t other = isKilled ? ::fork() : 0;
        if (other == 0) enterOn(faults, before);
        if (other == 0 && isKilled) ::_exit(0);
        int status = 0;
        if (isKilled) ::waitpid(other, &status, 0);
        EXPECT_EQ(WIFSIGNALED(status), isKilled);
        const std::string after = bytes(), wanted = entered(before);
        lastTold = told();
        if (!isKilled) checkMemory(lastTold, after);
        EXPECT_TRUE(isKilled || !lastTold.empty() || after == wanted) << "not told";
        EXPECT_EQ(faultyDisk::openHandles(), 0u);
        const char* const left = after == wanted ? "new" : after == before ? "old" : "mixed";
        return left + std::string(lastTold.empty() ? "" : ", told");
    }

    /// The rows in memory are the file's as far as they could be read, and none after a save that has failed.
    static void checkMemory(const std::string& told, const std::string& file) {
        size_t rows = 0;
        for (const HiScoreRecord& each : gaudtHiScore) {
            if (each.lngScore == 0) break;
            EXPECT_EQ(record(each.strName, each.intRounds, each.intLevel, each.lngScore), file.substr(rows++ * 18, 18));
        }
        EXPECT_TRUE(rows == 0 || !told.starts_with("gsSave"));
        EXPECT_TRUE(rows == hiScoreRows || file.substr(rows * 18, 18) == blankRecord || !told.empty());
    }

    /// The table with the score that is entered, on top.
    static std::string entered(const std::string& before) {
        std::string after = record("Eve", 2, 3, 600) + before.substr(0, std::min<size_t>(before.size() / 18 * 18, 72));
        while (after.size() < 90) after += blankRecord;
        return after + (before.size() > 90 ? before.substr(90) : "");
    }

    /// Opens the view of the table by its button, does something there and leaves it.
    static void inTable(const std::function<void()>& action) {
        inDialog(Button::HighScores, [&] {
            action();
            sim::pressKey(Escape);
        });
    }

    std::string path;
    std::string meanwhile;  // what another program puts there while a name is typed; empty for nothing
    std::string lastTold;   // by a disturbed end of a match
    size_t heard = 0;       // messages
};

TEST_F(HiScores, IsByteForByteAsItIsLaidOut) {
    const std::string laidOut = fullTable.substr(0, 18) + "longer tha\xFE\xFF\x05\0\x78\x56\x34\x12"s +
                                "x         \xFF\xFF\x00\x80\x00\x00\x00\x80"s + blankRecord + blankRecord;
    std::ofstream(path + ".elsewhere") << "x";
    fs::create_symlink(path + ".elsewhere", path);
    gaudtHiScore[1] = {{}, 4, 2, 500};
    gaudtHiScore[1].strName = "ANN";
    gaudtHiScore[2] = {{}, -2, 5, 0x12345678};
    gaudtHiScore[2].strName = "longer than ten";
    gaudtHiScore[3] = {{}, -1, -32768, -2147483647 - 1};
    gaudtHiScore[3].strName = "x";
    gsSaveHiScore();
    EXPECT_EQ(bytes(), laidOut);
    EXPECT_TRUE(fs::is_symlink(path)) << "a link to a file is that file";
    gaudtHiScore = {};
    ASSERT_TRUE(gblnfReadHiScoreFile());
    put("");
    gsSaveHiScore();
    EXPECT_EQ(bytes(), laidOut) << "what was read is what was written";
}

TEST_F(HiScores, AnyLengthKeepsItsRowsAndWhatLiesBehindTheTable) {
    const std::string longFile = fullTable + "and more";
    for (size_t length = 0; length <= longFile.size(); ++length) {
        SCOPED_TRACE(length);
        const std::string before = longFile.substr(0, length);
        put(before);
        gaudtHiScore[5].lngScore = 77;
        ASSERT_TRUE(gblnfReadHiScoreFile());
        EXPECT_EQ(bytes(), before) << "reading changes nothing";
        std::string whole = before.substr(0, std::min<size_t>(length, 90) / 18 * 18);
        while (whole.size() < 90) whole += blankRecord;
        gsSaveHiScore();
        EXPECT_EQ(bytes(), whole + (length > 90 ? before.substr(90) : ""));
    }
    EXPECT_TRUE(sim::messages().empty());
}

TEST_F(HiScores, NamesAreOneByteACharacter) {
    struct {
        const char *what, *name, *bytes, *readBack;
    } const cases[] = {
        {"ASCII", "~ aZ{}\"", "~ aZ{}\"", "~ aZ{}\""},
        {"other scripts", "ł中🀄Жx", "????x", "????x"},
        {"control characters", "a\tb\nc\x7F\xC2\x81", "a?b?c??", "a?b?c??"},
        {"broken UTF-8", "a\xE9z\xF0\x9F", "a?z?", "a?z?"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(platform::toCodePage(row.name), row.bytes) << row.what;
        EXPECT_EQ(platform::fromCodePage(row.bytes), row.readBack) << row.what;
    }
    const std::string specials =
        "\x80\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E\x91"
        "\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B\x9C\x9E\x9F\xA1\xC0\xE9\xDF\xFF";
    const std::string letters = "€‚ƒ„…†‡ˆ‰Š‹ŒŽ‘’“”•–—˜™š›œžŸ¡Àéßÿ";
    EXPECT_EQ(platform::toCodePage(letters), specials);
    EXPECT_EQ(platform::fromCodePage(specials), letters);
    put("\0\x1F\x81\x8D\x8F\x90\x9D\x80\xA0 "s + blankRecord.substr(10));
    gblnfReadHiScoreFile();
    EXPECT_EQ(platform::fromCodePage(gaudtHiScore[1].strName), "???????€\xC2\xA0 ") << "bytes that are no characters";
    gsSaveHiScore();
    EXPECT_EQ(bytes().substr(0, 10), "\0\x1F\x81\x8D\x8F\x90\x9D\x80\xA0 "s) << "and yet stay as they are";
}

TEST_F(HiScores, AMatchEntersByItsScoreAlone) {
    const std::string full = fullTable;
    const auto rows = [&](int first, int count) { return full.substr((first - 1) * 18, count * 18); };
    const auto eve = [](int score) { return record("Eve", 2, 3, score); };
    struct {
        const char* what;
        std::string before;  // empty: no file
        int score;
        std::string after;  // empty: nothing enters
        std::string meanwhile = {};
    } const cases[] = {
        {"the first ever", "", 1, eve(1) + blankRecord + blankRecord + blankRecord + blankRecord},
        {"no score makes no file", "", 0, ""},
        {"in the middle", full, 350, rows(1, 2) + eve(350) + rows(3, 2)},
        {"below an equal score", full, 400, rows(1, 2) + eve(400) + rows(3, 2)},
        {"on top", full, 501, eve(501) + rows(1, 4)},
        {"into the last row", full, 101, rows(1, 4) + eve(101)},
        {"equal to the last row", full, 100, ""},
        {"into a blank row", rows(1, 4) + blankRecord, 1, rows(1, 4) + eve(1)},
        {"below another program's", full, 350, eve(600) + rows(1, 2) + eve(350) + rows(3, 1), eve(600) + rows(1, 4)},
        {"into another program's file", "", 7, rows(1, 3) + eve(7) + blankRecord, rows(1, 3)},
        {"no more, by another program", full, 101, rows(1, 4) + eve(102), rows(1, 4) + eve(102)},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.what);
        fs::remove(path);
        if (!row.before.empty()) put(row.before);
        meanwhile = row.meanwhile;
        gaudtHiScore[2].lngScore = 1;  // as memory holds it of a file that has been deleted
        const bool enters = !row.after.empty();
        EXPECT_EQ(endMatch(row.score), enters ? "summary name table " : "summary ");
        EXPECT_EQ(bytes(), enters ? row.after : row.before);
        EXPECT_EQ(fs::exists(path), !bytes().empty());
    }
    EXPECT_TRUE(sim::messages().empty());
}

TEST_F(HiScores, WhatStandsInItsWayIsToldOnceAndNothingIsLost) {
    using Type = fs::file_type;
    struct Fault {
        std::string what, before;  // what the file holds; empty: there is none
        std::function<void()> make;
        std::string opened, told;
        int rows;  // that memory holds of the table afterwards
        Type type = Type::regular;
    };
    const fs::path folder = fs::path(path).parent_path();
    constexpr uid_t nobody = 65534;
    const uid_t self = ::geteuid();
    const auto rights = [&](int ofFile, int ofFolder) {
        return [=, this] {
            if (ofFile != 0) fs::permissions(path, fs::perms(ofFile));
            fs::permissions(folder, fs::perms(ofFolder));
            ASSERT_EQ(::seteuid(self == 0 ? nobody : self), 0);
        };
    };
    const auto link = [&](const char* to) { return [=, this] { fs::create_symlink(to, path); }; };
    const auto calls = enterOn({{}}, fullTable);
    fs::remove(path);
    const auto reading = [&](size_t row) {
        return [=, this] { faultyDisk::begin(path, {{"", numberOf("pread", row, calls), EIO}}); };
    };
    const std::string one = "summary ", two = "summary name ", all = "summary name table ",
                      read = "gblnfReadHiScoreFile: Error ", save = "gsSaveHiScore: Error ",
                      noFile = "75 - Path/File access error: ", missing = "53 - File not found: ",
                      denied = "70 - Permission denied: ", fault = "57 - Device I/O error: ";
    const Fault faults[] = {
        {"a folder", "", [&] { fs::create_directory(path); }, one, read + noFile, 0, Type::directory},
        {"a pipe", "", [&] { ::mkfifo(path.c_str(), 0666); }, one, read + noFile, 0, Type::fifo},
        {"a link to a device", "", link("/dev/full"), one, read + noFile, 0, Type::symlink},
        {"a link to nothing", "", link("nowhere"), one, read + missing, 0, Type::symlink},
        {"a link to itself", "", link("HiScore.dat"), one, read + noFile, 0, Type::symlink},
        {"a read-only file", fullTable, rights(0444, 0755), one, read + denied, 0},
        {"a folder that can't be looked into", fullTable, rights(0644, 0600), one, read + denied, 0},
        {"a read-only folder", "", rights(0, 0555), all, save + denied, 0, Type::not_found},
        {"a fault in the third row", fullTable, reading(3), one, read + fault, 2},
        {"as it is read again", fullTable, reading(6), two, read + fault, 5},
    };
    for (const Fault& row : faults) {
        SCOPED_TRACE(row.what);
        gaudtHiScore = {};
        if (!row.before.empty()) put(row.before);
        row.make();
        EXPECT_EQ(endMatch(600), row.opened) << "no name is asked for in vain";
        ASSERT_EQ(::seteuid(self), 0);
        fs::permissions(folder, fs::perms(0755));
        faultyDisk::end();
        EXPECT_EQ(told(), row.told);
        const auto isFilled = [](const HiScoreRecord& record) { return record.lngScore != 0; };
        EXPECT_EQ(std::ranges::count_if(gaudtHiScore, isFilled), row.rows) << "no row that was never stored";
        startMatch();
        sim::runFor(2000);
        EXPECT_TRUE(game->mblnGameRunning && game->mintTilesDropped == 1) << "another match can be played";
        EXPECT_EQ(fs::symlink_status(path).type(), row.type);
        EXPECT_EQ(row.type == Type::regular ? bytes() : "", row.before);
        fs::remove(path);
        EXPECT_TRUE(fs::is_empty(folder)) << "nothing was made beside it";
    }
}

/// How often what was left, by the call and what befell it.
using Outcomes = std::map<std::string, std::map<std::string, int>>;

std::string inWords(const Outcomes& outcomes) {
    std::string text;
    for (const auto& [fault, left] : outcomes) {
        text += fault + std::string(60 - fault.size(), ' ');
        const char* before = "";
        for (const auto& [what, count] : left)
            text += std::exchange(before, "; ") + what + (count > 0 ? ": " + std::to_string(count) : "");
        text += '\n';
    }
    return text;
}

/// A fault that befalls a table, alone or while a write is undone.
struct Trial {
    std::string name, before;
    std::vector<faultyDisk::Fault> faults;
};

TEST_F(HiScores, ADiskThatFailsLeavesTheOldTableOrTheNewOne) {
    const Unseen unseen;
    std::vector<Trial> trials;
    for (const std::string& before : {""s, fullTable.substr(0, 36), fullTable, fullTable + "trail"}) {
        const auto usual = enterOn({{}}, before);
        const faultyDisk::Fault cut = {"", numberOf("pwrite", 1, usual), ENOSPC, 1, false, true, 30};
        const faultyDisk::Fault refused = {"", numberOf("dup", 1, usual), EMFILE};
        for (const faultyDisk::Fault& first : {faultyDisk::Fault{}, cut, refused}) {
            auto calls = enterOn({first}, before);
            if (first.call > 0) calls.resize(numberOf("close", 1, calls, first.call));  // What follows is as usual.
            for (size_t number = first.call + 1; number <= calls.size(); ++number)
                for (const auto& fault : faultyDisk::faultsOf(calls[number - 1], number))
                    trials.push_back({calls[number - 1].name + (first.call > 0 ? " of an undoing " : " ") + fault.what,
                                      before,
                                      {fault, first}});
        }
    }
    // What forks comes first, while the process is small.
    std::ranges::stable_partition(trials, [](const Trial& each) { return each.faults.front().isKilled; });
    Outcomes left, toldOf;
    for (const Trial& each : trials) {
        const faultyDisk::Fault& fault = each.faults.front();
        SCOPED_TRACE(each.name + " at call " + std::to_string(fault.call) + " by error " + std::to_string(fault.error));
        ++left[each.name][leftBy(each.faults, each.before)];
        if (fault.what != "fails once"s || each.faults.back().call > 0 || lastTold.empty()) continue;
        const std::string told = lastTold.substr(lastTold.rfind("Error "));
        toldOf[strerrorname_np(fault.error)][told.substr(0, told.rfind(':'))];
    }
    EXPECT_EQ(inWords(left) + inWords(toldOf), seenText("diskFaults"));
}

constexpr platform::Color shadow = 0x404040;

/// What stands in the view of the table.
std::string texts() {
    std::string all;
    for (const platform::PrintedText& text : gfrmHiScore->form.surface().texts) {
        EXPECT_EQ(text.font.name, "Times New Roman");
        EXPECT_EQ(text.font.points, 12);
        EXPECT_TRUE(text.font.bold);
        EXPECT_TRUE(text.color == shadow || text.color == 0) << text.color;
        all += (text.color == shadow ? "grey " : "") + text.text + '@' + std::to_string(text.left) + ',' +
               std::to_string(text.top) + '\n';
    }
    return all;
}

TEST_F(HiScores, TheTableStandsWhereItsPictureHasRoom) {
    put(record("ANN", 4, 2, 123456) + record(" Zo\xEB \x80", 100, 5, 500) + record("", 1, 1, 7) + record("x", 9, 9, 0) +
        record("bad", 1, 1, -12));
    std::string spoken;
    sim::setLog([&](const std::string& line) {
        if (const size_t at = line.find("Top"); at != std::string::npos) spoken = line.substr(at);
    });
    inTable([&] {
        EXPECT_EQ(gfrmHiScore->form.left() - game->form.left(), 147.5 * 15);
        EXPECT_EQ(gfrmHiScore->form.top() - game->form.top(), 115 * 15);
        // A letter of this size is nine pixels wide here, so that the scores end at 445.
        EXPECT_EQ(spoken + '\n' + texts(), seenText("hiScores"));
        const platform::Surface ground(platform::pictureByName("104"));
        int different = 0;
        for (int y = 0; y < 351; ++y)
            for (int x = 0; x < 500; ++x)
                if (gfrmHiScore->form.surface().point(x, y) != ground.point(x, std::min(y, 349))) ++different;
        EXPECT_EQ(different, 0) << "the picture, its last line twice";
    });
}

TEST_F(HiScores, TheTableIsReadAnewAtEachShowing) {
    inTable([] { EXPECT_EQ(texts(), "") << "no file yet"; });
    EXPECT_FALSE(fs::exists(path));
    put(record("A", 1, 1, 5));
    inTable([] { EXPECT_NE(texts().find("A@66"), std::string::npos); });
    put(record("B", 1, 1, 5));
    inTable([] { EXPECT_EQ(texts().find("A@66"), std::string::npos); });
    fs::remove(path);
    fs::create_directory(path);
    inTable([] { EXPECT_EQ(sim::messages().size(), 1u) << "told once, and shown all the same"; });
}

TEST_F(HiScores, TheNameDialogTellsTheScoreAndTakesWhatTheKeysMayType) {
    struct {
        const char *typed, *name;
    } const cases[] = {
        {"aBcXyZ 09", "aBcXyZ 09"},
        {"~!@#$%^&*(", "~!@#$%^&*("},
        {")_+`-={}|[", ")_+`-={}|["},
        {"]\\:\";'<>?,", "]\\:\";'<>?,"},
        {"./", "./"},
        {"Zoë£中x", "Zox"},
        {"12345678901", "1234567890"},
        {"  a ", "  a "},
    };
    const frmGetName* const object = gfrmGetName.hold().get();
    std::string before;
    for (const auto& row : cases) {
        gfrmGetName->msLoadFormVariables(-5);
        inDialog([] { gfrmGetName.showModal(); },
                 [&] {
                     EXPECT_EQ(gfrmGetName->sspCongratulations.caption(),
                               "Congratulations!  You Have A High Score Of -5!");
                     EXPECT_TRUE(gfrmGetName->txtName.hasFocus());
                     EXPECT_EQ(gfrmGetName->txtName.text(), "");
                     EXPECT_EQ(gfrmGetName->mprpName(), before) << "as long as no other is accepted";
                     sim::typeText(row.typed);
                     for (const int key : {int{Escape}, int{Tab}, int{Left}, int{Up}}) sim::pressKey(key);
                     EXPECT_TRUE(gfrmGetName.isOpen());
                     sim::pressKey(Enter);
                 });
        EXPECT_EQ(gfrmGetName->mprpName(), row.name);
        before = row.name;
    }
    inDialog([] { gfrmGetName.showModal(); },
             [&] {
                 gfrmGetName->txtName.setText("Bob");
                 gfrmGetName->txtName.setEnabled(false);  // Enter then comes to the form alone.
                 sim::pressKey(Space);
                 EXPECT_TRUE(gfrmGetName.isOpen());
                 sim::pressKey(Enter);
             });
    EXPECT_EQ(gfrmGetName->mprpName(), "Bob");
    EXPECT_EQ(gfrmGetName.hold().get(), object);
    gfrmGetName->txtName.setEnabled(true);
}

}  // namespace
