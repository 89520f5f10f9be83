// The score file, byte for byte, all that can stand in its way, the view of its table, and the dialog that asks for a
// name.

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
#include "platform/base/text.h"
#include "platform/desktop.h"
#include "platform/pictures.h"
#include "platform/sim/simulation.h"
#include "tests/gameFixture.h"
#include "tests/seenText.h"

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
    ~HiScores() override { comingErrors().clear(); }

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
            sim::pressKey(Enter);
        });
        sim::runFor(1000);
        sim::setHands({});
        EXPECT_FALSE(game->mblnGameRunning);
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

    /// Opens the view of the table by its button, does something there and leaves it.
    static void inTable(const std::function<void()>& action) {
        inDialog(Button::HighScores, [&] {
            action();
            sim::pressKey(Escape);
        });
    }

    std::string path;
    std::string meanwhile;  // what another program puts there while a name is typed; empty for nothing
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
        std::string after = {};  // what the file holds; empty: as before
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
    const auto calls = [](const Errors& errors) { return [=] { comingErrors() = errors; }; };
    const auto atEnd = [&](int closing, const std::deque<int>& writing = {}) {
        return calls({{"close", {0, 0, closing}}, {"pwrite", writing}});
    };
    const Errors interrupted = {{"open", {EINTR}}, {"pread", {EINTR}}, {"pwrite", {EINTR}}, {"close", {0, 0, EINTR}}};
    const auto onTop = record("Eve", 2, 3, 600) + fullTable.substr(0, 72);
    const std::string one = "summary ", two = "summary name ", all = "summary name table ",
                      read = "gblnfReadHiScoreFile: Error ", save = "gsSaveHiScore: Error ",
                      noFile = "75 - Path/File access error: ", missing = "53 - File not found: ",
                      denied = "70 - Permission denied: ", full = "61 - Disk full: ", fault = "57 - Device I/O error: ";
    std::vector<Fault> faults = {
        {"a folder", "", [&] { fs::create_directory(path); }, one, read + noFile, 0, Type::directory},
        {"a pipe", "", [&] { ::mkfifo(path.c_str(), 0666); }, one, read + noFile, 0, Type::fifo},
        {"a link to a device", "", link("/dev/full"), one, read + noFile, 0, Type::symlink},
        {"a link to nothing", "", link("nowhere"), one, read + missing, 0, Type::symlink},
        {"a link to itself", "", link("HiScore.dat"), one, read + noFile, 0, Type::symlink},
        {"a read-only file", fullTable, rights(0444, 0755), one, read + denied, 0},
        {"a folder that can't be looked into", fullTable, rights(0644, 0600), one, read + denied, 0},
        {"a read-only folder", "", rights(0, 0555), all, save + denied, 0, Type::not_found},
        {"full as it is closed", fullTable, atEnd(ENOSPC), all, save + full, 5},
        {"a quota as it is closed", fullTable, atEnd(EDQUOT), all, save + full, 5},
        {"a fault as it is closed", fullTable, atEnd(EIO), all, save + fault, 5},
        {"not put back", fullTable, atEnd(ENOSPC, {0, EIO}), all, save + fault, 5, Type::regular, onTop},
        {"a fault in the third row", fullTable, calls({{"pread", {0, EINTR, 0, EIO}}}), one, read + fault, 2},
        {"as it is read again", fullTable, calls({{"pread", {0, 0, 0, 0, 0, EIO}}}), two, read + fault, 5},
        {"interrupted", fullTable, calls(interrupted), all, "", 5, Type::regular, onTop},
    };
    for (const int length : {0, 30, 54, 90, 95})
        for (const int room : {0, 1, 17, 18, 50, 72, 89}) {
            const auto make = [=] { diskSize = room; };
            const std::string what = std::to_string(length) + " bytes, room for " + std::to_string(room);
            faults.push_back(
                {what, (fullTable + "trail").substr(0, length), make, all, save + full, std::min(length / 18, 5)});
        }
    for (const Fault& row : faults) {
        SCOPED_TRACE(row.what);
        gaudtHiScore = {};
        if (!row.before.empty()) put(row.before);
        row.make();
        EXPECT_EQ(endMatch(600), row.opened) << "no name is asked for in vain";
        ASSERT_EQ(::seteuid(self), 0);
        fs::permissions(folder, fs::perms(0755));
        comingErrors().clear();
        diskSize = 1 << 20;
        EXPECT_EQ(told(), row.told);
        const auto isFilled = [](const HiScoreRecord& record) { return record.lngScore != 0; };
        EXPECT_EQ(std::ranges::count_if(gaudtHiScore, isFilled), row.rows) << "no row that was never stored";
        startMatch();
        sim::runFor(2000);
        EXPECT_TRUE(game->mblnGameRunning && game->mintTilesDropped == 1) << "another match can be played";
        EXPECT_EQ(fs::symlink_status(path).type(), row.type);
        EXPECT_EQ(row.type == Type::regular ? bytes() : "", row.after.empty() ? row.before : row.after);
        fs::remove(path);
        EXPECT_TRUE(fs::is_empty(folder)) << "nothing was made beside it";
    }
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
    inTable([&] {
        EXPECT_EQ(gfrmHiScore->form.left() - game->form.left(), 147.5 * 15);
        EXPECT_EQ(gfrmHiScore->form.top() - game->form.top(), 115 * 15);
        // A letter of this size is nine pixels wide here, so that the scores end at 445.
        EXPECT_EQ(texts(), seenText("hiScores"));
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
