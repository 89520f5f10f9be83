// The score file, byte for byte, and all that can stand in its way.

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <deque>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#include "hiscores/frmGetName.h"
#include "hiscores/frmHiScore.h"
#include "match/frmGameSummary.h"
#include "modZQT.h"
#include "platform/desktop.h"
#include "platform/sim/simulation.h"
#include "tests/gameFixture.h"

namespace {

/// For the next calls of that name the error that the system tells of, or 0 for a call that goes well.
using Errors = std::map<std::string, std::deque<int>>;

Errors& comingErrors() {
    static Errors& errors = *new Errors;
    return errors;
}

off_t diskSize = 1 << 20;  // bytes that a file has room for

bool fails(const char* call) {
    std::deque<int>& coming = comingErrors()[call];
    if (coming.empty()) return false;
    errno = coming.front();
    coming.pop_front();
    return errno != 0;
}

}  // namespace

// These stand before the system's own.

int openInstead(const char* path, int flags, mode_t mode) asm("open");
int openInstead(const char* path, int flags, mode_t mode) {
    return fails("open") ? -1 : static_cast<int>(::syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

ssize_t pread(int file, void* bytes, size_t count, off_t from) {
    return fails("pread") ? -1 : ::syscall(SYS_pread64, file, bytes, count, from);
}

ssize_t pwrite(int file, const void* bytes, size_t count, off_t from) {
    if (from >= diskSize) errno = ENOSPC;
    if (from >= diskSize || fails("pwrite")) return -1;
    return ::syscall(SYS_pwrite64, file, bytes, std::min(count, static_cast<size_t>(diskSize - from)), from);
}

int close(int file) {
    const auto result = static_cast<int>(::syscall(SYS_close, file));
    return fails("close") ? -1 : result;
}

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
    ~ScoreFile() override { comingErrors().clear(); }

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
        game->mlngScore = score;
        game->mlngLevel = 3;
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

    std::string path;
    std::string meanwhile;  // what another program puts there while a name is typed; empty for nothing
    size_t heard = 0;       // messages
};

TEST_F(ScoreFile, IsByteForByteAsItIsLaidOut) {
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
        {"other scripts", "ł中🀄Жx", "????x     ", "????x     "},
        {"control characters", "a\tb\nc\x7F\xC2\x81", "a?b?c??   ", "a?b?c??   "},
        {"broken UTF-8", "a\xE9z\xF0\x9F", "a?z?      ", "a?z?      "},
        {"cut between characters, not bytes", "ééééééééééé", "\xE9\xE9\xE9\xE9\xE9\xE9\xE9\xE9\xE9\xE9", "éééééééééé"},
    };
    for (const auto& row : cases) {
        platform::FixedText<10> name;
        name = row.name;
        EXPECT_EQ(name.bytes(), row.bytes) << row.what;
        EXPECT_EQ(name.text(), row.readBack) << row.what;
    }
    const std::string specials =
        "\x80\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E\x91"
        "\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B\x9C\x9E\x9F\xA1\xC0\xE9\xDF\xFF";
    const std::string letters = "€‚ƒ„…†‡ˆ‰Š‹ŒŽ‘’“”•–—˜™š›œžŸ¡Àéßÿ";
    EXPECT_EQ(platform::toCodePage(letters), specials);
    EXPECT_EQ(platform::fromCodePage(specials), letters);
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
    struct {
        const char* what;
        std::string before;  // empty: no file
        int score;
        std::string after;  // empty: nothing enters
        std::string meanwhile = {};
    } const cases[] = {
        {"the first ever", "", 1, entered("\1\0") + blankRecord + blankRecord + blankRecord + blankRecord},
        {"no score makes no file", "", 0, ""},
        {"in the middle", full, 350, rows(1, 2) + entered("\x5E\1") + rows(3, 2)},
        {"below an equal score", full, 400, rows(1, 2) + entered("\x90\1") + rows(3, 2)},
        {"on top", full, 501, entered("\xF5\1") + rows(1, 4)},
        {"into the last row", full, 101, rows(1, 4) + entered("\x65\0")},
        {"equal to the last row", full, 100, ""},
        {"into a blank row", rows(1, 2) + blankRecord + blankRecord + blankRecord, 1,
         rows(1, 2) + entered("\1\0") + blankRecord + blankRecord},
        {"below another program's new row", full, 350,
         rows(1, 1) + entered("\xC2\1") + rows(2, 1) + entered("\x5E\1") + rows(3, 1),
         rows(1, 1) + entered("\xC2\1") + rows(2, 3)},
        {"into the file that another program has made", "", 7, rows(1, 3) + entered("\7\0") + blankRecord, rows(1, 3)},
        {"no more, since another program's row is better", full, 101, rows(1, 4) + entered("\x66\0"),
         rows(1, 4) + entered("\x66\0")},
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

TEST_F(ScoreFile, WhatIsNoOrdinaryFileIsReportedAndLeftAlone) {
    const std::string noFile = "75 - Path/File access error: ";
    struct {
        const char* what;
        std::function<void()> make;
        std::string failure;
    } const cases[] = {
        {"a folder", [&] { fs::create_directory(path); }, noFile},
        {"a pipe", [&] { ::mkfifo(path.c_str(), 0666); }, noFile},
        {"a link to a device", [&] { fs::create_symlink("/dev/full", path); }, noFile},
        {"a link to nothing", [&] { fs::create_symlink("nowhere", path); }, "53 - File not found: "},
        {"a link to itself", [&] { fs::create_symlink("HiScore.dat", path); }, noFile},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.what);
        row.make();
        const auto type = fs::symlink_status(path).type();
        EXPECT_EQ(endMatch(500), "summary ") << "no name is asked for in vain";
        EXPECT_EQ(told(), "gblnfReadHiScoreFile: Error " + row.failure) << "once";
        gsSaveHiScore();
        EXPECT_EQ(told(), "gsSaveHiScore: Error " + row.failure);
        EXPECT_TRUE(playsOn());
        EXPECT_EQ(fs::symlink_status(path).type(), type);
        fs::remove(path);
        EXPECT_TRUE(fs::is_empty(fs::path(path).parent_path())) << "nothing was made beside it";
    }
}

TEST_F(ScoreFile, AFullDiskAndACutOffWriteLeaveWhatWasThere) {
    for (const size_t length : {0, 30, 54, 90, 95})
        for (const int room : {0, 1, 17, 18, 50, 72, 89}) {
            SCOPED_TRACE(std::to_string(length) + " bytes, room for " + std::to_string(room));
            const std::string before = (fullTable + "trail").substr(0, length);
            put(before);
            diskSize = room;
            EXPECT_EQ(endMatch(600), "summary name table ");
            diskSize = 1 << 20;
            EXPECT_EQ(bytes(), before);
            EXPECT_EQ(scores().size(), std::min<size_t>(length / 18, 5)) << "the table is again the file's";
            EXPECT_EQ(told(), "gsSaveHiScore: Error 61 - Disk full: ") << "once";
        }
    EXPECT_TRUE(playsOn());
}

TEST_F(ScoreFile, WhatTheSystemTellsOfACallIsHeard) {
    const char *const full = "gsSaveHiScore: Error 61 - Disk full: ",
                      *const fault = "gsSaveHiScore: Error 57 - Device I/O error: ";
    const std::string changed = fullTable.substr(0, 72) + blankRecord;
    struct {
        const char* what;
        Errors errors;
        std::string failure, after;
    } const cases[] = {
        {"interrupted", {{"open", {EINTR}}, {"pread", {EINTR}}, {"pwrite", {EINTR}}, {"close", {EINTR}}}, "", changed},
        {"full as it is closed", {{"close", {ENOSPC}}}, full, fullTable},
        {"a quota as it is closed", {{"close", {EDQUOT}}}, full, fullTable},
        {"a fault as it is closed", {{"close", {EIO}}}, fault, fullTable},
        {"not to be put back", {{"close", {ENOSPC}}, {"pwrite", {0, EIO}}}, fault, changed},
    };
    for (const auto& row : cases) {
        put(fullTable);
        EXPECT_TRUE(gblnfReadHiScoreFile());
        gaudtHiScore[5] = {};
        comingErrors() = row.errors;
        gsSaveHiScore();
        EXPECT_EQ(bytes(), row.after) << row.what;
        EXPECT_EQ(told(), row.failure) << row.what;
    }

    put(fullTable);
    gaudtHiScore = {};
    comingErrors() = {{"pread", {0, EINTR, 0, EIO}}};
    EXPECT_FALSE(gblnfReadHiScoreFile());
    EXPECT_EQ(told(), "gblnfReadHiScoreFile: Error 57 - Device I/O error: ");
    EXPECT_EQ(scores(), std::vector({500, 400})) << "the rows before the fault";
    comingErrors() = {{"pread", {0, 0, 0, 0, 0, EIO}}};
    EXPECT_EQ(endMatch(600), "summary name ") << "a fault as it is read again";
    EXPECT_EQ(told(), "gblnfReadHiScoreFile: Error 57 - Device I/O error: ");
    EXPECT_EQ(bytes(), fullTable);
}

/// Does something without the rights of root.
void asOrdinaryUser(const std::function<void()>& body) {
    constexpr uid_t nobody = 65534;
    const uid_t self = ::geteuid();
    ASSERT_EQ(::seteuid(self == 0 ? nobody : self), 0);
    body();
    ASSERT_EQ(::seteuid(self), 0);
}

TEST_F(ScoreFile, WithoutTheRightToWriteNothingIsLost) {
    const fs::path folder = fs::path(path).parent_path();
    struct {
        const char* what;
        std::string before;  // empty: no file
        int fileRights, folderRights;
        const char *opened, *told;
    } const cases[] = {
        {"a read-only file", fullTable, 0444, 0755, "summary ", "gblnfReadHiScoreFile: Error 70 - Permission denied: "},
        {"a folder that can't be looked into", fullTable, 0644, 0600, "summary ",
         "gblnfReadHiScoreFile: Error 70 - Permission denied: "},
        {"a read-only folder without a file", "", 0, 0555, "summary name table ",
         "gsSaveHiScore: Error 70 - Permission denied: "},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.what);
        fs::remove(path);
        if (!row.before.empty()) put(row.before);
        if (!row.before.empty()) fs::permissions(path, fs::perms(row.fileRights));
        fs::permissions(folder, fs::perms(row.folderRights));
        asOrdinaryUser([&] { EXPECT_EQ(endMatch(600), row.opened); });
        fs::permissions(folder, fs::perms(0755));
        EXPECT_EQ(told(), row.told);
        EXPECT_EQ(bytes(), row.before);
        EXPECT_TRUE(scores().empty()) << "a row that was never stored";
        EXPECT_TRUE(playsOn());
    }
    EXPECT_FALSE(fs::exists(path));
}

}  // namespace
