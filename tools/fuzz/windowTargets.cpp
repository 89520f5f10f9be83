// The help text and the fields of two dialogs, on the real window.

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextTable>
#include <QTimer>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <algorithm>
#include <cstdlib>
#include <exception>
#include <map>

#include "forms/frmOrder.h"
#include "frmMain.h"
#include "hiscores/frmGetName.h"
#include "platform/base/text.h"
#include "platform/help.h"
#include "platform/qt/help/pieces.h"
#include "platform/qt/window/application.h"
#include "platform/qt/window/formWindow.h"
#include "toolkit/input.h"
#include "tools/fuzz/target.h"

namespace fuzz {
namespace {

/// The game with its window open and nothing begun.
frmMain& game() {
    static int argc = 1;
    static char name[] = "velmora_fuzz";
    static char* argv[] = {name, nullptr};
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});  // Qt misses fonts.
    static platform::Application application(argc, argv, "Velmora", "velmora");
    // A box that tells of an error, such as an amount too large, is answered; one that tells what no handler has caught
    // does not come.
    static QTimer answers;
    QObject::connect(&answers, &QTimer::timeout, [] {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            auto* const box = qobject_cast<QMessageBox*>(widget);
            if (box != nullptr && box->windowTitle() == "Error In Velmora") std::abort();
            if (box != nullptr) box->accept();
        }
    });
    answers.start(1);
    static const auto main = [] {
        auto made = gfrmMain.hold();
        made->form.show();
        return made;
    }();
    return *main;
}

// The help.

constexpr int longestBlock = 2501, mostTurns = 3000, quietTurns = 10;

void requirePieces(const std::string& text) {
    std::string together;
    for (const platform::qt::Piece& piece : platform::qt::piecesOf(text)) {
        together += piece.text;
        require(piece.text.size() <= platform::qt::mostBytes, "a piece isn't large");
    }
    const bool code = text.find("```") != std::string::npos || text.find("~~~") != std::string::npos;
    require(code ? together.size() >= text.size() : together == text, "the pieces are the text");
}

/// The help window, once the text has come in.
QWidget& openHelp(const std::string& path) {
    platform::WinHelpA(game().form, path, platform::HELP_INDEX, 0);
    QWidget* help = nullptr;
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (widget->isVisible() && widget->findChild<QTextBrowser*>() != nullptr) help = widget;
    require(help != nullptr, "there is a window for it");
    const QTextDocument& text = *help->findChild<QTextBrowser*>()->document();
    int turns = 0, length = -1;
    for (int quiet = 0; quiet < quietTurns; ++turns) {
        quiet = text.characterCount() == std::exchange(length, text.characterCount()) ? quiet + 1 : 0;
        QApplication::processEvents();
        require(turns < mostTurns, "it comes to its end");
    }
    return *help;
}

/// A word of the last paragraph that has one.
QString someWord(const QTextDocument& text) {
    for (QTextBlock block = text.lastBlock(); block.isValid(); block = block.previous())
        for (const QString& word : block.text().split(' '))
            if (std::ranges::any_of(word, [](QChar each) { return each.isLetterOrNumber(); }) &&
                std::ranges::all_of(word, [](QChar each) { return each.isLetterOrNumber(); }))
                return word.left(20);
    return {};
}

void requirePage(QWidget& help) {
    auto& page = *help.findChild<QTextBrowser*>();
    int headings = 0, cells = 0, items = 0;
    for (QTextBlock block = page.document()->begin(); block.isValid(); block = block.next()) {
        require(block.length() <= longestBlock, "no paragraph is long");
        headings += block.blockFormat().headingLevel() > 0 ? 1 : 0;
    }
    for (const QTextFrame* const frame : page.document()->rootFrame()->childFrames())
        if (const auto* const table = qobject_cast<const QTextTable*>(frame)) cells += table->rows() * table->columns();
    require(cells <= static_cast<int>(platform::qt::mostCells), "no more cells than can be laid out in a moment");
    for (QTreeWidgetItemIterator item(help.findChild<QTreeWidget*>()); *item; ++item) ++items;
    require(items == headings, "the contents list the headings");
    const QString word = someWord(*page.document());
    if (word.isEmpty()) return;
    help.findChild<QLineEdit*>()->setText(word);
    const auto tells = [&](const QLabel* label) { return label->text().contains(" of "); };
    require(std::ranges::any_of(help.findChildren<QLabel*>(), tells), "a word that is there is found");
}

// The fields.

/// What a field may hold, by the name that a screen reader has for it.
struct FieldRow {
    int limit;  // characters
    std::string typed;
};

const std::string letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
const std::string digits = "1234567890";
const std::string keyboard = "~!@#$%^&*()_+`-={}|[]\\:\";'<>?,./ " + digits + letters;
const std::string names = letters + " ',.-\"&", addresses = digits + letters + " ',.-#/&";

const std::map<QString, FieldRow> fields = {
    {"Your name", {10, keyboard}},
    {"Name", {50, names}},
    {"Address", {50, addresses}},
    {"Address, line 2", {50, addresses}},
    {"Address, line 3", {50, addresses}},
    {"City", {50, names}},
    {"Country", {50, names}},
    {"Email", {50, keyboard}},
    {"# of Copies", {4, digits}},
    {"Zip", {5, digits + " "}},
};

/// What begins a part of a script, up to the next such character; without one its characters are typed.
enum : char32_t { Paste = 1, Compose, Tab, All, Left, Undo, Redo, Erase, Type };

