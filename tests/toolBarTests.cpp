// The toolbar of the real window, above all by keys.

#include <gtest/gtest.h>

#include <QApplication>
#include <QHelpEvent>
#include <QMenu>
#include <QTest>
#include <QToolButton>
#include <QToolTip>
#include <QWindow>

#include "hiscores/frmHiScore.h"
#include "match/frmRoundsSetting.h"
#include "tests/windowFixture.h"

namespace {

class ToolBarKeys : public Window {
  protected:
    /// The tool-tip of the button that is marked; empty while none is.
    static std::string marked() {
        const QWidget* const focus = QApplication::focusWidget();
        return focus && focus->hasFocus() ? focus->toolTip().toStdString() : "";
    }

    void goTo(const std::string& toolTip) {
        press(Qt::Key_F10);
        for (int step = 0; step < 14 && marked() != toolTip; ++step) press(Qt::Key_Right);
        EXPECT_EQ(marked(), toolTip);
    }

    /// Does something in the next menu that opens.
    void inMenu(const std::function<void(QMenu&)>& action) {
        static const auto menu = [] { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); };
        once([] { return menu() && menu()->windowHandle() == QGuiApplication::focusWindow(); },
             [action] { action(*menu()); });
    }

    /// Whether the keys go to the board: an arrow steers the tile.
    bool boardHasKeys() {
        const int column = game->mintCurCol;
        press(column > 1 ? Qt::Key_Left : Qt::Key_Right);
        return game->mintCurCol != column;
    }
};

TEST_F(ToolBarKeys, TheArrowsGoRoundTheButtonsWithTheirToolTips) {
    std::vector<std::string> row;
    for (const QToolButton* button : window->findChildren<QToolButton*>())
        if (button->isVisible()) row.push_back(button->toolTip().toStdString());
    ASSERT_EQ(row.size(), 14u);
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    EXPECT_EQ(marked(), "");
    press(Qt::Key_F10);
    for (size_t step = 0; step <= row.size(); ++step) {
        EXPECT_TRUE(QToolTip::text().startsWith(row[step % row.size()].c_str()));
        step % 2 == 0 ? press(Qt::Key_Right) : press(Qt::Key_6, Qt::KeypadModifier);
    }
    for (size_t step = row.size() + 1; step-- > 0;) {
        EXPECT_TRUE(QToolTip::text().startsWith(row[(step + 1) % row.size()].c_str()));
        step % 2 == 0 ? press(Qt::Key_Left) : press(Qt::Key_Left, Qt::KeypadModifier);
    }
    press(Qt::Key_Escape);
    EXPECT_EQ(marked(), "");
    EXPECT_TRUE(QTest::qWaitFor([] { return QToolTip::text().isEmpty(); }, 3000));
}

TEST_F(ToolBarKeys, TheMarkIsSeenWithoutAWindowManager) {
    QApplication::setActiveWindow(nullptr);  // Without one, no window is ever told that it is active.
    const auto look = [this](int left) { return window->grab({left, 0, 28, 28}).toImage(); };
    const QImage first = look(0), second = look(28);
    press(Qt::Key_F10);
    EXPECT_NE(look(0), first);
    EXPECT_EQ(QToolTip::text(), "Start Anew (F2)");
    press(Qt::Key_Right);
    EXPECT_EQ(look(0), first);
    EXPECT_NE(look(28), second);
    press(Qt::Key_Escape);
    EXPECT_EQ(look(28), second);
}

TEST_F(ToolBarKeys, ThePointerShowsTheKeyAndAClickTheNewState) {
    const QPoint pause(238, 14), peek(210, 14);
    QHelpEvent rests(QEvent::ToolTip, pause, window->mapToGlobal(pause));
    QApplication::sendEvent(window->childAt(pause), &rests);
    EXPECT_EQ(QToolTip::text(), "Pause (P)");
    for (const QPoint& place : {QPoint(600, 300), peek}) QTest::mouseMove(frame->windowHandle(), place);
    for (const char* toolTip : {"Peek:On", "Peek:Off"}) {
        QTest::mouseClick(frame->windowHandle(), Qt::LeftButton, {}, peek);
        EXPECT_EQ(QToolTip::text(), toolTip);
    }
}

TEST_F(ToolBarKeys, AButtonsOwnKeyGoesPastTheGame) {
    startMatch();
    int told = 0;
    game->form.onKeyDown = [&](int& code) { told += code == 'P' ? 1 : 0; };
    const struct {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        bool pauses;
    } rows[] = {
        {Qt::Key_P, {}, true},
        {Qt::Key_P, Qt::ShiftModifier, true},
        {Qt::Key_P, Qt::ControlModifier, false},
        {Qt::Key_P, Qt::AltModifier, false},
        {Qt::Key_Pause, {}, true},
    };
    for (const auto& row : rows) {
        press(row.key, row.modifiers);
        EXPECT_NE(game->Timer1.enabled(), row.pauses) << row.key << row.modifiers;
        game->Timer1.setEnabled(true);
    }
    EXPECT_EQ(told, 2) << "only those that aren't the button's own";
    goTo("Peek:Off");
    press(Qt::Key_P);
    EXPECT_FALSE(game->Timer1.enabled()) << "while the toolbar has the keys too";
}

