// The help window beside the game.

#include <sys/stat.h>

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextTable>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QWheelEvent>
#include <map>
#include <set>

#include "platform/help.h"
#include "tests/windowFixture.h"

namespace {

class Help : public Window {
  protected:
    /// The help window if it is on the screen.
    static QWidget* help() {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (widget->isVisible() && widget->windowTitle() == "Velmora Help") return widget;
        return nullptr;
    }

    void openHelp() {
        click("Help");
        ASSERT_NE(help(), nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowActive(help()));
    }

    template <class Part>
    static Part& part() {
        return *help()->findChild<Part*>();
    }
    static QTextBrowser& page() { return part<QTextBrowser>(); }

    /// What the search tells.
    static QString found() {
        for (const QLabel* label : help()->findChildren<QLabel*>())
            if (label->isVisible()) return label->text();
        return "no label";
    }

    static void pressInHelp(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }

    static QString textAtTop() {
        const bool scrolled = page().verticalScrollBar()->value() > 20;
        return page().cursorForPosition(QPoint(30, scrolled ? 6 : 20)).block().text();
    }

    /// The headings in the file as they stand in it, those below a chapter further to the right.
    static QStringList headingsInFile() {
        QFile file(VELMORA_ASSETS "/ZQT.hlp");
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        QStringList headings;
        for (const QString& line : QString::fromUtf8(file.readAll()).split('\n'))
            if (line.startsWith('#')) headings += QString(line.indexOf(' '), '>').mid(2) + line.section(' ', 1);
        return headings;
    }

    static QList<QTreeWidgetItem*> contents() {
        QList<QTreeWidgetItem*> items;
        for (QTreeWidgetItemIterator at(&part<QTreeWidget>()); *at; ++at) items += *at;
        return items;
    }

    /// Whether the heading has come to the top, or as near as the end of the text lets it.
    static bool shows(const QString& heading) {
        const QScrollBar& bar = *page().verticalScrollBar();
        if (bar.value() < bar.maximum()) return textAtTop() == heading;
        QTextBlock block = page().document()->begin();
        while (block.isValid() && (block.blockFormat().headingLevel() == 0 || block.text() != heading))
            block = block.next();
        return page().viewport()->rect().contains(page().cursorRect(QTextCursor(block)));
    }
};

TEST_F(Help, OpensOnceAndComesBackToTheFront) {
    for (const QWidget* widget : QApplication::topLevelWidgets())
        EXPECT_EQ(widget->findChild<QTextBrowser*>(), nullptr) << "nothing of it is there before it is asked for";
    openHelp();
    QWidget* const first = help();
    EXPECT_EQ(textAtTop(), "Velmora");
    EXPECT_FALSE(first->isModal());
    EXPECT_TRUE(first->screen()->availableGeometry().contains(first->frameGeometry()));
    window->showMinimized();
    EXPECT_EQ(help(), first) << "it isn't minimised with the game";
    window->showNormal();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    openHelp();
    EXPECT_EQ(help(), first);
    first->showMinimized();
    openHelp();
    EXPECT_EQ(help(), first);
    EXPECT_FALSE(first->isMinimized());
}

TEST_F(Help, ItsContentsListAllHeadingsAndLeadToThem) {
    openHelp();
    QStringList listed;
    for (const QTreeWidgetItem* item : contents()) {
        listed += item->text(0);
        while ((item = item->parent())) listed.back().prepend('>');
    }
    EXPECT_EQ(listed, headingsInFile());
    QTreeWidget& tree = part<QTreeWidget>();
    for (QTreeWidgetItem* item : contents()) {
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, Qt::NoModifier, tree.visualItemRect(item).center());
        EXPECT_TRUE(shows(item->text(0))) << qPrintable(item->text(0) + " leads to " + textAtTop());
    }
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, Qt::NoModifier, tree.visualItemRect(contents()[2]).center());
    page().verticalScrollBar()->setValue(0);
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, Qt::NoModifier, tree.visualItemRect(contents()[2]).center());
    EXPECT_TRUE(shows("Keys")) << "a second time";
    QTest::keyClick(&tree, Qt::Key_Down);
    EXPECT_TRUE(shows("In play"));
}

TEST_F(Help, ItsLinksLeadToHeadings) {
    std::map<QString, QString> headings;  // by the link that leads there
    for (QString heading : headingsInFile()) {
        heading.remove('>');
        headings["#" + heading.toLower().remove(',').replace(' ', '-')] = heading;
    }
    openHelp();
    std::set<QString> links;
    for (QTextBlock block = page().document()->begin(); block.isValid(); block = block.next())
        for (const QTextLayout::FormatRange& range : block.textFormats())
            if (const QString link = range.format.anchorHref(); !link.isEmpty()) links.insert(link);
    EXPECT_EQ(links.size(), 7u);
    for (const QString& link : links) {
        page().verticalScrollBar()->setValue(0);
        emit page().anchorClicked(QUrl(link));
        ASSERT_TRUE(headings.contains(link)) << qPrintable(link);
        EXPECT_TRUE(shows(headings.at(link))) << qPrintable(link + " leads to " + textAtTop());
    }
}

