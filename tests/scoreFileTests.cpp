// The score file, byte for byte, and all that can stand in its way.

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "hiscores/frmGetName.h"
#include "hiscores/frmHiScore.h"
#include "match/frmGameSummary.h"
#include "modZQT.h"
#include "platform/desktop.h"
#include "platform/sim/simulation.h"
#include "tests/gameFixture.h"

namespace {

namespace fs = std::filesystem;
using std::string_literals::operator""s;

const std::string blankRecord = "          \0\0\0\0\0\0\0\0"s;
const std::string fullTable =
    "ANN       \x04\0\x02\0\xF4\x01\0\0"
    "Bob Miller\x01\0\x01\0\x90\x01\0\0"
    "          \x64\0\x05\0\x2C\x01\0\0"
    "c         \x02\0\x03\0\xC8\0\0\0"
    "\xC9mile     \x03\0\x04\0\x64\0\0\0"s;

class ScoreFile : public GameFixture {
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
    std::string endMatch(int32_t score, const std::string& name = "Eve") {
        std::string opened;
        beginHand();
        game->mlngScore = score;
        game->mlngLevel = 3;
        gintNumRounds = game->mintRoundsPlayed = 2;
        sim::setHands([&] {
            if (sim::modalDepth() == 0) return;
            if (gfrmGameSummary.isOpen()) opened += "summary ";
            if (gfrmHiScore.isOpen()) opened += "table ";
            if (gfrmGetName.isOpen()) {
                opened += "name ";
                sim::typeText(name);
            }
            sim::pressKey(platform::key::Enter);
        });
        sim::runFor(1000);
        sim::setHands({});
        EXPECT_FALSE(game->mblnGameRunning);
        return opened;
    }

    /// Whether another match can be played.
    bool playsOn() {
        startMatch();
        sim::runFor(2000);
        return game->mblnGameRunning && game->mintTilesDropped == 1;
    }

    /// The scores of the table, down to the last that isn't 0.
    static std::vector<int> scores() {
        std::vector<int> result;
        for (const HiScoreRecord& row : gaudtHiScore)
            if (row.lngScore != 0) result.push_back(row.lngScore);
        return result;
    }

    static std::string report(const char* procedure, const std::string& failure) {
        return "Error In "s + procedure + ": Error " + failure;
    }