TEST_F(ToolBarKeys, TheKeysAreTheToolbarsUntilItIsLeft) {
    startMatch();
    nextTile(1);
    goTo("Peek:Off");
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Down, Qt::Key_A}) press(key);
    EXPECT_EQ(game->mintCurCol, 5);
    EXPECT_EQ(game->Timer1.interval(), 400);
    EXPECT_TRUE(game->Timer1.enabled());
    EXPECT_TRUE(waitFor([&] { return game->mintCurRow > 1; })) << "the tile falls meanwhile";
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space, Qt::Key_Enter}) {
        const bool peek = game->mblnPeek;
        QTest::keyPress(window, key);
        repeat(key);
        QTest::keyRelease(window, key);
        EXPECT_EQ(game->mblnPeek, !peek) << key;
        EXPECT_EQ(marked(), peek ? "Peek:Off" : "Peek:On");
        EXPECT_EQ(QToolTip::text().toStdString(), marked());
    }
    EXPECT_FALSE(boardHasKeys());
    const struct {
        const char* what;
        std::function<void()> leave;
    } ways[] = {
        {"Esc", [this] { press(Qt::Key_Escape); }},
        {"F10, held",
         [this] {
             QTest::keyPress(window, Qt::Key_F10);
             repeat(Qt::Key_F10);
             QTest::keyRelease(window, Qt::Key_F10);
         }},
        {"a click on the board",
         [this] {
             QTest::mouseClick(frame->windowHandle(), Qt::LeftButton, {}, {600, 500});
         }},
        {"a click on a button", [this] { click("Round:(In Chinese)"), click("Round:(In English)"); }},
        {"another window",
         [] {
             QWidget other;
             other.show();
             other.activateWindow();
             EXPECT_TRUE(QTest::qWaitForWindowActive(&other));
         }},
    };
    press(Qt::Key_Escape);
    for (const auto& way : ways) {
        EXPECT_TRUE(boardHasKeys()) << way.what;
        press(Qt::Key_F10);
        EXPECT_FALSE(boardHasKeys()) << way.what;
        way.leave();
        window->activateWindow();
        EXPECT_TRUE(boardHasKeys()) << way.what;
    }
}

TEST_F(ToolBarKeys, ADialogTakesTheKeys) {
    startMatch();
    nextTile(1);
    const auto pressMarked = [this](const char* toolTip) {
        return [this, toolTip] { goTo(toolTip), press(Qt::Key_Return); };
    };
    inDialog(gfrmHiScore, pressMarked("High Scores"), [this](QWidget&) {
        press(Qt::Key_F10);
        EXPECT_EQ(marked(), "");
    });
    EXPECT_TRUE(boardHasKeys());

    gintNumRounds = 4;
    const auto setSix = [this](QWidget&) {
        for (const Qt::Key key : {Qt::Key_Up, Qt::Key_F10, Qt::Key_Up}) press(key);
    };
    inDialog(gfrmRoundsSetting, pressMarked("Rounds Setting"), setSix, Qt::Key_Return);
    EXPECT_EQ(gintNumRounds, 6);
    EXPECT_TRUE(boardHasKeys());
}

TEST_F(ToolBarKeys, TheLevelMenuOpensUnderItsButtonAndMarksTheLevelInPlay) {
    QPoint place;
    const auto chooseNext = [&](const std::function<void()>& open) {
        std::string items;
        inMenu([&](QMenu& menu) {
            place = window->mapFromGlobal(menu.pos());
            items = menu.accessibleName().toStdString() + ':';
            for (const QAction* item : menu.actions())
                items += (item->isChecked() ? " *" : " ") + item->text().toStdString();
            for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Return}) QTest::keyClick(&menu, key);
        });
        open();
        return items;
    };
    QTest::mouseMove(frame->windowHandle(), {300, 200});
    goTo("Level:Easy");
    EXPECT_EQ(chooseNext([this] { press(Qt::Key_Return); }), "Level: *Easy Medium Hard Very Hard Super Hard");
    EXPECT_EQ(place, QPoint(28, 28));
    EXPECT_EQ(game->mlngLevel, 2);
    EXPECT_EQ(marked(), "Level:Medium");
    QTest::mouseMove(frame->windowHandle(), {40, 20});
    EXPECT_EQ(chooseNext([this] { click("Level:Medium"); }), "Level: Easy *Medium Hard Very Hard Super Hard");
    EXPECT_EQ(place, window->mapFromGlobal(QCursor::pos()));
    EXPECT_EQ(game->mlngLevel, 3);
}

}  // namespace
