// Sheets as they come out of the real desktop: on a printer, or as a file where there is none.

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLocalServer>
#include <QLocalSocket>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <regex>
#include <thread>

#include "platform/base/runtime.h"
#include "platform/base/uncaught.h"
#include "platform/form.h"
#include "platform/printer.h"
#include "platform/qt/print/printing.h"
#include "platform/qt/window/modules.h"
#include "tests/application.h"
#include "tests/printService.h"

namespace {

constexpr double margin = 18, columnWidth = 8.4, lineHeight = 15.86;  // points

/// Answers message boxes and keeps what they said, with their sign before it.
class Reader : public QObject {
  public:
    std::vector<std::string> messages;

    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* const box = event->type() == QEvent::Show ? dynamic_cast<QMessageBox*>(watched) : nullptr;
        if (box == nullptr) return false;
        const char* const sign = box->icon() == QMessageBox::Information ? "i " : "! ";
        messages.push_back((sign + box->windowTitle() + ": " + box->text()).toStdString());
        QTimer::singleShot(0, box, [box] { box->button(QMessageBox::Ok)->click(); });
        return false;
    }
};

/// A user with a home of their own and no printer.
class Printing : public ::testing::Test {
  protected:
    void SetUp() override {
        qputenv("LC_ALL", qEnvironmentVariable("VELMORA_TEST_LOCALE", "C.UTF-8").toLocal8Bit());
        setUpApplication();
        ASSERT_TRUE(home.isValid());
        qputenv("HOME", home.path().toLocal8Bit());
        qunsetenv("XDG_CONFIG_HOME");
        qputenv("CUPS_SERVER", home.filePath("no-service").toLocal8Bit());
        qApp->installEventFilter(&reader);
        platform::printer().font = {"Courier New", 14};
    }

    QString documents() const { return home.filePath("Documents"); }
    QString document(const char* name = "Velmora.pdf") const { return documents() + '/' + name; }

    static void printLines(const std::vector<std::vector<platform::ColumnText>>& lines) {
        for (const auto& line : lines) platform::printer().print(line);
        platform::printer().endDoc();
    }

    /// The failure that printing ends with, as "number description".
    static std::string failure() {
        try {
            printLines({{{1, "lost"}}});
            return "none";
        } catch (const RuntimeError& error) {
            return std::to_string(error.number()) + " " + error.what();
        }
    }

    QTemporaryDir home;
    Reader reader;
};

/// Whether the process has loaded a library.
bool isLoaded(const char* library) {
    QFile maps("/proc/self/maps");
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains(library);
}

// The first of the tests, since what is loaded stays.
TEST_F(Printing, NothingOfItIsLoadedBeforeTheFirstSheet) {
    for (const char* library : {"velmora_print.so", "PrintSupport", "libcups"})
        EXPECT_FALSE(isLoaded(library)) << library;
    printLines({{{1, "x"}}});
    EXPECT_TRUE(isLoaded("PrintSupport"));
}

TEST_F(Printing, WithoutAPrinterEachSheetBecomesAFileOfItsOwn) {
    platform::printer().endDoc();
    EXPECT_FALSE(QFile::exists(documents())) << "nothing printed is no sheet";
    platform::reportFailure(61, "Disk full", "Save");
    std::vector<std::string> told = {"! Error In Save: Error 61 - Disk full"};
    for (const bool bold : {false, true}) {
        const QString sheet = document(bold ? "Velmora 2.pdf" : "Velmora.pdf");
        platform::printer().font.bold = bold;
        printLines({{{1, bold ? "bold" : "plain"}}});
        told.push_back("i Velmora: No printer is set up. The sheet has been saved as\n" + sheet.toStdString());
        EXPECT_EQ(sheetIn(sheet), bold ? "bold\n" : "plain\n");
        EXPECT_EQ(outputOf("pdffonts", {sheet}).find("Bold") != std::string::npos, bold);
    }
    EXPECT_EQ(sheetIn(document()), "plain\n") << "still";
    EXPECT_EQ(reader.messages, told);
}

TEST_F(Printing, SheetsSavedAtOnceNeverTakeEachOthersName) {
    const auto entry = reinterpret_cast<platform::qt::PrintEntry*>(
        platform::qt::moduleEntry(platform::qt::printModule, platform::qt::printEntry));
    ASSERT_NE(entry, nullptr);
    constexpr size_t count = 8;
    std::array<platform::qt::PrintOutcome, count> outcomes;
    std::vector<std::thread> threads;
    for (size_t i = 0; i < count; ++i)
        threads.emplace_back([&, i] { outcomes[i] = entry({"Sheet", {{{}, {{1, std::to_string(i)}}}}}); });
    for (std::thread& thread : threads) thread.join();
    for (size_t i = 0; i < count; ++i)
        EXPECT_EQ(sheetIn(QString::fromStdString(outcomes[i].file)), std::to_string(i) + "\n")
            << outcomes[i].description;
}