    std::string path;
};

TEST_F(ScoreFile, IsReadByteForByte) {
    put(fullTable);
    ASSERT_TRUE(gblnfReadHiScoreFile());
    EXPECT_EQ(scores(), std::vector({500, 400, 300, 200, 100}));
    EXPECT_EQ(gaudtHiScore[1].strName.text(), "ANN       ");
    EXPECT_EQ(gaudtHiScore[2].strName.text(), "Bob Miller");
    EXPECT_EQ(gaudtHiScore[5].strName.text(), "Émile     ");
    EXPECT_EQ(gaudtHiScore[3].intRounds, 100);
    EXPECT_EQ(gaudtHiScore[3].intLevel, 5);

    put("x         \xFF\xFF\x00\x80\x00\x00\x00\x80"s);
    ASSERT_TRUE(gblnfReadHiScoreFile());
    EXPECT_EQ(gaudtHiScore[1].intRounds, -1);
    EXPECT_EQ(gaudtHiScore[1].intLevel, -32768);
    EXPECT_EQ(gaudtHiScore[1].lngScore, -2147483647 - 1);
}

TEST_F(ScoreFile, IsWrittenByteForByte) {
    gaudtHiScore[1] = {{}, 4, 2, 500};
    gaudtHiScore[1].strName = "ANN";
    gaudtHiScore[2] = {{}, -2, 5, 0x12345678};
    gaudtHiScore[2].strName = "longer than ten";
    gsSaveHiScore();
    EXPECT_EQ(bytes(), fullTable.substr(0, 18) + "longer tha\xFE\xFF\x05\0\x78\x56\x34\x12"s + blankRecord +
                           blankRecord + blankRecord);
}

TEST_F(ScoreFile, AnyLengthKeepsItsRowsAndWhatLiesBehindTheTable) {
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

TEST_F(ScoreFile, NamesAreOneByteACharacter) {
    struct {
        const char *what, *name, *bytes, *readBack;
    } const cases[] = {
        {"ASCII", "~ aZ{}\"", "~ aZ{}\"   ", "~ aZ{}\"   "},
        {"western letters", "ÀéßÿŒœŸ", "\xC0\xE9\xDF\xFF\x8C\x9C\x9F   ", "ÀéßÿŒœŸ   "},
        {"signs", "€…“”™–", "\x80\x85\x93\x94\x99\x96    ", "€…“”™–    "},
        {"other scripts", "ł中🀄Жx", "????x     ", "????x     "},
        {"control characters", "a\tb\nc\x7F\xC2\x81", "a?b?c??   ", "a?b?c??   "},
        {"broken UTF-8", "a\xE9z\xF0\x9F", "a\xE9z\xF0?     ", "aézð?     "},
        {"ten letters of two bytes each", "éééééééééé", "\xE9\xE9\xE9\xE9\xE9\xE9\xE9\xE9\xE9\xE9", "éééééééééé"},
        {"cut between characters, not bytes", "ééééééééééé", "\xE9\xE9\xE9\xE9\xE9\xE9\xE9\xE9\xE9\xE9", "éééééééééé"},
        {"empty", "", "          ", "          "},
    };
    for (const auto& row : cases) {
        gaudtHiScore[1].strName = row.name;
        gsSaveHiScore();
        EXPECT_EQ(bytes().substr(0, 10), row.bytes) << row.what;
        gaudtHiScore = {};
        gblnfReadHiScoreFile();
        EXPECT_EQ(gaudtHiScore[1].strName.text(), row.readBack) << row.what;
    }
    put("\0\x1F\x81\x8D\x8F\x90\x9D\x80\xA0 "s + blankRecord.substr(10));
    gblnfReadHiScoreFile();
    EXPECT_EQ(gaudtHiScore[1].strName.text(), "???????€\xC2\xA0 ") << "bytes that are no characters";
    gsSaveHiScore();
    EXPECT_EQ(bytes().substr(0, 10), "\0\x1F\x81\x8D\x8F\x90\x9D\x80\xA0 "s) << "and yet stay as they are";
}

TEST_F(ScoreFile, AMatchEntersByItsScoreAlone) {
    const std::string full = fullTable;
    const auto rows = [&](int first, int count) { return full.substr((first - 1) * 18, count * 18); };
    const auto entered = [](const char* score) { return "Eve       \x02\0\x03\0"s + std::string(score, 2) + "\0\0"s; };
    const std::string none = "no file";
    struct {
        const char* what;
        std::string before;
        int score;
        std::string after;  // empty: nothing enters
    } const cases[] = {
        {"the first ever", none, 1, entered("\1\0") + blankRecord + blankRecord + blankRecord + blankRecord},
        {"no score makes no file", none, 0, ""},
        {"in the middle", full, 350, rows(1, 2) + entered("\x5E\1") + rows(3, 2)},
        {"below an equal score", full, 400, rows(1, 2) + entered("\x90\1") + rows(3, 2)},
        {"on top", full, 501, entered("\xF5\1") + rows(1, 4)},
        {"into the last row", full, 101, rows(1, 4) + entered("\x65\0")},
        {"equal to the last row", full, 100, ""},
        {"below the last row", full, 99, ""},
        {"into a blank row", rows(1, 2) + blankRecord + blankRecord + blankRecord, 1,
         rows(1, 2) + entered("\1\0") + blankRecord + blankRecord},
        {"into an empty file", "", 7, entered("\7\0") + blankRecord + blankRecord + blankRecord + blankRecord},
        {"behind the rows of a short file", full.substr(0, 40), 7,
         rows(1, 2) + entered("\7\0") + blankRecord + blankRecord},
        {"into a longer file", full + "!", 450, rows(1, 1) + entered("\xC2\1") + rows(2, 3) + "!"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.what);
        fs::remove(path);
        if (row.before != none) put(row.before);
        const bool enters = !row.after.empty();
        EXPECT_EQ(endMatch(row.score), enters ? "summary name table " : "summary ");
        if (row.before == none && !enters)
            EXPECT_FALSE(fs::exists(path));
        else
            EXPECT_EQ(bytes(), enters ? row.after : row.before);
    }
    EXPECT_TRUE(sim::messages().empty());
}

TEST_F(ScoreFile, EachMatchReadsTheFileAnew) {
    EXPECT_EQ(endMatch(500, ""), "summary name table ");
    EXPECT_EQ(bytes().substr(0, 18), "          \x02\0\x03\0\xF4\x01\0\0"s) << "an empty name is a name";
    put(fullTable);
    EXPECT_EQ(endMatch(100), "summary ");
    EXPECT_EQ(endMatch(600), "summary name table ");
    EXPECT_EQ(bytes().substr(18), fullTable.substr(0, 72));
}

TEST_F(ScoreFile, WhatIsNoOrdinaryFileIsReportedAndLeftAlone) {
    const std::string noFile = "75 - Path/File access error: " + path;
    struct {
        const char* what;
        std::function<void()> make;
        std::string failure;
    } const cases[] = {
        {"a folder", [&] { fs::create_directory(path); }, noFile},
        {"a pipe", [&] { ::mkfifo(path.c_str(), 0666); }, noFile},
        {"a link to a device", [&] { fs::create_symlink("/dev/full", path); }, noFile},
        {"a link to nothing", [&] { fs::create_symlink("nowhere", path); }, "53 - File not found: " + path},
        {"a link to itself", [&] { fs::create_symlink("HiScore.dat", path); }, noFile},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.what);
        row.make();
        const auto type = fs::symlink_status(path).type();
        const size_t before = sim::messages().size();
        EXPECT_EQ(endMatch(500), "summary ") << "no name is asked for in vain";
        ASSERT_EQ(sim::messages().size(), before + 1) << "told once";
        EXPECT_EQ(sim::messages().back(), report("gblnfReadHiScoreFile", row.failure));
        gsSaveHiScore();
        ASSERT_EQ(sim::messages().size(), before + 2);
        EXPECT_EQ(sim::messages().back(), report("gsSaveHiScore", row.failure));
        EXPECT_TRUE(playsOn());
        EXPECT_EQ(fs::symlink_status(path).type(), type);
        fs::remove(path);
        EXPECT_TRUE(fs::is_empty(fs::path(path).parent_path())) << "nothing was made beside it";
    }
}

TEST_F(ScoreFile, ALinkToAFileIsThatFile) {
    const std::string elsewhere = path + ".elsewhere";
    std::ofstream(elsewhere, std::ios::binary) << fullTable;
    fs::create_symlink(elsewhere, path);
    ASSERT_TRUE(gblnfReadHiScoreFile());
    gaudtHiScore[5] = {};
    gsSaveHiScore();
    EXPECT_TRUE(fs::is_symlink(path));
    EXPECT_EQ(bytes(), fullTable.substr(0, 72) + blankRecord);
}

/// No file of this process may grow beyond so many bytes while this lives, as if the disk were full.
struct SmallDisk {
    explicit SmallDisk(rlim_t bytes) {
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &before);
        const rlimit small{bytes, before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &small);
    }
    ~SmallDisk() { ::setrlimit(RLIMIT_FSIZE, &before); }
    rlimit before{};
};

