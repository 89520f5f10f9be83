// How the controls of a form answer keys and the pointer in the real window.

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QTest>
#include <utility>
#include <vector>

#include "platform/base/text.h"
#include "platform/fields.h"
#include "platform/qt/controls/control.h"
#include "tests/contractFixture.h"

namespace {

using namespace platform;
using namespace driver;
using namespace key;

void tap(int key, Qt::KeyboardModifiers modifiers, const QString& text) {
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, modifiers, text);
        QCoreApplication::sendEvent(qt::formStack().mainWindow(), &event);
    }
}

void pressShiftTab() { tap(Qt::Key_Backtab, Qt::ShiftModifier, QString()); }

void pressAccessKey(char letter) {
    QTest::keyClick(qt::formStack().mainWindow(), letter, Qt::AltModifier);
    const auto buttons = qt::formStack().mainWindow()->findChildren<QAbstractButton*>();
    EXPECT_TRUE(QTest::qWaitFor([&] { return std::ranges::none_of(buttons, &QAbstractButton::isDown); }));
}

void typeText(const std::string& text) {
    for (const char32_t character : charactersOf(text)) {
        const int key =
            character < 0x80 ? QChar(static_cast<char16_t>(character)).toUpper().unicode() : int{Qt::Key_unknown};
        tap(key, Qt::NoModifier, QString::fromUcs4(&character, 1));
    }
}

/// What dead keys or an input method make of keys, in one go.
void composeText(const std::string& text) {
    QInputMethodEvent shown(QStringLiteral("..."), {});
    QInputMethodEvent made;
    made.setCommitString(QString::fromStdString(text));
    for (QInputMethodEvent* event : {&shown, &made}) QCoreApplication::sendEvent(QApplication::focusWidget(), event);
}

void pasteText(const std::string& text) {
    QGuiApplication::clipboard()->setText(QString::fromStdString(text));
    tap(Qt::Key_V, Qt::ControlModifier, QStringLiteral("\x16"));
}

/// A handler that gives one character for another, or swallows it with 0.
std::function<void(int&)> swap(int from, int to) {
    return [=](int& code) { code = code == from ? to : code; };
}

/// A dialog with two buttons and a spin button, in this order.
struct Setting {
    Setting() {
        ok.makeDefault();
        ok.onClick = [this] { note("OK"); };
        cancel.makeCancel();
        cancel.onClick = [this] { note("Cancel"); };
        spin.onSpinUp = [this] { note("up"); };
        spin.onSpinDown = [this] { note("down"); };
    }

    Form form;
    Panel panel{form, {0, 0, 100, 50}};
    CommandButton ok{panel, {5, 5, 40, 20}};
    CommandButton cancel{panel, {50, 5, 40, 20}};
    SpinButton spin{panel, {5, 25, 12, 20}};
    std::function<void(const std::string&)> note;
};

/// A dialog with a field of each kind.
struct Entry {
    Form form;
    Panel panel{form, {0, 0, 300, 200}};
    TextBox name{panel, {100, 10, 100, 20}};
    TextBox town{panel, {100, 40, 100, 20}};
    ComboBox state{panel, {100, 70, 100, 24}};
    MaskEdBox zip{panel, {100, 100, 60, 20}, 5};
    CheckBox copy{panel, {100, 130, 90, 20}};
    OptionButton near{panel, {10, 160, 80, 20}};
    OptionButton far{panel, {100, 160, 80, 20}};
    CommandButton print{panel, {200, 160, 80, 20}};
};

/// Something that is done in a dialog, and what comes of it.
template <class Dialog>
struct Row {
    const char* what;
    std::function<void(Dialog&)> act;
    const char* result;
};

class Controls : public Contract {
  protected:
    void SetUp() override { showMain(); }

    std::function<void(const std::string&)> noteOf(const std::string& before = "") {
        return [this, before](const std::string& what) { note(before + what); };
    }

    /// Does each in a dialog of its own, prepared so.
    template <class Dialog>
    void expectRows(const std::vector<Row<Dialog>>& rows, const std::function<void(Dialog&)>& prepare,
                    const std::function<std::string(Dialog&)>& result) {
        for (const Row<Dialog>& row : rows) {
            trace_.clear();
            Dialog dialog;
            inDialog(dialog.form, [&] {
                prepare(dialog);
                row.act(dialog);
                EXPECT_EQ(result(dialog), row.result) << row.what;
            });
            for (const int code : {Enter, Escape, Space, Up, Tab}) keyUp(code);
        }
    }
};

