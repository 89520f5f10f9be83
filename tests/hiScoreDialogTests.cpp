// The view of the table of high scores, and the dialog that asks for a name.

#include <filesystem>

#include "hiscores/frmGetName.h"
#include "hiscores/frmHiScore.h"
#include "modZQT.h"
#include "platform/base/text.h"
#include "platform/desktop.h"
#include "platform/pictures.h"
#include "platform/sim/simulation.h"
#include "presentation/buttons.h"
#include "tests/gameFixture.h"
#include "tests/seenText.h"

namespace {

using namespace platform::key;

constexpr platform::Color grey = 0x404040, dark = 0;

struct Row {
    const char* name;
    int rounds, level, score;
};

class HiScoreDialogs : public GameFixture {
  protected:
    static void putTable(const std::vector<Row>& rows) {
        gaudtHiScore = {};
        int number = 0;
        for (const Row& row : rows) {
            HiScoreRecord& record = gaudtHiScore[++number];
            record = {platform::toCodePage(row.name), narrow16(row.rounds), narrow16(row.level), row.score};
        }
        gsSaveHiScore();
        gaudtHiScore = {};
    }

    /// Opens the table by its button, does something there and leaves it.
    static void inTable(const std::function<void()>& action) {
        inDialog(Button::HighScores, [&] {
            action();
            sim::pressKey(Escape);
        });
    }
};

std::string texts(const platform::Surface& surface) {
    std::string all;
    for (const platform::PrintedText& text : surface.texts) {
        EXPECT_EQ(text.font.name, "Times New Roman");
        EXPECT_EQ(text.font.points, 12);
        EXPECT_TRUE(text.font.bold);
        EXPECT_TRUE(text.color == grey || text.color == dark) << text.color;
        all += (text.color == grey ? "grey " : "") + text.text + '@' + std::to_string(text.left) + ',' +
               std::to_string(text.top) + '\n';
    }
    return all;
}

TEST_F(HiScoreDialogs, TheTableStandsWhereItsPictureHasRoom) {
    putTable(
        {{"ANN", 4, 2, 123456}, {" Zoë €", 100, 5, 500}, {"          ", 1, 1, 7}, {"x", 9, 9, 0}, {"bad", 1, 1, -12}});
    inTable([&] {
        EXPECT_EQ(gfrmHiScore->form.left() - game->form.left(), 147.5 * 15);
        EXPECT_EQ(gfrmHiScore->form.top() - game->form.top(), 115 * 15);
        // A letter of this size is nine pixels wide here, so that the scores end at 445.
        EXPECT_EQ(texts(gfrmHiScore->form.surface()), seenText("hiScores"));
        const platform::Surface ground(platform::pictureByName("104"));
        int different = 0;
        for (int y = 0; y < 351; ++y)
            for (int x = 0; x < 500; ++x)
                if (gfrmHiScore->form.surface().point(x, y) != ground.point(x, std::min(y, 349))) ++different;
        EXPECT_EQ(different, 0) << "the picture, its last line twice";
    });
}

TEST_F(HiScoreDialogs, TheTableIsReadAnewAtEachShowing) {
    gaudtHiScore = {};
    inTable([] { EXPECT_EQ(texts(gfrmHiScore->form.surface()), "") << "no file yet"; });
    EXPECT_FALSE(std::filesystem::exists(platform::programFile("HiScore.dat")));
    putTable({{"A", 1, 1, 5}});
    inTable([] { EXPECT_NE(texts(gfrmHiScore->form.surface()).find("A@66"), std::string::npos); });
    putTable({{"B", 1, 1, 5}});
    inTable([] { EXPECT_EQ(texts(gfrmHiScore->form.surface()).find("A@66"), std::string::npos); });
    std::filesystem::remove(platform::programFile("HiScore.dat"));
    std::filesystem::create_directory(platform::programFile("HiScore.dat"));
    inTable([] { EXPECT_EQ(sim::messages().size(), 1u) << "told once, and shown all the same"; });
}

TEST_F(HiScoreDialogs, TheNameDialogTellsTheScoreAndTakesWhatTheKeysMayType) {
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