TEST_F(Printing, ThePrintServiceGetsTheSheet) {
    const PrintService service(home.path(), PrintService::Queue::Accepts);
    printLines({{{3, "Name:"}, {15, "Ann"}}, {}, {{1, "x"}}});
    EXPECT_EQ(sheetIn(service.waitForJob()), "  Name:       Ann\n\nx\n");
    EXPECT_FALSE(QFile::exists(documents()));
    EXPECT_TRUE(reader.messages.empty());
}

TEST_F(Printing, ARefusedSheetIsToldAndGone) {
    {
        const PrintService service(home.path(), PrintService::Queue::Refuses);
        EXPECT_EQ(failure().substr(0, 19), "482 Printer error: ");
        platform::printer().endDoc();  // as the order form does after a failure
    }
    EXPECT_TRUE(reader.messages.empty());
    qputenv("CUPS_SERVER", home.filePath("no-service").toLocal8Bit());
    printLines({{{1, "another"}}});
    EXPECT_EQ(sheetIn(document()), "another\n");
}

TEST_F(Printing, AFileThatCannotBeMadeOrFinishedIsToldAndTakenAway) {
    constexpr auto locked = QFile::ReadOwner | QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther;
    const uid_t self = geteuid();
    const auto lock = [&] {
        constexpr uid_t nobody = 65534;
        for (const QString& folder : {documents(), home.path()}) QFile::setPermissions(folder, locked);
        ASSERT_EQ(seteuid(self == 0 ? nobody : self), 0);
    };
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit small = {100, before.rlim_max};  // bytes that a file may have
    const struct {
        std::function<void()> make;
        const char* told;
    } rows[] = {
        {[&] { EXPECT_TRUE(QFile(documents()).open(QIODevice::WriteOnly)); }, "75 Path/File access error: "},
        {[&] { QDir().mkdir(documents()), lock(); }, "70 Permission denied: "},
        {lock, "70 Permission denied: "},
        {[&] { setrlimit(RLIMIT_FSIZE, &small); }, "61 Disk full: "},
    };
    // Root passes every permission, and a user may not look into root's folders, where the program may lie.
    ASSERT_NE(platform::qt::moduleEntry(platform::qt::printModule, platform::qt::printEntry), nullptr);
    for (const auto& row : rows) {
        row.make();
        const std::string told = failure();
        setrlimit(RLIMIT_FSIZE, &before);
        ASSERT_EQ(seteuid(self), 0);
        QFile::setPermissions(home.path(), locked | QFile::WriteOwner);
        EXPECT_EQ(told, row.told + document().toStdString());
        EXPECT_TRUE(QDir(documents()).isEmpty() && reader.messages.empty());
        QFile::remove(documents());
        QDir().rmdir(documents());
    }
}

TEST_F(Printing, AColumnIsACharacterOfTheFontFromTheEdge) {
    printLines({{{1, "a"}, {30, "b"}}, {}, {{64, "c"}}, {{12, "Illi"}, {17, "WWMW"}, {22, "e"}}});
    struct {
        const char* word;
        int column, line;
    } const cases[] = {{"a", 1, 1}, {"b", 30, 1}, {"c", 64, 3}, {"Illi", 12, 4}, {"WWMW", 17, 4}, {"e", 22, 4}};
    const std::string text = outputOf("pdftotext", {"-bbox", document(), "-"});
    double bottom = 0;  // of the first line
    for (const auto& row : cases) {
        std::smatch found;
        const std::regex word(std::string("xMin=\"([0-9.]+)\" [^>]*yMax=\"([0-9.]+)\">") + row.word + "<");
        ASSERT_TRUE(std::regex_search(text, found, word)) << row.word << " in " << text;
        EXPECT_NEAR(std::stod(found[1]), margin + (row.column - 1) * columnWidth, 0.2) << row.word;
        if (bottom == 0) bottom = std::stod(found[2]);
        EXPECT_NEAR(std::stod(found[2]), bottom + (row.line - 1) * lineHeight, 0.2) << row.word;
    }
    EXPECT_NEAR(bottom, margin + lineHeight, 1);
}

