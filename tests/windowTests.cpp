// The real window, driven by keys and clicks as a person drives it.

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QTest>
#include <QToolButton>
#include <QWindow>
#include <filesystem>
#include <functional>

#include "forms/frmOrder.h"
#include "frmMain.h"
#include "hiscores/frmHiScore.h"
#include "match/frmChooseSeat.h"
#include "platform/desktop.h"
#include "platform/pictures.h"
#include "platform/qt/controls/control.h"
#include "platform/qt/window/formWindow.h"
#include "platform/qt/window/images.h"
#include "play/frmChooseTiles.h"
#include "tests/windowFixture.h"

namespace {

TEST_F(Window, KeysSteerWhateverWasClickedAndOnEitherPad) {
    startMatch();
    nextTile(1);
    struct {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        int column;
    } const cases[] = {
        {Qt::Key_Left, Qt::NoModifier, 4},     {Qt::Key_4, Qt::KeypadModifier, 3},
        {Qt::Key_Left, Qt::KeypadModifier, 2}, {Qt::Key_Right, Qt::KeypadModifier, 3},
        {Qt::Key_6, Qt::KeypadModifier, 4},    {Qt::Key_4, Qt::NoModifier, 4},
        {Qt::Key_Right, Qt::NoModifier, 5},
    };
    for (const auto& row : cases) {
        click(game->mblnPeek ? "Peek:On" : "Peek:Off");
        QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, QPoint(600, 500));
        press(row.key, row.modifiers);
        EXPECT_EQ(game->mintCurCol, row.column);
    }
    press(Qt::Key_2, Qt::KeypadModifier);
    EXPECT_EQ(game->Timer1.interval(), dropInterval);
    press(Qt::Key_Left);
    EXPECT_EQ(game->mintCurCol, 5);
}

TEST(WindowPlace, IsOnTheScreenAndLeavesTheTableWhole) {
    struct {
        const char* what;
        QPoint wanted;
        QRect screen;
        QPoint place;
    } const rows[] = {
        {"where it wants to stand", {200, 100}, {0, 0, 1200, 800}, {200, 100}},
        {"beyond the corner", {-5, -3}, {0, 0, 1200, 800}, {0, 24}},
        {"under a bar of the desktop", {10, 10}, {0, 30, 800, 770}, {10, 54}},
        {"just high enough with its title bar", {2, 9}, {0, 0, 800, 605}, {2, 24}},
        {"too low for all of the title bar", {2, 9}, {0, 0, 800, 600}, {2, 19}},
        {"too low for the table", {2, 0}, {0, 0, 800, 570}, {2, 12}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(platform::qt::onScreen(row.wanted, 581, row.screen, 24), row.place) << row.what;
}

TEST_F(Window, ItHasAnIconForTitleBarsAndLists) {
    for (const int side : {16, 24, 32, 48, 64}) {
        const QImage file(QString(VELMORA_ASSETS "/icons/velmora-%1.png").arg(side));
        const QImage icon = frame->windowIcon().pixmap(side, side).toImage();
        EXPECT_EQ(icon, file.convertToFormat(QImage::Format_ARGB32_Premultiplied)) << side;
    }
}

TEST_F(Window, EachPictureIsThereAtEachDensity) {
    for (const platform::StoredPicture& stored : platform::storedPictures())
        for (int density = 2; density <= platform::highestDensity && !stored.name.starts_with("velmora-"); ++density) {
            const QString path = VELMORA_ASSETS "/x%1/%2.png";
            const QImage file =
                QImage(path.arg(density).arg(stored.name.data())).convertToFormat(QImage::Format_ARGB32);
            EXPECT_EQ(platform::qt::imageOf(stored.picture, density), file) << stored.name << " at " << density;
            EXPECT_EQ(file.size(), QSize(stored.picture.width, stored.picture.height) * density) << stored.name;
        }
    for (int density = 1; density <= platform::highestDensity; ++density) {
        const QString folder = density == 1 ? "pictures" : QString("x%1").arg(density);
        const QImage strip(VELMORA_ASSETS "/" + folder + "/ImageList1.png");
        const QImage icon = window->findChild<QToolButton*>()->icon().pixmap({16, 16}, density).toImage();
        const QRect middle(QPoint(6, 6) * density, QSize(4, 4) * density);
        const auto inside = [&](const QImage& image) {
            return image.convertToFormat(QImage::Format_RGB32).copy(middle);
        };
        EXPECT_EQ(inside(icon), inside(strip)) << "Start Anew at " << density;
    }
}

TEST_F(Window, AMessageStandsAsItIsUnderItsWholeTitle) {
    const QString title = "Error in a procedure with a name that is very long indeed";
    QPointer<QMessageBox> box;
    once([&] { return (box = qobject_cast<QMessageBox*>(QApplication::activeWindow())) != nullptr; },
         [&] {
             EXPECT_EQ(box->textFormat(), Qt::PlainText) << "else the path loses a folder";
             EXPECT_GE(box->width(), box->fontMetrics().horizontalAdvance(title) + 140) << "the title bar's buttons";
             EXPECT_FALSE(box->isModal()) << "else the main window's close button is dead";
             box->close();
         });
    platform::messageBox(title.toStdString(), "/games/<b>/file");
    EXPECT_TRUE(box.isNull());
}

TEST_F(Window, AMessageHasAllKeysButThoseHeldBeforeIt) {
    const auto send = [](QWidget* face, QEvent::Type type, Qt::Key key, quint64 time, bool repeat = false) {
        QKeyEvent event(type, key, Qt::NoModifier, "\r", repeat);
        event.setTimestamp(time);
        QApplication::sendEvent(face, &event);
    };
    const auto boxInFront = [] { return qobject_cast<QMessageBox*>(QApplication::activeWindow()); };
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape})
        for (const bool behind : {false, true}) {
            once(boxInFront, [&] {
                const QPointer<QMessageBox> box = boxInFront();
                if (behind) window->activateWindow();
                QTest::qWait(20);
                EXPECT_EQ(boxInFront(), box) << "it comes back to the front";
                QWidget* const face = behind ? window : box->button(QMessageBox::Ok);
                send(face, QEvent::KeyPress, key, 20, true);
                send(face, QEvent::KeyRelease, key, 30);
                send(face, QEvent::KeyPress, key, 30);  // A repeat as an X server may tell it.
                for (const Qt::Key other : {Qt::Key_F1, Qt::Key_F10}) press(other);
                EXPECT_EQ(boxInFront(), box) << key << behind;
                send(face, QEvent::KeyRelease, key, 40);
                send(face, QEvent::KeyPress, key, 50);
                EXPECT_FALSE(box->isVisible()) << key << behind;
                box->close();
            });
            send(window, QEvent::KeyPress, key, 10);
            platform::messageBox("Title", "Text");
            EXPECT_EQ(window->focusWidget(), window) << "F10 did nothing";
            send(window, QEvent::KeyRelease, key, 60);
        }
}