TEST_F(Controls, KeysAndThePointerWorkTheButtons) {
    const auto press = [](const std::vector<int>& codes) {
        return [codes](Setting&) {
            for (const int code : codes) pressKey(code);
        };
    };
    const std::vector<Row<Setting>> rows = {
        {"Enter", press({Enter}), "OK"},
        {"Space", press({Space}), "OK"},
        {"Escape", press({Escape}), "Cancel"},
        {"an arrow goes on", press({Right, Space}), "Cancel"},
        {"and back", press({Down, Left, Space}), "OK"},
        {"Tab goes on", press({Tab, Enter}), "Cancel"},
        {"arrows spin", press({Tab, Tab, Up, Up, Down}), "up, up, down"},
        {"those of the pad too", press({Tab, Tab, Pad8, Pad2, Pad2}), "up, down, down"},
        {"but not sideways", press({Tab, Tab, Left, Right, Pad4, Pad6, Up}), "up"},
        {"neither do others", press({Tab, Tab, Space, Enter}), "OK"},
        {"the form swallows Enter", [](Setting& s) { s.form.onKeyDown = swap(Enter, 0), pressKey(Enter); }, ""},
        {"or its character", [](Setting& s) { s.form.onKeyPress = swap(Enter, 0), pressKey(Enter); }, ""},
        {"or Tab", [](Setting& s) { s.form.onKeyDown = swap(Tab, 0), pressKey(Tab), pressKey(Space); }, "OK"},
        {"Enter presses once", [](Setting&) { keyDown(Enter), keyDown(Enter); }, "OK"},
        {"Escape presses once", [](Setting&) { keyDown(Escape), keyDown(Escape); }, "Cancel"},
        {"and then presses once", [](Setting&) { keyDown(Space), keyDown(Space), keyUp(Space); }, "OK"},
        {"Space let go on another control", [](Setting&) { keyDown(Space), pressKey(Tab), keyUp(Space); }, ""},
        {"an arrow spins again and again", [](Setting& s) { s.spin.setFocus(), keyDown(Up), keyDown(Up); }, "up, up"},
        {"Shift+Tab", [](Setting&) { pressShiftTab(), pressKey(Up), pressShiftTab(), pressKey(Space); }, "up, Cancel"},
        {"a click gives the focus", [](Setting& s) { click(s.cancel), pressKey(Enter); }, "Cancel, Cancel"},
        {"a disabled button", [](Setting& s) { s.ok.setEnabled(false), s.spin.setFocus(), pressKey(Enter); }, ""},
        {"the focus leaves what is disabled", [](Setting& s) { s.ok.setEnabled(false), pressKey(Space); }, "Cancel"},
        {"another tab order", [](Setting& s) { s.spin.setTabIndex(1), pressKey(Tab), pressKey(Up); }, "up"},
        {"the pressed button has the focus", press({Escape, Space}), "Cancel, Cancel"},
    };
    expectRows<Setting>(
        rows, [this](Setting& s) { s.note = noteOf(); }, [this](Setting&) { return trace_; });
}

TEST_F(Controls, ADialogAboveHasKeysAndClicksToItself) {
    Setting below, above;
    below.note = noteOf("below ");
    above.note = noteOf("above ");
    below.form.onLoad = [&] { note("below loads"); };
    below.form.onActivate = [&] { note("below on top"); };
    below.ok.onGotFocus = [&] { note("its first control"); };
    above.form.onActivate = [&] { note("above on top"); };
    above.form.onUnload = [&] { note("above unloads"); };
    inDialog(below.form, [&] {
        keyDown(Space);
        inDialog(above.form, [&] {
            click(below.ok);
            keyDown(Space);
            keyUp(Space);
            for (const int code : {Tab, Space, Tab, Tab}) pressKey(code);
            EXPECT_TRUE(above.ok.hasFocus()) << "round and round within the form";
        });
        EXPECT_TRUE(below.ok.hasFocus()) << "the focus is where it was";
    });
    EXPECT_EQ(trace_,
              "below loads, below on top, its first control, above on top, above Cancel, above unloads, below on top");
}

