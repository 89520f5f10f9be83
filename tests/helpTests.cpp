// The help window beside the game.

#include <sys/stat.h>

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextList>
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
        ASSERT_TRUE(waitFor([] { return !contents().isEmpty(); })) << "it is read to its end";
    }

    /// Opens it with that text in place of the game's.
    void openHelpWith(const QByteArray& text) {
        QFile file(folder.filePath("text"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
        file.close();
        platform::WinHelpA(game->form, file.fileName().toStdString(), platform::HELP_INDEX, 0);
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

    static void pressInHelp(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, int times = 1) {
        for (int i = 0; i < times; ++i) QTest::keyClick(QApplication::focusWidget(), key, modifiers);
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

    /// How each link in the text looks, and where it leads.
    static QList<QTextCharFormat> links() {
        QList<QTextCharFormat> links;
        for (QTextBlock block = page().document()->begin(); block.isValid(); block = block.next())
            for (const QTextLayout::FormatRange& range : block.textFormats())
                if (range.format.isAnchor() && !range.format.anchorHref().isEmpty()) links += range.format;
        return links;
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

    const QTemporaryDir folder;
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
    bringToFront();
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
    const auto follow = [&](QTreeWidgetItem* item) {
        page().verticalScrollBar()->setValue(0);
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, Qt::NoModifier, tree.visualItemRect(item).center());
        EXPECT_TRUE(shows(item->text(0))) << qPrintable(item->text(0) + " leads to " + textAtTop());
    };
    for (QTreeWidgetItem* item : contents()) follow(item);
    for (int time = 0; time < 2; ++time) follow(contents()[2]);
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
    std::set<QString> all;
    for (const QTextCharFormat& link : links()) all.insert(link.anchorHref());
    EXPECT_EQ(all.size(), 7u);
    for (const QString& link : all) {
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
    emit page().anchorClicked(QUrl("#levels"));
    const auto expectSize = [normal = page().font().pointSizeF()](double least, double most) {
        const double size = page().font().pointSizeF() / normal;
        EXPECT_GE(size, least);
        EXPECT_LE(size, most);
        const QVariant tile = page().document()->resource(QTextDocument::ImageResource, QUrl("tiles:f3"));
        EXPECT_NEAR(tile.value<QImage>().width(), 36 * size, 1);
        EXPECT_EQ(textAtTop(), "Levels") << size;
    };
    const struct {
        Qt::Key key;
        int times;
        double least, most;  // times the size at first
        Qt::KeyboardModifiers pad = Qt::NoModifier;
    } steps[] = {
        {Qt::Key_Plus, 1, 1.1, 1.2}, {Qt::Key_Equal, 1, 1.2, 1.4},  {Qt::Key_Plus, 1, 1.3, 1.6, Qt::KeypadModifier},
        {Qt::Key_Plus, 40, 3, 6},    {Qt::Key_Minus, 40, 0.4, 0.7}, {Qt::Key_0, 1, 1, 1}};
    expectSize(1, 1);
    for (const auto& step : steps) {
        pressInHelp(step.key, Qt::ControlModifier | step.pad, step.times);
        expectSize(step.least, step.most);
    }
    for (const int angle : {120, -120}) {
        QWidget& face = *page().viewport();
        QWheelEvent event(QPointF(50, 50), face.mapToGlobal(QPointF(50, 50)), {}, QPoint(0, angle), Qt::NoButton,
                          Qt::ControlModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&face, &event);
        expectSize(angle > 0 ? 1.1 : 1, angle > 0 ? 1.2 : 1);
    }
}

TEST_F(Help, GoesSidewaysOnlyForWhatIsWiderThanItsWindow) {
    openHelp();
    const QSize first = help()->size();
    const auto goesSideways = [] { return page().horizontalScrollBar()->isVisible(); };
    for (const int width : {first.width(), 801, 902, 1003, 1204, 700}) {
        help()->resize(width, first.height());
        pressInHelp(Qt::Key_0, Qt::ControlModifier);
        for (int larger = 0; larger < 3; ++larger) {
            EXPECT_TRUE(waitFor([&] { return !goesSideways(); })) << width << " pixels, type " << larger;
            EXPECT_LT(page().horizontalScrollBar()->maximum(), 5);
            pressInHelp(Qt::Key_Plus, Qt::ControlModifier);
        }
    }
    pressInHelp(Qt::Key_Plus, Qt::ControlModifier, 10);
    EXPECT_TRUE(waitFor(goesSideways));
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
    EXPECT_FALSE(links().isEmpty());
    for (const QTextCharFormat& link : links()) EXPECT_EQ(link.foreground().color(), QColor(90, 170, 255));
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
    QFile empty(folder.filePath("empty")), large(folder.filePath("large"));
    ASSERT_TRUE(empty.open(QIODevice::WriteOnly) && large.open(QIODevice::WriteOnly));
    large.write(QByteArray(65537, 'x'));
    large.close();
    ASSERT_EQ(mkfifo(qPrintable(folder.filePath("pipe")), 0600), 0);
    for (const char* name : {"missing", ".", "empty", "large", "pipe"}) {
        platform::WinHelpA(game->form, folder.filePath(name).toStdString(), platform::HELP_INDEX, 0);
        ASSERT_NE(help(), nullptr) << name;
        EXPECT_EQ(textAtTop(), "There is no help text") << name;
        platform::WinHelpA(game->form, "", platform::HELP_QUIT, 0);
    }
    openHelp();
    EXPECT_EQ(textAtTop(), "Velmora");
}

TEST_F(Help, NoTextIsLongInTheMaking) {
    const QByteArray emptyCells = "|x|x|x|x|x|x|x|x|x|\n|---|---|---|---|---|---|---|---|---|\nx\nx\nx\nx\nx\n\n";
    for (const QByteArray& unit :
         {QByteArray("x"), QByteArray("*x* "), QByteArray("- x\n"), QByteArray("- x\n\n"), emptyCells}) {
        SCOPED_TRACE(unit.toStdString());
        const int size = unit == "x" ? 65536 : 16384;
        QByteArray text = unit.repeated((size - 9) / unit.size()) + "\n\n## End";
        text += QByteArray(size - text.size(), '\n');
        openHelpWith(text);
        int turns = 0;
        ASSERT_TRUE(waitFor([&] { return ++turns, !contents().isEmpty(); }));
        EXPECT_TRUE(turns > 1 || !unit.startsWith('*')) << "events are served meanwhile";
        EXPECT_EQ(contents().back()->text(0), "End");
        EXPECT_EQ(page().toPlainText().count('x'), text.count('x'));
        int cells = 0;
        for (QTextBlock block = page().document()->begin(); block.isValid(); block = block.next()) {
            ASSERT_LE(block.length(), 2501);
            ASSERT_LE(block.textList() ? block.textList()->count() : 0, 1500);
        }
        for (QTextFrame* const part : page().document()->rootFrame()->childFrames())
            if (auto* const table = qobject_cast<QTextTable*>(part)) cells += table->rows() * table->columns();
        EXPECT_LE(cells, 1000);
        platform::WinHelpA(game->form, "", platform::HELP_QUIT, 0);
    }
}

TEST_F(Help, CodeThatIsCutStaysCode) {
    openHelpWith("```\n" + QByteArray("# x\n\n").repeated(2000) + "```\n\n# After\n\n" +
                 QByteArray("y\n\n").repeated(2000) + "# Last\n");
    ASSERT_TRUE(waitFor([&] { return !contents().isEmpty(); }));
    EXPECT_EQ(contents().size(), 2);
}

TEST_F(Help, WhatFailsInItIsToldAndEndsNothing) {
    openHelp();
    QString told;
    once([&] { return box() != nullptr; },
         [&] {
             told = box()->text();
             QTimer::singleShot(0, help(), [] { throw std::bad_alloc(); });  // not told: a box is open
             QTimer::singleShot(10, box(), &QDialog::accept);
         });
    QTimer::singleShot(0, help(), [] { throw std::bad_alloc(); });
    EXPECT_TRUE(waitFor([&] { return !told.isEmpty() && box() == nullptr; }));
    EXPECT_EQ(told, "Error 51 - Internal error: std::bad_alloc");
}

TEST_F(Help, EachWindowKeepsItsKeys) {
    startMatch();
    nextTile(1);
    openHelp();
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_C}) pressInHelp(key, Qt::ControlModifier);
    EXPECT_TRUE(QApplication::clipboard()->text().contains("Own Season Tile"));
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Right, Qt::Key_Return, Qt::Key_Space, Qt::Key_Down})
        pressInHelp(key);
    EXPECT_EQ(game->mintCurCol, 5);
    EXPECT_NE(game->Timer1.interval(), dropInterval);
    EXPECT_GT(page().verticalScrollBar()->value(), 0) << "the help has taken them";
    const QString text = page().toPlainText();
    QInputMethodEvent composed;
    composed.setCommitString("x");
    QApplication::sendEvent(&page(), &composed);
    EXPECT_EQ(page().toPlainText(), text);

    bringToFront();
    const int scrolled = page().verticalScrollBar()->value();
    for (int i = 0; i < 4; ++i) press(Qt::Key_Left);
    EXPECT_EQ(game->mintCurCol, 1);
    EXPECT_EQ(page().verticalScrollBar()->value(), scrolled);
}

}  // namespace
