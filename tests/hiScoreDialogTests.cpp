// The view of the table of high scores, and the dialog that asks for a name.

#include <filesystem>
#include <fstream>

#include "hiscores/frmGetName.h"
#include "hiscores/frmHiScore.h"
#include "modZQT.h"
#include "platform/desktop.h"
#include "platform/pictures.h"
#include "platform/sim/simulation.h"
#include "presentation/buttons.h"
#include "tests/gameFixture.h"

namespace {

using namespace platform::key;

constexpr platform::Color grey = 0x404040, dark = 0;

struct Row {
    const char* name;
    int rounds, level, score;
};

class HiScoreDialogs : public GameFixture {
  protected:
    void SetUp() override {
        GameFixture::SetUp();
        gaudtHiScore = {};
    }

    static void putTable(const std::vector<Row>& rows) {
        gaudtHiScore = {};
        int number = 0;
        for (const Row& row : rows) {
            HiScoreRecord& record = gaudtHiScore[++number];
            record.strName = row.name;
            record.intRounds = narrow16(row.rounds);
            record.intLevel = narrow16(row.level);
            record.lngScore = row.score;
        }
        gsSaveHiScore();
        gaudtHiScore = {};
    }

    /// Opens the table by its button, does something there and leaves it.
    static void inTable(const std::function<void()>& action) {
        bool done = false;
        sim::post([&] {
            ASSERT_TRUE(gfrmHiScore.isOpen());
            action();
            done = true;
            sim::pressKey(Escape);
        });
        sim::clickToolButton(Button::HighScores);
        EXPECT_TRUE(done);
    }

    /// Opens the dialog for a score and does something there; it must close by that.
    static void inDialog(int32_t score, const std::function<void()>& action) {
        sim::post(action);
        gfrmGetName->msLoadFormVariables(score);
        gfrmGetName.showModal();
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
        EXPECT_EQ(texts(gfrmHiScore->form.surface()),
                  "grey ANN@65,137\ngrey 4@229,137\ngrey 2@321,137\ngrey 123456@390,137\n"
                  "ANN@66,138\n4@230,138\n2@322,138\n123456@391,138\n"
                  "grey Zoë €@65,169\ngrey 100@229,169\ngrey 5@321,169\ngrey 500@417,169\n"
                  "Zoë €@66,170\n100@230,170\n5@322,170\n500@418,170\n"
                  "grey @65,201\ngrey 1@229,201\ngrey 1@321,201\ngrey 7@435,201\n"
                  "@66,202\n1@230,202\n1@322,202\n7@436,202\n"
                  "grey bad@65,265\ngrey 1@229,265\ngrey 1@321,265\ngrey -12@417,265\n"
                  "bad@66,266\n1@230,266\n1@322,266\n-12@418,266\n");
        const platform::Surface ground(platform::pictureByName("104"));
        int different = 0;
        for (int y = 0; y < 351; ++y)
            for (int x = 0; x < 500; ++x)
                if (gfrmHiScore->form.surface().point(x, y) != ground.point(x, std::min(y, 349))) ++different;
        EXPECT_EQ(different, 0) << "the picture, its last line twice";
    });
}

TEST_F(HiScoreDialogs, TheTableIsReadAnewAtEachShowing) {
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

TEST_F(HiScoreDialogs, ANameIsWhatTheKeysMayType) {
    struct {
        const char* what;
        std::function<void()> type;
        const char* name;
    } const cases[] = {
        {"either case", [] { sim::typeText("aBcXyZ 09"); }, "aBcXyZ 09"},
        {"signs", [] { sim::typeText("~!@#$%^&*("); }, "~!@#$%^&*("},
        {"more signs", [] { sim::typeText(")_+`-={}|["); }, ")_+`-={}|["},
        {"the last signs", [] { sim::typeText("]\\:\";'<>?,./"); }, "]\\:\";'<>?,"},
        {"a stop and a slash", [] { sim::typeText("./"); }, "./"},
        {"other letters are dropped", [] { sim::typeText("Zoë£中x"); }, "Zox"},
        {"an eleventh key is refused", [] { sim::typeText("12345678901"); }, "1234567890"},
        {"nothing is trimmed", [] { sim::typeText("  a "); }, "  a "},
        {"other keys close nothing",
         [] {
             for (const int key : {int{Escape}, int{Tab}, int{Left}, int{Up}}) sim::pressKey(key);
             EXPECT_TRUE(gfrmGetName.isOpen());
         },
         ""},
    };
    for (const auto& row : cases) {
        inDialog(1, [&] {
            row.type();
            sim::pressKey(Enter);
        });
        EXPECT_EQ(gfrmGetName->mprpName(), row.name) << row.what;
    }
}

TEST_F(HiScoreDialogs, TheNameDialogTellsTheScoreAndBeginsEmpty) {
    const frmGetName* const object = gfrmGetName.hold().get();
    EXPECT_EQ(gfrmGetName->mprpName(), "");
    inDialog(1234567, [&] {
        EXPECT_TRUE(gfrmGetName->txtName.hasFocus());
        sim::typeText("Ann");
        sim::pressKey(Enter);
    });
    inDialog(-5, [&] {
        EXPECT_EQ(gfrmGetName->mprpName(), "Ann") << "as long as no other is accepted";
        EXPECT_EQ(gfrmGetName->txtName.text(), "");
        EXPECT_EQ(gfrmGetName->sspCongratulations.caption(), "Congratulations!  You Have A High Score Of -5!");
        gfrmGetName->txtName.setText("Bob");
        gfrmGetName->txtName.setEnabled(false);  // Enter then comes to the form alone.
        sim::pressKey(Space);
        EXPECT_TRUE(gfrmGetName.isOpen());
        sim::pressKey(Enter);
    });
    EXPECT_EQ(gfrmGetName->mprpName(), "Bob");
    EXPECT_EQ(gfrmGetName.hold().get(), object);
    EXPECT_FALSE(gfrmGetName.isOpen());
    gfrmGetName->txtName.setEnabled(true);
}

}  // namespace