TEST_F(Help, SearchGoesBothWaysAndWrapsAround) {
    openHelp();
    const int count = static_cast<int>(page().toPlainText().count("dragon", Qt::CaseInsensitive));
    ASSERT_GT(count, 4);
    const auto tells = [&](int match) { return QString("%1 of %2").arg(match).arg(count); };
    pressInHelp(Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(QApplication::focusWidget(), "dragon");
    struct {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        int match;
    } const steps[] = {
        {Qt::Key_F3, Qt::NoModifier, 2},
        {Qt::Key_Return, Qt::NoModifier, 3},
        {Qt::Key_F3, Qt::ShiftModifier, 2},
        {Qt::Key_F3, Qt::ShiftModifier, 1},
        {Qt::Key_F3, Qt::ShiftModifier, count},
        {Qt::Key_F3, Qt::NoModifier, 1},
        {Qt::Key_Return, Qt::ShiftModifier, count},
    };
    EXPECT_EQ(found(), tells(1));
    for (const auto& step : steps) {
        pressInHelp(step.key, step.modifiers);
        EXPECT_EQ(found(), tells(step.match));
        const auto marks = page().extraSelections();
        ASSERT_EQ(marks.size(), count);
        for (const auto& mark : marks) EXPECT_EQ(mark.cursor.selectedText().toLower(), "dragon");
        const auto& shown = marks[step.match - 1];
        EXPECT_TRUE(page().viewport()->rect().contains(page().cursorRect(shown.cursor)));
        EXPECT_NE(shown.format.background(), marks[step.match % count].format.background()) << "it stands out";
    }
    QTest::keyClicks(QApplication::focusWidget(), "x");
    EXPECT_EQ(found(), "Not found");
    EXPECT_TRUE(page().extraSelections().empty());
    pressInHelp(Qt::Key_F3);
    EXPECT_EQ(found(), "Not found");
    part<QLineEdit>().clear();
    EXPECT_EQ(found(), "");

    emit page().anchorClicked(QUrl("#levels"));
    QTest::keyClicks(QApplication::focusWidget(), "level");
    EXPECT_FALSE(found().startsWith("1 of")) << "it begins where the reader is";
    EXPECT_EQ(textAtTop(), "Levels");
}

TEST_F(Help, ItsTypeGrowsWithItsPicturesAndKeepsThePlace) {
    openHelp();
    const auto tileWidthInText = [] {
        const QVariant picture = page().document()->resource(QTextDocument::ImageResource, QUrl("tiles:f3"));
        return picture.value<QImage>().isNull() ? picture.value<QPixmap>().width() : picture.value<QImage>().width();
    };
    const double normal = page().font().pointSizeF();
    EXPECT_EQ(tileWidthInText(), 36);
    emit page().anchorClicked(QUrl("#levels"));
    EXPECT_EQ(textAtTop(), "Levels");
    const auto size = [&] { return page().font().pointSizeF() / normal; };
    pressInHelp(Qt::Key_Plus, Qt::ControlModifier);
    pressInHelp(Qt::Key_Equal, Qt::ControlModifier);
    EXPECT_GT(size(), 1.2);
    EXPECT_GT(tileWidthInText(), 42);
    EXPECT_EQ(textAtTop(), "Levels");
    for (int i = 0; i < 40; ++i) pressInHelp(Qt::Key_Plus, Qt::ControlModifier | Qt::KeypadModifier);
    EXPECT_GT(size(), 3);
    EXPECT_LT(size(), 6);
    for (int i = 0; i < 40; ++i) pressInHelp(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_LT(size(), 0.7);
    EXPECT_GT(size(), 0.4);
    pressInHelp(Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(size(), 1);
    EXPECT_EQ(tileWidthInText(), 36);
    EXPECT_EQ(textAtTop(), "Levels");

    const auto turnWheel = [](int angle) {
        QWidget& face = *page().viewport();
        QWheelEvent event(QPointF(50, 50), face.mapToGlobal(QPointF(50, 50)), {}, QPoint(0, angle), Qt::NoButton,
                          Qt::ControlModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&face, &event);
    };
    turnWheel(120);
    EXPECT_GT(size(), 1.1);
    EXPECT_GT(tileWidthInText(), 36);
    turnWheel(-120);
    EXPECT_EQ(size(), 1);
}

TEST_F(Help, GoesSidewaysOnlyForWhatIsWiderThanItsWindow) {
    openHelp();
    const QSize first = help()->size();
    const auto goesSideways = [] { return page().horizontalScrollBar()->isVisible(); };
    for (const int width : {first.width(), 700, 801, 902, 1003, 1204}) {
        help()->resize(width, first.height());
        for (int larger = 0; larger < 3; ++larger) {
            EXPECT_TRUE(waitFor([&] { return !goesSideways(); })) << width << " pixels, type " << larger;
            EXPECT_LT(page().horizontalScrollBar()->maximum(), 5);
            pressInHelp(Qt::Key_Plus, Qt::ControlModifier);
        }
        pressInHelp(Qt::Key_0, Qt::ControlModifier);
    }
    help()->resize(700, first.height());
    for (int larger = 0; larger < 10; ++larger) pressInHelp(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_TRUE(waitFor(goesSideways));
}

TEST_F(Help, ItsTextIsSelectedAndCopied) {
    openHelp();
    pressInHelp(Qt::Key_A, Qt::ControlModifier);
    pressInHelp(Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(QApplication::clipboard()->text().contains("Own Season Tile"));
}

TEST_F(Help, ItsLookFollowsTheDesktop) {
    openHelp();
    const QPalette before = QApplication::palette();
    QPalette dark = before;
    dark.setColor(QPalette::Base, QColor(20, 20, 20));
    dark.setColor(QPalette::Text, QColor(240, 240, 240));
    dark.setColor(QPalette::Link, QColor(90, 170, 255));
    QApplication::setPalette(dark);
    QCoreApplication::processEvents();
    const auto hint = [] { return part<QLineEdit>().palette().color(QPalette::PlaceholderText); };
    EXPECT_EQ(hint(), QColor(240, 240, 240, 128));
    const auto* const table = qobject_cast<QTextTable*>(page().document()->rootFrame()->childFrames().front());
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->cellAt(0, 0).format().background(), QBrush(QColor(51, 51, 51))) << "the header stands out";
    EXPECT_EQ(table->cellAt(1, 0).format().background(), QBrush());
    EXPECT_EQ(table->format().borderBrush(), QBrush(QColor(97, 97, 97)));
    int links = 0;
    for (QTextBlock block = page().document()->begin(); block.isValid(); block = block.next())
        for (const QTextLayout::FormatRange& range : block.textFormats()) {
            if (range.format.anchorHref().isEmpty()) continue;
            ++links;
            EXPECT_EQ(range.format.foreground().color(), QColor(90, 170, 255));
        }
    EXPECT_GT(links, 0);
    platform::WinHelpA(game->form, "", platform::HELP_QUIT, 0);
    openHelp();
    EXPECT_EQ(hint(), QColor(240, 240, 240, 128)) << "made anew";
    QApplication::setPalette(before);
}

TEST_F(Help, IsClosedByItsKeysAndOpensAgain) {
    const std::function<void()> ways[] = {
        [] { pressInHelp(Qt::Key_Escape); },
        [] { pressInHelp(Qt::Key_W, Qt::ControlModifier); },
        [] { help()->close(); },
        [] { pressInHelp(Qt::Key_F, Qt::ControlModifier), pressInHelp(Qt::Key_Escape); },
    };
    for (const auto& close : ways) {
        openHelp();
        emit page().anchorClicked(QUrl("#levels"));
        close();
        EXPECT_EQ(help(), nullptr) << "way " << &close - ways;
        EXPECT_TRUE(window->isVisible()) << "way " << &close - ways;
    }
    openHelp();
    EXPECT_EQ(textAtTop(), "Levels") << "it opens where it was closed";
}

TEST_F(Help, TellsWhenThereIsNoText) {
    const QTemporaryDir folder;
    const QDir beside(QCoreApplication::applicationDirPath());
    QFile empty(folder.filePath("empty"));
    ASSERT_TRUE(empty.open(QIODevice::WriteOnly));
    ASSERT_EQ(mkfifo(qPrintable(folder.filePath("pipe")), 0600), 0);
    for (const char* name : {"missing", ".", "empty", "pipe"}) {
        const QString path = beside.relativeFilePath(folder.filePath(name));
        platform::WinHelpA(game->form, path.toStdString(), platform::HELP_INDEX, 0);
        ASSERT_NE(help(), nullptr) << name;
        EXPECT_EQ(textAtTop(), "There is no help text") << name;
        platform::WinHelpA(game->form, "", platform::HELP_QUIT, 0);
    }
    openHelp();
    EXPECT_EQ(textAtTop(), "Velmora");
}

TEST_F(Help, EachWindowKeepsItsKeys) {
    startMatch();
    nextTile(1);
    openHelp();
    page().setFocus();
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Right, Qt::Key_Return, Qt::Key_Space, Qt::Key_Down})
        pressInHelp(key);
    EXPECT_EQ(game->mintCurCol, 5);
    EXPECT_NE(game->Timer1.interval(), dropInterval);
    EXPECT_GT(page().verticalScrollBar()->value(), 0) << "the help has taken them";

    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    const int scrolled = page().verticalScrollBar()->value();
    for (int i = 0; i < 4; ++i) press(Qt::Key_Left);
    EXPECT_EQ(game->mintCurCol, 1);
    EXPECT_EQ(page().verticalScrollBar()->value(), scrolled);
}

}  // namespace
