// The window and its dialogs as a screen reader finds them.

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QTest>
#include <map>
#include <string>
#include <vector>

#include "match/frmChooseSeat.h"
#include "match/frmGameSummary.h"
#include "match/frmRoundsSetting.h"
#include "modZQT.h"
#include "play/frmChooseTiles.h"
#include "scoring/frmBreakDown.h"
#include "tests/windowFixture.h"

namespace {

const std::map<QAccessible::Role, std::string> roleNames = {
    {QAccessible::Window, "window"},    {QAccessible::Dialog, "dialog"},          {QAccessible::ToolBar, "toolbar"},
    {QAccessible::Button, "button"},    {QAccessible::ButtonMenu, "menu button"}, {QAccessible::StaticText, "text"},
    {QAccessible::SpinBox, "spin box"},
};

/// What is seen of an object, a line for each part that is more than decoration, two blanks a level.
void listTree(QAccessibleInterface* object, int level, std::string& lines) {
    if (object == nullptr || object->state().invisible) return;
    const auto role = roleNames.find(object->role());
    const std::string name = object->text(QAccessible::Name).toStdString();
    const std::string key = object->text(QAccessible::Accelerator).toStdString();
    const bool decoration = object->role() == QAccessible::Border || object->role() == QAccessible::Separator ||
                            (object->role() == QAccessible::StaticText && name.empty());
    if (!decoration)
        lines += std::string(static_cast<size_t>(2 * level), ' ') +
                 (role != roleNames.end() ? role->second : "role " + std::to_string(object->role())) + ": " + name +
                 (key.empty() ? "" : " [" + key + "]") + "\n";
    for (int child = 0; child < object->childCount(); ++child)
        listTree(object->child(child), level + (decoration ? 0 : 1), lines);
}

/// Keeps the name of each notification that comes up, which is what a screen reader says.
class Reader : public QObject {
  public:
    std::vector<std::string> told;

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Show) return false;
        const QAccessibleInterface* const object = QAccessible::queryAccessibleInterface(watched);
        // On a dialog it would be spoken of with the dialog's name each time.
        if (object != nullptr && object->role() == QAccessible::Notification &&
            object->parent()->role() == QAccessible::Window)
            told.push_back(object->text(QAccessible::Name).toStdString());
        return false;
    }
};

class Accessible : public Window {
  protected:
    Reader reader;

    void SetUp() override {
        Window::SetUp();
        QAccessible::setActive(true);
        qApp->installEventFilter(&reader);
    }
    void TearDown() override {
        QAccessible::setActive(false);
        Window::TearDown();
    }

    static std::string treeOf(QWidget* widget) {
        std::string lines;
        listTree(QAccessible::queryAccessibleInterface(widget), 0, lines);
        return lines;
    }

    static std::string nameOf(QWidget* widget) {
        return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name).toStdString();
    }

    /// The dialog on top.
    QWidget* dialog() const {
        QWidget* found = nullptr;
        for (QObject* child : window->children())
            if (auto* const widget = qobject_cast<QWidget*>(child); widget && widget->isVisible())
                if (QAccessible::queryAccessibleInterface(widget)->role() == QAccessible::Dialog) found = widget;
        return found;
    }

    /// The tree of a dialog that is then closed by a key.
    std::string treeOfDialog(const std::function<bool()>& isOpen, const std::function<void()>& show, Qt::Key closing) {
        std::string tree = "no dialog";
        once(isOpen, [&] {
            if (QWidget* const open = dialog()) tree = treeOf(open);
            press(closing);
        });
        show();
        return tree;
    }
};