TEST_F(Controls, TypedTextPassesTheHandlersAndPastedTextKeepsToTheLimit) {
    const std::vector<Row<Entry>> rows = {
        {"the box swallows", [](Entry& e) { e.name.onKeyPress = swap('1', 0), typeText("a1b"); }, "ab"},
        {"another character", [](Entry& e) { e.name.onKeyPress = swap('o', 0xF6), typeText("aoc"); }, "a\u00F6c"},
        {"a character outside Latin-1 is none of it",
         [](Entry& e) { e.name.onKeyPress = swap(OtherCharacter, 0), typeText("\u0141\u4E2Dx\u200D\U0001F004\u00FF"); },
         "x\u00FF"},
        {"composed", [](Entry&) { composeText("Zo\u00EB\n \U0001F004"); }, "Zo\u00EB \U0001F004"},
        {"the box swallows what is composed", [](Entry& e) { e.name.onKeyPress = swap('1', 0), composeText("a1b"); },
         "ab"},
        {"and the form too", [](Entry& e) { e.form.onKeyPress = swap('1', 0), composeText("a1b"); }, "ab"},
        {"composed while nobody has the keys",
         [](Entry&) { qt::formStack().openBox(nullptr), composeText("a"), qt::formStack().closeBox(nullptr); }, ""},
        {"another one for what is composed",
         [](Entry& e) { e.name.onKeyPress = swap(OtherCharacter, 0xF6), composeText("a\u0151"); }, "a\u00F6"},
        {"a fourth of the second plane", [](Entry& e) { e.name.setMaxLength(3), typeText("\U0001F004\U0001F005bc"); },
         "\U0001F004\U0001F005b"},
        {"composed past the limit", [](Entry& e) { e.name.setMaxLength(2), composeText("a\U0001F004b"); },
         "a\U0001F004"},
        {"pasted past it in the middle",
         [](Entry& e) {
             e.name.setMaxLength(4), e.name.setText("a\U0001F004b"), pressKey(Left), pressKey(Left), pasteText("xyz");
         },
         "ax\U0001F004b"},
        {"set past it", [](Entry& e) { e.name.setMaxLength(2), e.name.setText("\U0001F004\U0001F005\U0001F006"); },
         "\U0001F004\U0001F005"},
        {"pasted past the filter", [](Entry& e) { e.name.onKeyPress = swap('1', 0), pasteText("a1"); }, "a1"},
        {"pasted lines", [](Entry&) { pasteText("one\ntwo\tthree"); }, "one two three"},
        {"instead of what is selected",
         [](Entry& e) { e.name.setText("a\U0001F004"), e.name.selectAll(), typeText("x"); }, "x"},
        {"Tab selects all", [](Entry& e) { e.name.setText("abcd"), pressKey(Tab), pressShiftTab(), typeText("x"); },
         "x"},
        {"Backspace passes filters",
         [](Entry& e) { e.name.setText("12"), e.name.onKeyPress = swap('2', 0), pressKey(8); }, "1"},
        {"a disabled box", [](Entry& e) { e.name.setEnabled(false), typeText("a"); }, ""},
    };
    expectRows<Entry>(
        rows, [](Entry&) {}, [](Entry& e) { return e.name.text(); });
}

TEST_F(Controls, HandlersFollowTheFocus) {
    const auto notePlaces = [this](Entry& e) {
        const std::pair<Control*, const char*> controls[] = {{&e.name, "name"}, {&e.town, "town"}, {&e.zip, "zip"}};
        for (const auto& [control, what] : controls) {
            control->onGotFocus = [this, what] { note(std::string(what) + " gets it"); };
            control->onValidate = [this, what] { note(std::string(what) + " leaves"); };
            control->onKeyUp = [this, what](int code) { note(std::string(what) + " up " + std::to_string(code)); };
        }
        e.print.onClick = [this] { note("print"); };
    };
    const std::vector<Row<Entry>> rows = {
        {"Tab", [](Entry&) { pressKey(Tab); }, "name leaves, town gets it, town up 9"},
        {"another tab order", [](Entry& e) { e.zip.setTabIndex(1), pressKey(Tab); },
         "name leaves, zip gets it, zip up 9"},
        {"a click", [](Entry& e) { click(e.town); }, "name leaves, town gets it"},
        {"the program", [](Entry& e) { e.zip.setFocus(); }, "name leaves, zip gets it"},
        {"where it is already", [](Entry& e) { e.name.setFocus(), click(e.name); }, ""},
        {"an access key, which the form doesn't see",
         [this](Entry& e) {
             e.form.onKeyPress = [this](int&) { note("press"); };
             e.print.setCaption("&Print"), pressAccessKey('P');
         },
         "name leaves, print"},
        {"a key", [](Entry&) { typeText("a"); }, "name up 65"},
        {"what is composed", [](Entry&) { composeText("\u0151"); }, "name up 255"},
        {"a Tab that a handler asks for",
         [](Entry& e) {
             e.name.onKeyPress = [](int& c) {
                 if (c == Enter) sendTab(), c = 0;
             };
             pressKey(Enter);
         },
         "name up 13, name leaves, town gets it, town up 9"},
    };
    expectRows<Entry>(rows, notePlaces, [this](Entry&) { return run(200), trace_; });
}