/// As the desktop does when the help or a box that had the keys has gone.
void bringToFront() {
    platform::qt::windowOf(game().form)->window()->activateWindow();
    QApplication::processEvents();
}

void tap(int key, Qt::KeyboardModifiers modifiers, const QString& text) {
    if (QApplication::focusWidget() == nullptr) bringToFront();
    QWidget* const target = QApplication::focusWidget();
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, modifiers, text);
        if (target != nullptr && target == QApplication::focusWidget()) QCoreApplication::sendEvent(target, &event);
    }
}

void type(char32_t character) {
    const int key =
        character < 0x80 ? QChar(static_cast<char16_t>(character)).toUpper().unicode() : int{Qt::Key_unknown};
    if (character != '\r' && character != '\n' && character != 27)
        tap(key, Qt::NoModifier, QString::fromUcs4(&character, 1));
}

void carryOut(char32_t command, const std::u32string& text) {
    const auto taps = [&](int key, Qt::KeyboardModifiers modifiers) {
        for (size_t i = 0; i <= text.size() % 8; ++i) tap(key, modifiers, QString());
    };
    QInputMethodEvent composed;
    composed.setCommitString(QString::fromStdU32String(text));
    switch (command) {
        case Paste:
            QApplication::clipboard()->setText(QString::fromStdU32String(text));
            return tap(Qt::Key_V, Qt::ControlModifier, "\x16");
        case Compose:
            if (QWidget* const target = QApplication::focusWidget()) QCoreApplication::sendEvent(target, &composed);
            return;
        case Tab:
            return taps(Qt::Key_Tab, Qt::NoModifier);
        case Erase:
            return taps(Qt::Key_Backspace, Qt::NoModifier);
        case All:
            return tap(Qt::Key_A, Qt::ControlModifier, "\x01");
        case Left:
            return taps(Qt::Key_Left, Qt::NoModifier);
        case Undo:
            return taps(Qt::Key_Z, Qt::ControlModifier);
        case Redo:
            return taps(Qt::Key_Y, Qt::ControlModifier);
        default:
            std::ranges::for_each(text, type);
    }
}

/// Whether each field holds what it may; what was pasted is held to the length alone.
void requireFields(bool pasted) {
    for (const QWidget* window : QApplication::topLevelWidgets())
        for (const auto* line : window->findChildren<QLineEdit*>()) {
            if (!line->isVisible()) continue;
            const FieldRow& row = fields.at(line->accessibleName());
            const std::u32string text = line->displayText().toStdU32String();
            require(static_cast<int>(text.size()) <= row.limit, "a field holds no more characters than it may");
            for (const char32_t each : text) {
                const char32_t upper = each >= 'a' && each <= 'z' ? each - 'a' + 'A' : each;
                require(each >= ' ' && each != 0x7F, "a field holds no control character");
                require(pasted || (upper < 0x80 && row.typed.find(static_cast<char>(upper)) != std::string::npos),
                        "a field holds what may be typed");
            }
        }
}

void play(const std::string& script) {
    const std::u32string all = QString::fromStdString(script).toStdU32String();
    bool pasted = false;
    for (size_t from = 0; from < all.size();) {
        const char32_t command = all[from] <= Type ? all[from++] : char32_t{Type};
        size_t to = from;
        while (to < all.size() && all[to] > Type) ++to;
        pasted = pasted || command == Paste;
        carryOut(command, all.substr(from, to - from));
        QApplication::processEvents();
        requireFields(pasted);
        from = to;
    }
}

/// Plays a script in a dialog, and closes it with a key; the first one may have closed a list that had dropped down.
template <class Dialog>
void playIn(Dialog& dialog, const std::string& script, int closing, const QString& text) {
    constexpr int mostKeys = 5;
    game();
    std::exception_ptr objection;
    QTimer::singleShot(0, [&] {
        try {
            play(script);
            for (int keys = 0; keys < mostKeys && dialog.isOpen(); ++keys) tap(closing, Qt::NoModifier, text);
            require(!dialog.isOpen(), "it is closed by its key");
        } catch (const Objection&) {
            objection = std::current_exception();
            dialog->form.unload();
        }
    });
    dialog.showModal();
    if (objection) std::rethrow_exception(objection);
}

}  // namespace

bool takeHelp(const std::string& file) {
    requirePieces(file);
    QWidget& help = openHelp(laid("fuzzed.hlp", file));
    requirePage(help);
    help.resize(help.width() * 2 / 3, help.height());
    require(!help.grab().isNull(), "it can be shown");
    const bool shown = !help.findChild<QTextBrowser*>()->toPlainText().contains("fuzzed.hlp");
    platform::WinHelpA(game().form, "", platform::HELP_QUIT, 0);
    return shown;
}

/// What is typed, pasted and composed, by the commands above.
bool takeName(const std::string& script) {
    playIn(gfrmGetName, script, Qt::Key_Return, "\r");
    const std::string name = gfrmGetName->mprpName();
    require(platform::charactersOf(name).size() <= 10, "a name is no longer than a row has room for");
    require(platform::toCodePage(name).size() <= 10, "each of its characters becomes a byte");
    return !name.empty();
}

bool takeOrder(const std::string& script) {
    playIn(gfrmOrder, script, Qt::Key_Escape, "\x1B");
    for (size_t from = 0; from < script.size(); from += 7) {
        const double number = gdblfNumberIn(script.substr(from));
        require(number == number, "a number is one");
    }
    return true;
}

}  // namespace fuzz