/// No score file lies beside the program while this lives; one that lay there comes back.
struct NoScoreFile {
    NoScoreFile() {
        if (std::filesystem::exists(path)) std::filesystem::rename(path, aside);
    }
    ~NoScoreFile() {
        std::filesystem::remove(path);
        if (std::filesystem::exists(aside)) std::filesystem::rename(aside, path);
    }
    const std::string path = platform::programFile("HiScore.dat");
    const std::string aside = path + ".aside";
};

TEST_F(Window, TheTableIsToldRowByRow) {
    const NoScoreFile noFile;
    gaudtHiScore[1] = {{}, 4, 1, 640};
    gaudtHiScore[1].strName = "Zoe x12345";
    gsSaveHiScore();
    whenOpen(gfrmHiScore, [&] {
        EXPECT_EQ(platform::qt::windowOf(gfrmHiScore->form)->accessibleName().toStdString(),
                  "Top five high scores. 1: Zoe x12345, rounds played 4, Level 1, score 640");
        press(Qt::Key_Escape);
    });
    click("High Scores");
    gaudtHiScore = {};
}

using WindowDeathTest = Window;

TEST_F(WindowDeathTest, TheWaysOutEndTheProgramFromAnywhere) {
    ::testing::FLAGS_gtest_death_test_style = "threadsafe";
    const auto letATileFall = [this] {
        startMatch();
        nextTile(1);
    };
    const auto close = [this] { window->close(); };
    struct {
        const char* what;
        std::function<void()> leave;
    } const ways[] = {
        {"idle", close},
        {"the Exit button", [&] { click("Exit"); }},
        {"a tile falling", [&] { letATileFall(), close(); }},
        {"the Exit button, a tile falling", [&] { letATileFall(), click("Exit"); }},
        {"over the draw of the seat", [&] { whenOpen(gfrmChooseSeat, close), click("Start Anew"); }},
        {"over an order, half typed",
         [&] {
             whenOpen(gfrmOrder, [&] { QTest::keyClicks(window, "Ann"), window->close(); });
             click("Order");
         }},
        {"over an offer",
         [&] {
             letATileFall();
             game->CellTable[12][4].fill(game->TileKinds[1]);
             whenOpen(gfrmChooseTiles, close);
             press(Qt::Key_Down);
             waitFor([] { return false; });
         }},
    };
    for (const auto& way : ways) EXPECT_EXIT(way.leave(), ::testing::ExitedWithCode(0), "") << way.what;
}

}  // namespace
