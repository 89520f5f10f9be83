// The pointer on the real window: a click comes from the window system, and finds what lies under it.

#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QWindow>

#include "hiscores/frmHiScore.h"
#include "match/frmChooseSeat.h"
#include "match/frmGameSummary.h"
#include "modZQT.h"
#include "platform/desktop.h"
#include "play/frmChooseTiles.h"
#include "scoring/frmBreakDown.h"
#include "tests/windowFixture.h"

namespace {

/// While it lives nothing hears the pointer move, as when it comes with another window in front.
class Deaf : public QObject {
  public:
    Deaf() { qApp->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override { return event->type() == QEvent::MouseMove; }
};

/// The window with a pointer over it; places are pixels of the window.
class Pointer : public Window {
  protected:
    void moveTo(const QPoint& at) { QTest::mouseMove(window->windowHandle(), at); }

    /// What a window that comes up under a pointer at rest is told.
    void restAt(const QPoint& at) {
        QWidget* const under = window->childAt(at);
        ASSERT_NE(under, nullptr);
        const QPointF place = window->mapToGlobal(at);
        QMouseEvent move(QEvent::MouseMove, under->mapFromGlobal(place), place, Qt::NoButton, Qt::NoButton, {});
        QApplication::sendEvent(under, &move);
    }

    void clickAt(const QPoint& at, Qt::MouseButton button = Qt::LeftButton) {
        moveTo(at);
        QTest::mouseClick(window->windowHandle(), button, Qt::NoModifier, at);
    }

    /// Has the next tile complete a pair and a trio; returns when that is done while they are offered.
    void whileOffered(const std::function<void()>& action) {
        bool asked = false;
        once([] { return gfrmChooseTiles.isOpen(); },
             [&] {
                 action();
                 asked = true;
             });
        nextTile(1);
        for (const int column : {3, 4}) game->CellTable[12][column].fill(game->TileKinds[1]);
        press(Qt::Key_Down);
        EXPECT_TRUE(waitFor([&] { return asked && gfrmChooseTiles.empty(); }));
    }

    const QPoint onPair{365, 460}, onTrio{470, 460}, onPass{560, 460}, besideThem{460, 570};
};

TEST_F(Pointer, AClickDrawsASeat) {
    int kind = 0;
    once([] { return gfrmChooseSeat.isOpen(); },
         [&] {
             kind = gfrmChooseSeat->malngSeatTiles[3];
             clickAt({270 + 10, 163 + 10});
             clickAt({270 + 134 + 15, 163 + 108 + 20}, Qt::RightButton);
             EXPECT_FALSE(gfrmChooseSeat->mblnDrawn);
             EXPECT_EQ(gfrmChooseSeat->mintSelTile, 3);
             clickAt({270 + 134 + 15, 163 + 108 + 20});
         });
    click("Start Anew");
    EXPECT_EQ(game->mlngSeat, kind - 27);
}

TEST_F(Pointer, AClickAnswersAnOffer) {
    const struct {
        QPoint at;
        int taken;
    } rows[] = {{onPair, 2}, {onTrio, 3}, {onPass, 0}};
    startMatch();
    for (const auto& row : rows) {
        game->msInitNewGame();
        whileOffered([&] {
            for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) clickAt(row.at, button);
            clickAt(besideThem);
            EXPECT_TRUE(gfrmChooseTiles.isOpen());
            clickAt(row.at);
        });
        EXPECT_EQ(game->mintHandCount, row.taken) << row.at.x();
    }
}

TEST_F(Pointer, AtRestItChoosesNothing) {
    startMatch();
    {
        const Deaf deaf;
        QCursor::setPos(window->mapToGlobal(onTrio));
        QApplication::processEvents();
    }
    whileOffered([this] {
        EXPECT_EQ(gfrmChooseTiles->mintCurEntry, 1);
        restAt(onTrio);
        EXPECT_EQ(gfrmChooseTiles->mintCurEntry, 1);
        moveTo(onTrio + QPoint(1, 0));
        EXPECT_EQ(gfrmChooseTiles->mintCurEntry, 2);
        press(Qt::Key_Left);
        EXPECT_EQ(gfrmChooseTiles->mintCurEntry, 1);
        moveTo(besideThem);
        EXPECT_EQ(gfrmChooseTiles->mintCurEntry, 1);
        press(Qt::Key_Enter);
    });
}

TEST_F(Pointer, AClickClosesWhatIsOnlyRead) {
    const struct {
        const char* what;
        void (*show)();
        bool (*isOpen)();
        QPoint places[3];
    } dialogs[] = {
        {"break-down",
         [] { gfrmBreakDown.showModal(); },
         [] { return gfrmBreakDown.isOpen(); },
         {{65, 222}, {400, 300}, {730, 550}}},
        {"summary",
         [] { gfrmGameSummary->msLoadFormVariables(4, 17, 5), gfrmGameSummary.showModal(); },
         [] { return gfrmGameSummary.isOpen(); },
         {{222, 152}, {400, 280}, {475, 350}}},
        {"high scores",
         [] { gfrmHiScore.showModal(); },
         [] { return gfrmHiScore.isOpen(); },
         {{148, 116}, {400, 280}, {646, 465}}},
    };
    for (const auto& dialog : dialogs)
        for (const QPoint& at : dialog.places) {
            bool closed = false;
            once(dialog.isOpen, [&] {
                clickAt({60, 40});
                clickAt(at, Qt::RightButton);
                EXPECT_TRUE(dialog.isOpen()) << dialog.what;
                clickAt(at);
                closed = !dialog.isOpen();
                if (!closed) press(Qt::Key_Escape);
            });
            dialog.show();
            EXPECT_TRUE(closed) << dialog.what << ' ' << at.x() << ' ' << at.y();
        }
}

TEST_F(Pointer, AToolButtonUnderItRisesUnlessSomethingIsOnTop) {
    const QPoint middle(126, 14), edge(112, 14);  // of the button of the high scores
    const auto edgeOnScreen = [&] {
        QApplication::processEvents();
        return window->screen()->grabWindow(window->winId()).toImage().pixel(edge);
    };
    const QRgb flat = edgeOnScreen();
    moveTo({600, 14});
    moveTo(middle);
    EXPECT_NE(edgeOnScreen(), flat);
    int shown = 0;
    const auto seeFlat = [&] {
        ++shown;
        EXPECT_EQ(edgeOnScreen(), flat);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    };
    once([] { return gfrmHiScore.isOpen(); }, seeFlat);
    clickAt(middle);
    EXPECT_NE(edgeOnScreen(), flat);
    const auto boxHasKeys = [] { return dynamic_cast<QPushButton*>(QApplication::focusWidget()) != nullptr; };
    once(boxHasKeys, seeFlat);
    platform::messageBox("Title", "Text");
    EXPECT_NE(edgeOnScreen(), flat);
    EXPECT_EQ(shown, 2);
}

}  // namespace
