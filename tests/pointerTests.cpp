// The pointer on the real window: a click comes from the window system, and finds what lies under it.

#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QToolTip>
#include <QWindow>

#include "hiscores/frmHiScore.h"
#include "match/frmChooseSeat.h"
#include "platform/desktop.h"
#include "presentation/commands.h"
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
    void moveTo(const QPoint& at) { QTest::mouseMove(frame->windowHandle(), at); }

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
        QTest::mouseClick(frame->windowHandle(), button, Qt::NoModifier, at);
    }
};

TEST_F(Pointer, AtRestItChoosesNothingAndItsClickDrawsASeat) {
    const QPoint onThird(270 + 134 + 15, 163 + 108 + 20);
    {
        const Deaf deaf;
        QCursor::setPos(window->mapToGlobal(onThird));
        QApplication::processEvents();
    }
    int kind = 0;
    whenOpen(gfrmChooseSeat, [&] {
        kind = gfrmChooseSeat->malngSeatTiles[3];
        EXPECT_EQ(gfrmChooseSeat->mintSelTile, 1);
        restAt(onThird);
        EXPECT_EQ(gfrmChooseSeat->mintSelTile, 1);
        moveTo(onThird + QPoint(1, 0));
        EXPECT_EQ(gfrmChooseSeat->mintSelTile, 3);
        clickAt(onThird, Qt::RightButton);
        EXPECT_FALSE(gfrmChooseSeat->mblnDrawn);
        clickAt(onThird);
    });
    command::startAnew(*game);
    EXPECT_EQ(game->mlngSeat, kind - 27);
}

TEST_F(Pointer, AToolButtonUnderItRisesUnlessSomethingIsOnTop) {
    const QPoint middle(126, 14), edge(112, 14);  // of the button of the high scores
    const auto edgeOnScreen = [&] {
        QApplication::processEvents();
        return window->screen()->grabWindow(frame->winId()).toImage().pixel(edge);
    };
    const QRgb flat = edgeOnScreen();
    QCursor::setPos(window->mapToGlobal(middle));  // Where this desktop thinks it is, when a dialog comes or goes.
    moveTo({600, 14});
    moveTo(middle);
    EXPECT_NE(edgeOnScreen(), flat);
    int shown = 0;
    const auto seeFlat = [&] {
        ++shown;
        EXPECT_EQ(edgeOnScreen(), flat);
        QHelpEvent rests(QEvent::ToolTip, middle, window->mapToGlobal(middle));
        QApplication::sendEvent(window->childAt(middle), &rests);
        EXPECT_EQ(QToolTip::text(), "");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    };
    whenOpen(gfrmHiScore, seeFlat);
    clickAt(middle);
    const auto rises = [&] { return edgeOnScreen() != flat; };
    EXPECT_TRUE(waitFor(rises));
    const auto boxHasKeys = [] { return dynamic_cast<QPushButton*>(QApplication::focusWidget()) != nullptr; };
    once(boxHasKeys, seeFlat);
    platform::messageBox("Title", "Text");
    EXPECT_TRUE(waitFor(rises));
    EXPECT_EQ(shown, 2);
}

}  // namespace