TEST_F(Accessible, TheMainWindowHasItsToolbar) {
    std::string tree = treeOf(window);
    const size_t second = tree.find("    button: Level:Easy\n"), last = tree.find("    button: Help");
    EXPECT_EQ(tree.replace(second, last - second, "...\n"),
              "window: Velmora\n"
              "  toolbar: Toolbar\n"
              "    button: Start Anew [F2]\n"
              "...\n"
              "    button: Help [F1]\n"
              "    button: Exit\n"
              "  text: Start Anew (F2) begins a match\n");
    for (QWidget* widget : window->findChildren<QWidget*>())
        if (widget->toolTip() == "Peek:Off")
            QAccessible::queryAccessibleInterface(widget)->actionInterface()->doAction(
                QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(waitFor([&] { return game->mblnPeek; })) << "a screen reader presses it";
}

TEST_F(Accessible, DialogsHaveNamesAndTheirControlsToo) {
    EXPECT_EQ(treeOfDialog([] { return gfrmChooseSeat.isOpen(); }, [this] { click("Start Anew"); }, Qt::Key_Return),
              "dialog: Draw of the seat\n");
    game->Timer1.setEnabled(false);
    gstrScoreDesc = "Pure Suit Hand,Mixed Hand";
    glngHandPoints = 800;
    EXPECT_EQ(treeOfDialog([] { return gfrmBreakDown.isOpen(); }, [] { gfrmBreakDown.showModal(); }, Qt::Key_Escape),
              "dialog: Break-down: Pure Suit Hand,Mixed Hand. Total doubles: 6, total points: 800\n");
    EXPECT_EQ(treeOfDialog([] { return gfrmGameSummary.isOpen(); },
                           [] { gfrmGameSummary->msLoadFormVariables(4, 17, 5), gfrmGameSummary.showModal(); },
                           Qt::Key_Escape),
              "dialog: Game summary\n"
              "  text: Game Over...\n"
              "  text: +++ Game Summary +++\n"
              "  text: # Of Rounds Played\n"
              "  text: 4\n"
              "  text: # Of Games Played\n"
              "  text: 17\n"
              "  text: # Of Games Won\n"
              "  text: 5\n"
              "  text: Winning Percentage\n"
              "  text: 29.41%\n");
    EXPECT_EQ(
        treeOfDialog([] { return gfrmRoundsSetting.isOpen(); }, [this] { click("Rounds Setting"); }, Qt::Key_Escape),
        "dialog: Rounds Setting\n"
        "  text: # of Rounds\n"
        "    text: 4\n"
        "  spin box: Up or down\n"
        "  button: OK [Enter]\n"
        "  button: Cancel\n");
}

TEST_F(Accessible, NothingIsKnownOfWhatIsGone) {
    QAccessible::Id button = 0;
    whenOpen(gfrmRoundsSetting, [&] {
        for (QWidget* face : dialog()->findChildren<QWidget*>())
            if (nameOf(face) == "OK") button = QAccessible::uniqueId(QAccessible::queryAccessibleInterface(face));
        EXPECT_NE(QAccessible::accessibleInterface(button), nullptr);
        press(Qt::Key_Escape);
    });
    click("Rounds Setting");
    gfrmRoundsSetting.clear();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(QAccessible::accessibleInterface(button), nullptr);
}

TEST_F(Accessible, TilesAndOffersAreTold) {
    startMatch();
    nextTile(12);
    press(Qt::Key_Down);
    nextTile(12);
    EXPECT_EQ(reader.told, (std::vector<std::string>{"3 of Bamboo", "3 of Bamboo"}));
    EXPECT_EQ(nameOf(window), "Velmora");
    bool asked = false;
    whenOpen(gfrmChooseTiles, [&] {
        asked = true;
        EXPECT_EQ(treeOf(dialog()),
                  "dialog: Select tiles: a pair of 1 of Circles; three 1 of Circles; Pass. "
                  "Highlighted: a pair of 1 of Circles\n");
        press(Qt::Key_Right);
        EXPECT_EQ(reader.told.back(), "three 1 of Circles");
        press(Qt::Key_Right);
        EXPECT_EQ(reader.told.back(), "Pass");
        press(Qt::Key_Return);
    });
    nextTile(1);
    for (const int column : {3, 4}) game->CellTable[12][column].fill(game->TileKinds[1]);
    for (int row = 9; row <= 12; ++row) game->CellTable[row][5].empty();
    press(Qt::Key_Down);
    EXPECT_TRUE(waitFor([&] { return asked && gfrmChooseTiles.empty(); }));
}

TEST_F(Accessible, NothingIsToldWhileNobodyListens) {
    QAccessible::setActive(false);
    startMatch();
    nextTile(12);
    game->form.announce([]() -> std::string {
        ADD_FAILURE() << "a text was made";
        return "";
    });
    EXPECT_TRUE(reader.told.empty());
}

}  // namespace