TEST_F(ScoreFile, AFullDiskAndACutOffWriteLeaveWhatWasThere) {
    for (const size_t length : {0, 30, 54, 90, 95})
        for (const size_t room : {0, 1, 17, 18, 50, 72, 89}) {
            SCOPED_TRACE(std::to_string(length) + " bytes, room for " + std::to_string(room));
            const std::string before = (fullTable + "trail").substr(0, length);
            put(before);
            const size_t messages = sim::messages().size();
            {
                const SmallDisk disk(room);
                EXPECT_EQ(endMatch(600), "summary name table ");
            }
            EXPECT_EQ(bytes(), before);
            EXPECT_EQ(scores().size(), std::min<size_t>(length / 18, 5)) << "the table is again the file's";
            ASSERT_EQ(sim::messages().size(), messages + 1) << "told once";
            EXPECT_EQ(sim::messages().back(), report("gsSaveHiScore", "61 - Disk full: " + path));
        }
    EXPECT_TRUE(playsOn());
}

/// Runs as a user without the rights of root, in a process of its own, and ends that; true must come back.
void asOrdinaryUser(const std::function<bool()>& body) {
    constexpr uid_t nobody = 65534;
    if (::geteuid() == 0 && (::setgid(nobody) != 0 || ::setuid(nobody) != 0)) std::_Exit(EXIT_FAILURE);
    std::_Exit(body() && !::testing::Test::HasFailure() ? EXIT_SUCCESS : EXIT_FAILURE);
}

using ScoreFileDeathTest = ScoreFile;

TEST_F(ScoreFileDeathTest, WithoutTheRightToWriteNothingIsLost) {
    ::testing::FLAGS_gtest_death_test_style = "fast";  // The folder is this process's own.
    put(fullTable);
    const fs::path folder = fs::path(path).parent_path();
    fs::permissions(folder, fs::perms(0755));
    fs::permissions(path, fs::perms(0444));
    const auto readingIsDenied = [&] {
        asOrdinaryUser([&] {
            EXPECT_EQ(endMatch(600), "summary ");
            EXPECT_EQ(sim::messages(), std::vector{report("gblnfReadHiScoreFile", "70 - Permission denied: " + path)});
            return playsOn();
        });
    };
    const auto ended = ::testing::ExitedWithCode(EXIT_SUCCESS);
    EXPECT_EXIT(readingIsDenied(), ended, "") << "a read-only file";
    fs::permissions(path, fs::perms(0644));
    fs::permissions(folder, fs::perms(0600));
    EXPECT_EXIT(readingIsDenied(), ended, "") << "a folder that can't be looked into";
    fs::permissions(folder, fs::perms(0755));
    EXPECT_EQ(bytes(), fullTable);

    fs::remove(path);
    fs::permissions(folder, fs::perms(0555));
    const auto savingIsDenied = [&] {
        asOrdinaryUser([&] {
            EXPECT_EQ(endMatch(600), "summary name table ");
            EXPECT_EQ(sim::messages(), std::vector{report("gsSaveHiScore", "70 - Permission denied: " + path)});
            return playsOn();
        });
    };
    EXPECT_EXIT(savingIsDenied(), ended, "") << "a read-only folder without a file";
    fs::permissions(folder, fs::perms(0755));
    EXPECT_FALSE(fs::exists(path));
}

}  // namespace