TEST_F(Printing, EveryLetterTakesOneColumn) {
    const char* const cases[][2] = {
        {"Stra\u00DFe, \u00C5se", "Stra\u00DFe, \u00C5se"},
        {"\u0141\u00F3d\u017A", "\u0141\u00F3d\u017A"},
        {"\u041C\u0438\u0440", "\u041C\u0438\u0440"},
        {"Rene\u0301e", "Ren\u00E9e"},  // a mark that makes another letter
        {"q\u0301x", "?x"},             // and one that makes none
        {"\u0301x", "\u0301x"},
        {"\u9EBB\u5C06", "??"},
        {"\U0001F004x", "?x"},
        {"\U0001F468\u200D\U0001F469\u200D\U0001F467x", "?x"},  // one picture of a family
        {"a\u200Bb", "a?b"},
        {"a\xFF\xC3", "a??"},
        {"a\tb\nc", "a b c"},
    };
    std::string expected;
    for (const auto& [text, printed] : cases) {
        platform::printer().print({{1, text}, {20, "|"}});
        expected += printed + std::string(static_cast<size_t>(19 - QString(printed).size()), ' ') + "|\n";
    }
    platform::printer().endDoc();
    EXPECT_EQ(sheetIn(document()), expected);
}

TEST_F(Printing, WhatFindsNoRoomIsCutOrGoesOnBelow) {
    const std::string ruler = "123456789 123456789 123456789 123456789 123456789 123456789 123456789 123456789 ";
    std::vector<std::vector<platform::ColumnText>> lines = {
        {{1, ruler}},
        {{1, "too long"}, {5, "for it"}},
        {{3, ruler.substr(0, 61)}, {platform::columnBehind, "A Z"}},
        {{3, ruler.substr(0, 62)}, {platform::columnBehind, "A Z"}}};
    for (int line = 7; line <= 52; ++line) lines.push_back({{1, std::to_string(line)}});
    printLines(lines);
    const std::string text = sheetIn(document());
    EXPECT_EQ(text.substr(0, text.find("7\n")), ruler.substr(0, 66) + "\ntoo long\n    for it\n  " +
                                                    ruler.substr(0, 61) + "A Z\n  " + ruler.substr(0, 62) +
                                                    "\n  A Z\n");
    EXPECT_EQ(text.substr(text.find("49\n")), "49\n50\n\f51\n52\n") << "goes on to another page";
}

TEST_F(Printing, ThePaperIsTheUsualOne) {
    printLines({{{1, "x"}}});
    const std::string text = outputOf("pdftotext", {"-bbox", document(), "-"});
    const bool inAmerica = qgetenv("LC_ALL") == "en_US.UTF-8";
    EXPECT_NE(text.find(inAmerica ? "<page width=\"612" : "<page width=\"595"), std::string::npos) << text;
    if (!inAmerica) passWith("VELMORA_TEST_LOCALE=en_US.UTF-8", "Printing.ThePaper*");
}

TEST_F(Printing, ADesktopWithoutFontsPrintsInTheProgramsOwn) {
    passWith("FONTCONFIG_FILE=" + withoutFonts(home.path()), "Printing.AColumnIs*:Printing.EveryLetter*");
}

TEST_F(Printing, ASlowServiceKeepsTheFormWaitingAndServed) {
    QLocalServer service;  // It takes connections and says nothing for a while.
    const QString socket = home.filePath("slow-service");
    ASSERT_TRUE(service.listen(socket));
    qputenv("CUPS_SERVER", socket.toLocal8Bit());
    platform::Form form;
    int keys = 0, ticks = 0;
    form.onKeyDown = [&](int&) { ++keys; };
    form.resize(1500, 1500);
    form.show();
    QWidget* const window = QApplication::topLevelWidgets().front();
    QTest::keyClick(window, Qt::Key_A);
    EXPECT_EQ(keys, 1);
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
        if (++ticks < 20) return QTest::keyClick(window, Qt::Key_A);
        timer.stop();
        service.close();
        for (QLocalSocket* connection : service.findChildren<QLocalSocket*>()) connection->abort();
    });
    timer.start(10);
    printLines({{{1, "x"}}});
    EXPECT_EQ(ticks, 20) << "the window stood still";
    EXPECT_EQ(keys, 1) << "a key came through";
    QTest::keyClick(window, Qt::Key_A);
    EXPECT_EQ(keys, 2) << "the form is still blocked";
    EXPECT_EQ(reader.messages.size(), 1u);
}

}  // namespace