TEST_F(Controls, TheMaskTakesDigitsAtItsPlaces) {
    const std::vector<Row<Entry>> rows = {
        {"no letters", [](Entry&) { typeText("9a0-7"); }, "907  "},
        {"over all that is selected", [](Entry& e) { typeText("12345"), e.zip.selectAll(), typeText("7"); }, "7    "},
        {"Backspace leaves a blank", [](Entry&) { typeText("123"), pressKey(8); }, "12   "},
        {"cleared", [](Entry& e) { typeText("12"), e.zip.clear(); }, "     "},
        {"the filter comes first", [](Entry& e) { e.zip.onKeyPress = swap('1', 0), typeText("1"), composeText("1"); },
         "     "},
    };
    expectRows<Entry>(
        rows, [](Entry& e) { e.zip.setFocus(); }, [](Entry& e) { return e.zip.text(); });
}

TEST_F(Controls, KeysChooseARow) {
    const std::vector<Row<Entry>> rows = {
        {"a letter", [](Entry&) { typeText("a"); }, "Alaska"},
        {"the same letter at once", [](Entry&) { typeText("aA"); }, "Alabama"},
        {"and round at once", [](Entry&) { typeText("aaa"); }, "Alaska"},
        {"arrows", [](Entry&) { pressKey(Down), pressKey(Down), pressKey(Down), pressKey(Up); }, "Alaska"},
        {"a swallowed letter", [](Entry& e) { e.state.onKeyPress = swap('a', 0), typeText("a"); }, ""},
        {"cleared", [](Entry& e) { typeText("a"), e.state.setRows({}); }, ""},
    };
    const auto fill = [](Entry& e) {
        e.state.setRows(std::to_array<const char*>({"", "Alaska", "Alabama", "Nevada"}));
        EXPECT_EQ(qt::faceOf<QComboBox>(e.state)->currentIndex(), -1) << "none is chosen at first";
        e.state.setFocus();
    };
    expectRows<Entry>(rows, fill, [](Entry& e) { return e.state.text(); });
}

TEST_F(Controls, BoxesAndOptionsAreTickedAndChosen) {
    const std::vector<Row<Entry>> rows = {
        {"and clears", [](Entry& e) { click(e.copy), click(e.copy); }, "copy, copy 000"},
        {"Space ticks", [](Entry& e) { e.copy.setFocus(), pressKey(Space); }, "copy 100"},
        {"its access key", [](Entry& e) { e.copy.setCaption("Cop&y"), pressAccessKey('Y'); }, "copy 100"},
        {"a click chooses", [](Entry& e) { click(e.near), click(e.far); }, "near, far 001"},
        {"the program clears what was chosen", [](Entry& e) { click(e.far), e.far.setValue(false); }, "far 000"},
        {"the program chooses silently", [](Entry& e) { e.far.setValue(true), e.near.setValue(true); }, " 010"},
        {"an arrow chooses the next one", [](Entry& e) { click(e.near), pressKey(Right); }, "near, far 001"},
        {"Tab comes to those that aren't chosen too",
         [](Entry& e) {
             e.far.setValue(true), e.copy.setFocus();
             for (const int code : {int{Tab}, int{Space}, int{Tab}, int{Tab}, int{Space}}) pressKey(code);
         },
         "near, print 010"},
        {"disabled ones",
         [](Entry& e) { e.far.setEnabled(false), e.copy.setEnabled(false), click(e.far), click(e.copy); }, " 000"},
    };
    const auto notePresses = [this](Entry& e) {
        e.copy.onClick = [this] { note("copy"); };
        e.near.onClick = [this] { note("near"); };
        e.far.onClick = [this] { note("far"); };
        e.print.onClick = [this] { note("print"); };
    };
    expectRows<Entry>(rows, notePresses, [this](Entry& e) {
        run(200);
        trace_ += ' ';
        for (const bool value : {e.copy.value(), e.near.value(), e.far.value()}) trace_ += value ? '1' : '0';
        return trace_;
    });
}

TEST_F(Controls, APanelTakesItsSizeFromItsCaption) {
    Panel panel(main_->form, {10, 20, 100, 17});
    const QWidget& face = *panel.impl().face.get();
    const auto sizeWith = [&](Fit fit, const char* caption) {
        panel.setLook({Bevel::Inset, Bevel::None, 2, 0, Align::Left, fit});
        panel.setCaption(caption);
        return face.size();
    };
    panel.setFont({"Times New Roman", 9.75, true});
    const int oneLine = sizeWith(Fit::Height, "Amount").height() - 4;
    EXPECT_EQ(sizeWith(Fit::Height, "Amount to be paid at once"), QSize(100, 2 * oneLine + 4)) << "two lines";
    const int before = sizeWith(Fit::Width, "Amount to be paid at once").width();
    EXPECT_GT(sizeWith(Fit::Width, "Amount to be paid at once, in cash").width(), before);
    EXPECT_EQ(sizeWith(Fit::Width, "").width(), 4) << "the bevels alone";
}

}  // namespace
