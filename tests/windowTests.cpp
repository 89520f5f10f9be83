// The real window, driven by keys and clicks as a person drives it.

#include <gtest/gtest.h>

#include <QApplication>
#include <QPointer>
#include <QTest>
#include <QToolButton>
#include <QWindow>
#include <functional>

#include "forms/frmOrder.h"
#include "frmMain.h"
#include "match/frmChooseSeat.h"
#include "match/frmRoundsSetting.h"
#include "platform/desktop.h"
#include "platform/pictures.h"
#include "platform/qt/controls/control.h"
#include "platform/qt/window/formWindow.h"
#include "platform/qt/window/images.h"
#include "play/frmChooseTiles.h"
#include "presentation/helpPictures.h"
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
        const QImage faces(VELMORA_ASSETS "/" + folder + "/picAllTiles.png");
        const QImage icon = window->findChildren<QToolButton*>()[2]->icon().pixmap({16, 16}, density).toImage();
        const auto part = [&](const QImage& image, int left, int side) {
            return image.convertToFormat(QImage::Format_RGB32)
                .copy({QPoint(left, 6) * density, QSize(side, side) * density});
        };
        platform::setDensity(density);
        const auto inHelp = [&](const char* name) {
            const platform::HelpPicture made = gudtfHelpPicture(name);
            return QImage(reinterpret_cast<const uchar*>(made.pixels.data()), made.width * density,
                          made.height * density, QImage::Format_ARGB32)
                .copy();
        };
        EXPECT_EQ(part(icon, 6, 4), part(strip, 38, 4)) << "Break Down at " << density;
        EXPECT_EQ(part(inHelp("icon:3"), 6, 4), part(strip, 38, 4)) << "in the help at " << density;
        EXPECT_EQ(part(inHelp("tiles:c1,b1"), 39, 18), part(faces, 276, 18)) << "a tile in the help at " << density;
    }
    platform::setDensity(1);
}

TEST_F(Window, AMessageStandsAsItIsUnderItsWholeTitle) {
    const QString title = "Error in a procedure with a name that is very long indeed";
    QPointer<QMessageBox> shown;
    once(box, [&] {
        shown = box();
        EXPECT_EQ(shown->textFormat(), Qt::PlainText) << "else the path loses a folder";
        EXPECT_GE(shown->width(), shown->fontMetrics().horizontalAdvance(title) + 140) << "the title bar's buttons";
        EXPECT_FALSE(shown->isModal()) << "else the main window's close button is dead";
        shown->close();
    });
    platform::messageBox(title.toStdString(), "/games/<b>/file");
    EXPECT_TRUE(shown.isNull());
}

TEST_F(Window, AMessageHasAllKeysButThoseHeldBeforeIt) {
    const auto send = [](QWidget* face, QEvent::Type type, Qt::Key key, quint64 time, bool repeat = false) {
        QKeyEvent event(type, key, Qt::NoModifier, "\r", repeat);
        event.setTimestamp(time);
        QApplication::sendEvent(face, &event);
    };
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape})
        for (const bool behind : {false, true}) {
            once(box, [&] {
                const QPointer<QMessageBox> first = box();
                if (behind) window->activateWindow();
                QTest::qWait(20);
                EXPECT_EQ(box(), first) << "it comes back to the front";
                QWidget* const face = behind ? window : first->button(QMessageBox::Ok);
                send(face, QEvent::KeyPress, key, 20, true);
                send(face, QEvent::KeyRelease, key, 30);
                send(face, QEvent::KeyPress, key, 30);  // A repeat as an X server may tell it.
                for (const Qt::Key other : {Qt::Key_F1, Qt::Key_F10}) press(other);
                EXPECT_EQ(box(), first) << key << behind;
                send(face, QEvent::KeyRelease, key, 40);
                send(face, QEvent::KeyPress, key, 50);
                EXPECT_FALSE(first->isVisible()) << key << behind;
                first->close();
            });
            send(window, QEvent::KeyPress, key, 10);
            platform::messageBox("Title", "Text");
            EXPECT_EQ(window->focusWidget(), window) << "F10 did nothing";
            send(window, QEvent::KeyRelease, key, 60);
        }
    const auto closeAndTell = [&](QWidget& /*dialog*/) {
        once(box, [&] {
            const QPointer<QMessageBox> first = box();
            press(Qt::Key_Return);
            EXPECT_FALSE(first->isVisible()) << "while the dialog that has closed isn't left yet";
            first->close();
        });
        gfrmRoundsSetting->form.unload();
        platform::messageBox("Title", "Text");
    };
    inDialog(
        gfrmRoundsSetting, [this] { click("Rounds Setting"); }, closeAndTell);
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
