#include <array>
#include <memory>
#include <vector>

#include "platform/controls.h"
#include "platform/fields.h"
#include "platform/runtime.h"
#include "tests/contractFixture.h"

// What the controls on a form promise on every back end.

namespace {

using namespace platform;
using namespace driver;
using namespace key;

class ControlContract : public Contract {};

using Note = std::function<void(const std::string&)>;

/// A dialog with two buttons and a spin button, in this order.
struct Setting {
    explicit Setting(const Note& note) {
        ok.setCaption("OK");
        ok.makeDefault();
        ok.onClick = [note] { note("OK"); };
        cancel.setCaption("Cancel");
        cancel.makeCancel();
        cancel.onClick = [note] { note("Cancel"); };
        spin.onSpinUp = [note] { note("up"); };
        spin.onSpinDown = [note] { note("down"); };
    }

    Form form;
    Panel panel{form, {0, 0, 100, 50}};
    CommandButton ok{panel, {5, 5, 40, 20}};
    CommandButton cancel{panel, {50, 5, 40, 20}};
    SpinButton spin{panel, {5, 25, 12, 20}};
};

TEST_F(ControlContract, KeysWorkTheControls) {
    constexpr int tab = Tab;
    struct {
        std::vector<int> keys;
        const char* trace;
        int swallowedDown = 0;
        int swallowedPress = 0;
    } const rows[] = {
        {{Enter}, "OK"},
        {{Space}, "OK"},
        {{Escape}, "Cancel"},
        {{'A'}, ""},
        {{Up}, ""},
        {{Up, Up}, "up"},
        {{Right, Space}, "Cancel"},
        {{Down, Left, Space}, "OK"},
        {{tab, Space}, "Cancel"},
        {{tab, Enter}, "Cancel"},
        {{tab, tab, Up, Up, Down}, "up, up, down"},
        {{tab, tab, Pad8, Pad2, Pad2}, "up, down, down"},
        {{tab, tab, Left, Right, Pad4, Pad6, Up}, "up"},
        {{tab, tab, Enter}, "OK"},
        {{tab, tab, Space}, ""},
        {{tab, tab, tab, Space}, "OK"},
        {{Enter, Escape}, "Cancel", Enter, 0},
        {{Enter, Escape}, "Cancel", 0, Enter},
        {{tab, tab, Up, Down}, "down", Up, 0},
        {{tab, Space}, "OK", tab, 0},
    };
    showMain();
    for (const auto& row : rows) {
        trace_.clear();
        Setting setting([this](const std::string& what) { note(what); });
        setting.form.onKeyDown = [&](int& code) { code = code == row.swallowedDown ? 0 : code; };
        setting.form.onKeyPress = [&](int& character) { character = character == row.swallowedPress ? 0 : character; };
        inDialog(setting.form, [&] {
            for (const int keyCode : row.keys) pressKey(keyCode);
        });
        EXPECT_EQ(trace_, row.trace) << "in row " << &row - rows;
    }
}

TEST_F(ControlContract, HeldKeysAndThePointer) {
    struct {
        const char* what;
        void (*act)(Setting&);
        const char* trace;
    } const rows[] = {
        {"Enter presses once", [](Setting&) { keyDown(Enter), keyDown(Enter); }, "OK"},
        {"Escape presses once", [](Setting&) { keyDown(Escape), keyDown(Escape); }, "Cancel"},
        {"Space waits until it is let go", [](Setting&) { keyDown(Space), keyDown(Space); }, ""},
        {"and then presses once", [](Setting&) { keyDown(Space), keyDown(Space), keyUp(Space); }, "OK"},
        {"Space let go on another control", [](Setting&) { keyDown(Space), pressKey(Tab), keyUp(Space); }, ""},
        {"an arrow spins again and again", [](Setting& s) { s.spin.setFocus(), keyDown(Up), keyDown(Up); }, "up, up"},
        {"a held Tab goes round", [](Setting&) { keyDown(Tab), keyDown(Tab), pressKey(Down); }, "down"},
        {"Shift+Tab goes back", [](Setting&) { pressShiftTab(), pressKey(Up), pressShiftTab(), pressKey(Space); },
         "up, Cancel"},
        {"a click gives the focus", [](Setting& s) { click(s.cancel), pressKey(Enter); }, "Cancel, Cancel"},
        {"Enter on a clicked spin button", [](Setting& s) { s.spin.setFocus(), pressKey(Enter); }, "OK"},
        {"a disabled button isn't pressed", [](Setting& s) { s.ok.setEnabled(false), click(s.ok), pressKey(Escape); },
         "Cancel"},
        {"and answers no Enter", [](Setting& s) { s.ok.setEnabled(false), s.spin.setFocus(), pressKey(Enter); }, ""},
        {"the focus leaves what is disabled", [](Setting& s) { s.ok.setEnabled(false), pressKey(Space); }, "Cancel"},
        {"Tab passes by what is no stop", [](Setting& s) { s.cancel.setTabStop(false), pressKey(Tab), pressKey(Up); },
         "up"},
        {"another tab order", [](Setting& s) { s.spin.setTabIndex(1), pressKey(Tab), pressKey(Up); }, "up"},
        {"the pressed button has the focus", [](Setting&) { pressKey(Escape), pressKey(Space); }, "Cancel, Cancel"},
    };
    showMain();
    for (const auto& row : rows) {
        trace_.clear();
        Setting setting([this](const std::string& what) { note(what); });
        inDialog(setting.form, [&] { row.act(setting); });
        EXPECT_EQ(trace_, row.trace) << row.what;
        for (const int code : {Enter, Escape, Space, Up, Tab}) keyUp(code);
    }
}

TEST_F(ControlContract, NothingOfAPressBeforeADialogReachesIt) {
    showMain();
    Setting below([this](const std::string& what) { note("below " + what); });
    Setting above([this](const std::string& what) { note("above " + what); });
    inDialog(below.form, [&] {
        below.spin.setFocus();
        keyDown(Space);
        inDialog(above.form, [&] {
            EXPECT_TRUE(above.ok.hasFocus());
            keyDown(Space);
            keyUp(Space);
            EXPECT_EQ(trace_, "") << "begun below";
            for (const int code : {Tab, Space}) pressKey(code);
            for (int i = 0; i < 2; ++i) pressKey(Tab);
            EXPECT_TRUE(above.ok.hasFocus()) << "round and round within the form";
        });
        EXPECT_TRUE(below.spin.hasFocus()) << "the focus is where it was";
        pressKey(Down);
    });
    EXPECT_EQ(trace_, "above Cancel, below down");
}

TEST_F(ControlContract, ClickedButtonBelongsToTheFormOnTop) {
    showMain();
    Setting below([this](const std::string& what) { note("below " + what); });
    Setting above([this](const std::string& what) { note("above " + what); });
    below.cancel.setCaption("Leave");
    inDialog(below.form, [&] {
        inDialog(above.form, [] {
            clickButton("Cancel");
            clickButton("Leave");
        });
        clickButton("Leave");
    });
    EXPECT_EQ(trace_, "above Cancel, below Cancel");
}

TEST_F(ControlContract, AFormIsToldWhenItIsOnTop) {
    showMain();
    Setting below([](const std::string&) {});
    Setting above([](const std::string&) {});
    below.form.onLoad = [&] { note("below loads"); };
    below.ok.onValidate = [&] { note("its focus leaves"); };
    below.form.onActivate = [&] {
        note("below on top");
        below.spin.setTabIndex(0);
    };
    below.spin.onGotFocus = [&] { note("its first control"); };
    above.form.onActivate = [&] { note("above on top"); };
    above.form.onUnload = [&] { note("above unloads"); };
    for (const char* const showing : {"the first time", "and again"}) {
        trace_.clear();
        inDialog(below.form, [&] {
            inDialog(above.form, [] {});
            below.ok.setFocus();
        });
        EXPECT_EQ(trace_, "below loads, below on top, its first control, above on top, above unloads, below on top")
            << showing;
    }
}

/// A dialog with a field of each kind.
struct Entry {
    Entry() {
        copy.setCaption("Copy");
        near.setCaption("Near");
        far.setCaption("Far");
    }

    Form form;
    Panel panel{form, {0, 0, 300, 200}};
    TextBox name{panel, {100, 10, 100, 20}};
    TextBox town{panel, {100, 40, 100, 20}};
    ComboBox state{panel, {100, 70, 100, 24}};
    MaskEdBox zip{panel, {100, 100, 60, 20}, "#####"};
    CheckBox copy{panel, {100, 130, 90, 20}};
    OptionButton near{panel, {10, 160, 80, 20}};
    OptionButton far{panel, {100, 160, 80, 20}};
    CommandButton print{panel, {200, 160, 80, 20}};
};

class FieldContract : public Contract {
  protected:
    /// Does that in a dialog of its own.
    void inEntry(const std::function<void(Entry&)>& action) {
        trace_.clear();
        auto entry = std::make_unique<Entry>();
        inDialog(entry->form, [&] { action(*entry); });
    }

    void SetUp() override { showMain(); }
};

void swallowDigits(int& character) { character = character >= '0' && character <= '9' ? 0 : character; }

TEST_F(FieldContract, TypedTextPassesTheHandlersAndPastedTextKeepsToTheLimit) {
    struct {
        const char* what;
        std::function<void(Entry&)> act;
        const char* text;
    } const rows[] = {
        {"typed", [](Entry&) { typeText("Zo\u00EB \u0141\u4E2D, 7"); }, "Zo\u00EB \u0141\u4E2D, 7"},
        {"the box swallows", [](Entry& e) { e.name.onKeyPress = swallowDigits, typeText("a1b2"); }, "ab"},
        {"the form swallows", [](Entry& e) { e.form.onKeyPress = swallowDigits, typeText("a1b2"); }, "ab"},
        {"the form swallows a key",
         [](Entry& e) {
             e.form.onKeyDown = [](int& code) { code = code == 'B' ? 0 : code; };
             typeText("abc");
         },
         "ac"},
        {"the box gives another character",
         [](Entry& e) {
             e.name.onKeyPress = [](int& c) { c = c == 'a' ? 'b' : c == 'o' ? 0xF6 : c; };
             typeText("aoc");
         },
         "b\u00F6c"},
        {"a character outside Latin-1 is none of it",
         [](Entry& e) {
             e.name.onKeyPress = [](int& c) { c = c == OtherCharacter ? 0 : c; };
             typeText("\u0141\u4E2Dx\u200D\U0001F004\u00FF");
         },
         "x\u00FF"},
        {"composed", [](Entry&) { composeText("Zo\u00EB\n \U0001F004"); }, "Zo\u00EB \U0001F004"},
        {"the box swallows what is composed", [](Entry& e) { e.name.onKeyPress = swallowDigits, composeText("a1b2"); },
         "ab"},
        {"and the form too", [](Entry& e) { e.form.onKeyPress = swallowDigits, composeText("1a2b"); }, "ab"},
        {"the box gives another one for what is composed",
         [](Entry& e) {
             e.name.onKeyPress = [](int& c) { c = c == OtherCharacter ? 0xF6 : c; };
             composeText("a\u0151");
         },
         "a\u00F6"},
        {"a fourth of the second plane", [](Entry& e) { e.name.setMaxLength(3), typeText("\U0001F004\U0001F005bc"); },
         "\U0001F004\U0001F005b"},
        {"composed past the limit", [](Entry& e) { e.name.setMaxLength(2), composeText("a\U0001F004b"); },
         "a\U0001F004"},
        {"pasted past it in the middle",
         [](Entry& e) {
             e.name.setMaxLength(4), e.name.setText("a\U0001F004b"), e.name.select(2, 0), pasteText("xyz");
         },
         "a\U0001F004xb"},
        {"set past it", [](Entry& e) { e.name.setMaxLength(2), e.name.setText("\U0001F004\U0001F005\U0001F006"); },
         "\U0001F004\U0001F005"},
        {"pasted", [](Entry&) { pasteText("Caf\u00E9"); }, "Caf\u00E9"},
        {"pasted past the filter", [](Entry& e) { e.name.onKeyPress = swallowDigits, pasteText("a1"); }, "a1"},
        {"pasted lines", [](Entry&) { pasteText("one\ntwo\tthree"); }, "one two three"},
        {"behind a set text", [](Entry& e) { e.name.setText("ab"), typeText("c"); }, "abc"},
        {"instead of a selection", [](Entry& e) { e.name.setText("abcd"), e.name.select(1, 2), typeText("xyz"); },
         "axyzd"},
        {"all is selected", [](Entry& e) { e.name.setText("abcd"), e.name.select(0, 4), pasteText("x"); }, "x"},
        {"Tab selects all", [](Entry& e) { e.name.setText("abcd"), pressKey(Tab), pressShiftTab(), typeText("x"); },
         "x"},
        {"Backspace", [](Entry&) { typeText("abc"), pressKey(8); }, "ab"},
        {"Backspace passes filters",
         [](Entry& e) {
             e.name.setText("12");
             e.name.onKeyPress = [](int& c) { c = c > 31 ? 0 : c; };
             pressKey(8);
         },
         "1"},
        {"a disabled box", [](Entry& e) { e.name.setEnabled(false), typeText("a"); }, ""},
        {"the box without the focus", [](Entry& e) { e.town.setFocus(), typeText("a"); }, ""},
    };
    for (const auto& row : rows)
        inEntry([&](Entry& entry) {
            row.act(entry);
            EXPECT_EQ(entry.name.text(), row.text) << row.what;
        });
}

TEST_F(FieldContract, TheHandlersOfAControlFollowTheFocus) {
    const auto notePlaces = [this](Entry& e) {
        const std::pair<Control*, const char*> controls[] = {{&e.name, "name"}, {&e.town, "town"}, {&e.zip, "zip"}};
        for (const auto& [control, what] : controls) {
            control->onGotFocus = [this, what] { note(std::string(what) + " gets it"); };
            control->onValidate = [this, what] { note(std::string(what) + " leaves"); };
            control->onKeyUp = [this, what](int code) { note(std::string(what) + " up " + std::to_string(code)); };
        }
        e.print.onClick = [this] { note("print"); };
    };
    struct {
        const char* what;
        std::function<void(Entry&)> act;
        const char* trace;
    } const rows[] = {
        {"Tab", [](Entry&) { pressKey(Tab); }, "name leaves, town gets it, town up 9"},
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
         [this](Entry& e) {
             e.name.onKeyPress = [this](int& c) {
                 if (c != Enter) return;
                 c = 0;
                 sendTab();
                 note("asked");
             };
             pressKey(Enter);
             run(20);
         },
         "asked, name up 13, name leaves, town gets it, town up 9"},
    };
    for (const auto& row : rows)
        inEntry([&](Entry& entry) {
            notePlaces(entry);
            row.act(entry);
            run(200);
            EXPECT_EQ(trace_, row.trace) << row.what;
        });
}

TEST_F(FieldContract, TheSelectionIsWhatWasSelected) {
    inEntry([](Entry& e) {
        e.name.setText("Zo\U0001F004 Lee");
        EXPECT_EQ(e.name.selStart(), 7) << "the caret stands behind a text that was set";
        EXPECT_EQ(e.name.selLength(), 0);
        e.name.select(0, 7);
        EXPECT_EQ(e.name.selLength(), 7);
        e.name.select(4, 99);
        EXPECT_EQ(e.name.selStart(), 4);
        EXPECT_EQ(e.name.selLength(), 3);
        typeText("Ng");
        EXPECT_EQ(e.name.text(), "Zo\U0001F004 Ng");
        EXPECT_EQ(e.name.selStart(), 6);
    });
}

TEST_F(FieldContract, TheMaskTakesDigitsAtItsPlaces) {
    struct {
        const char* what;
        std::function<void(Entry&)> act;
        const char* text;
    } const rows[] = {
        {"nothing", [](Entry&) {}, "     "},
        {"three digits", [](Entry&) { typeText("907"); }, "907  "},
        {"no letters", [](Entry&) { typeText("9a0-7"); }, "907  "},
        {"no sixth digit", [](Entry&) { typeText("123456"); }, "12345"},
        {"over all that is selected", [](Entry& e) { typeText("12345"), e.zip.select(0, 5), typeText("7"); }, "7    "},
        {"Backspace leaves a blank", [](Entry&) { typeText("123"), pressKey(8); }, "12   "},
        {"cleared", [](Entry& e) { typeText("12"), e.zip.clear(); }, "     "},
        {"the filter comes first", [](Entry& e) { e.zip.onKeyPress = swallowDigits, typeText("1"), composeText("2"); },
         "     "},
    };
    for (const auto& row : rows)
        inEntry([&](Entry& entry) {
            entry.zip.setFocus();
            entry.zip.select(0, 0);
            row.act(entry);
            EXPECT_EQ(entry.zip.text(), row.text) << row.what;
        });
}

TEST_F(FieldContract, KeysChooseARow) {
    constexpr double pause = 600;  // milliseconds, after which a letter begins a search anew
    struct {
        const char* what;
        std::function<void(Entry&)> act;
        int row;
    } const rows[] = {
        {"nothing", [](Entry&) {}, -1},
        {"a letter", [](Entry&) { typeText("a"); }, 1},
        {"the same letter again", [](Entry&) { typeText("a"), run(pause), typeText("A"); }, 2},
        {"and round", [](Entry&) { typeText("a"), run(pause), typeText("a"), run(pause), typeText("a"); }, 1},
        {"the same letter at once", [](Entry&) { typeText("aA"); }, 2},
        {"and round at once", [](Entry&) { typeText("aaa"); }, 1},
        {"another letter", [](Entry&) { typeText("n"); }, 3},
        {"a letter of no row", [](Entry& e) { e.state.setListIndex(2), typeText("x"); }, 2},
        {"Down", [](Entry&) { pressKey(Down), pressKey(Down); }, 1},
        {"Up", [](Entry& e) { e.state.setListIndex(2), pressKey(Up); }, 1},
        {"Down at the end", [](Entry& e) { e.state.setListIndex(3), pressKey(Down); }, 3},
        {"a swallowed letter", [](Entry& e) { e.state.onKeyPress = [](int& c) { c = 0; }, typeText("a"); }, -1},
    };
    for (const auto& row : rows)
        inEntry([&](Entry& entry) {
            for (const char* text : {"", "Alaska - AK", "Alabama - AL", "Nevada - NV"}) entry.state.addItem(text);
            entry.state.setFocus();
            row.act(entry);
            EXPECT_EQ(entry.state.listIndex(), row.row) << row.what;
            EXPECT_EQ(entry.state.text(), row.row < 0 ? "" : entry.state.list(row.row)) << row.what;
            entry.state.clear();
            EXPECT_EQ(entry.state.listCount(), 0);
            EXPECT_EQ(entry.state.text(), "");
        });
    inEntry([](Entry& entry) {
        entry.state.addItem("Utah - UT");
        EXPECT_THROW(entry.state.list(1), RuntimeError);
        EXPECT_THROW(entry.state.setListIndex(1), RuntimeError);
        EXPECT_THROW(entry.state.setListIndex(-2), RuntimeError);
    });
}

TEST_F(FieldContract, BoxesAndOptionsAreTickedAndChosen) {
    struct {
        const char* what;
        std::function<void(Entry&)> act;
        const char* trace;
        const char* values;  // of the box, then of the options
    } const rows[] = {
        {"nothing", [](Entry&) {}, "", "000"},
        {"a click ticks", [](Entry& e) { click(e.copy); }, "copy", "100"},
        {"and clears", [](Entry& e) { click(e.copy), click(e.copy); }, "copy, copy", "000"},
        {"Space ticks", [](Entry& e) { e.copy.setFocus(), pressKey(Space); }, "copy", "100"},
        {"its access key", [](Entry& e) { e.copy.setCaption("Cop&y"), pressAccessKey('Y'); }, "copy", "100"},
        {"the program ticks silently", [](Entry& e) { e.copy.setValue(true); }, "", "100"},
        {"a click chooses", [](Entry& e) { click(e.near); }, "near", "010"},
        {"and another one", [](Entry& e) { click(e.near), click(e.far); }, "near, far", "001"},
        {"the program clears what was chosen", [](Entry& e) { click(e.far), e.far.setValue(false); }, "far", "000"},
        {"the program chooses silently", [](Entry& e) { e.far.setValue(true), e.near.setValue(true); }, "", "010"},
        {"an arrow chooses the next one", [](Entry& e) { click(e.near), pressKey(Right); }, "near, far", "001"},
        {"Tab comes to those that aren't chosen too",
         [](Entry& e) {
             e.far.setValue(true), e.copy.setFocus();
             for (const int code : {int{Tab}, int{Space}, int{Tab}, int{Tab}, int{Space}}) pressKey(code);
         },
         "near, print", "010"},
        {"Space chooses", [](Entry& e) { e.near.setFocus(), pressKey(Space); }, "near", "010"},
        {"a disabled option", [](Entry& e) { e.far.setEnabled(false), click(e.far); }, "", "000"},
        {"a disabled box", [](Entry& e) { e.copy.setEnabled(false), click(e.copy); }, "", "000"},
    };
    for (const auto& row : rows)
        inEntry([&](Entry& e) {
            e.copy.onClick = [&] { note("copy"); };
            e.near.onClick = [&] { note("near"); };
            e.far.onClick = [&] { note("far"); };
            e.print.onClick = [&] { note("print"); };
            row.act(e);
            run(200);
            EXPECT_EQ(trace_, row.trace) << row.what;
            const bool values[] = {e.copy.value(), e.near.value(), e.far.value()};
            for (int i = 0; i < 3; ++i) EXPECT_EQ(values[i], row.values[i] == '1') << row.what;
        });
}

TEST_F(FieldContract, TabFollowsTheTabOrder) {
    inEntry([](Entry& e) {
        const auto index = [](const Control& control) { return control.tabIndex(); };
        EXPECT_EQ(index(e.name), 0);
        EXPECT_EQ(index(e.print), 7);
        e.print.setTabIndex(1);
        e.zip.setTabIndex(2);
        EXPECT_EQ(index(e.town), 3);
        for (Control* next : std::array<Control*, 4>{&e.print, &e.zip, &e.town, &e.state}) {
            pressKey(Tab);
            EXPECT_TRUE(next->hasFocus()) << next->tabIndex();
        }
    });
}

TEST_F(FieldContract, APanelTakesItsSizeFromItsCaption) {
    inEntry([](Entry& e) {
        Panel panel(e.panel, {10, 20, 100, 17});
        const PanelLook cut{Bevel::Inset, Bevel::None, 2, 0xC0C0C0, 0, Align::Left, Fit::Cut};
        PanelLook high = cut, wide = cut;
        high.fit = Fit::Height;
        wide.fit = Fit::Width;
        panel.setFont({"Times New Roman", 9.75, true});
        panel.setLook(cut);
        panel.setCaption("Amount");
        EXPECT_EQ(panel.place().height, 17);
        EXPECT_EQ(panel.place().width, 100);
        panel.setLook(high);
        const int oneLine = panel.place().height - 4;
        EXPECT_GT(oneLine, 10);
        EXPECT_LT(oneLine, 20);
        panel.setCaption("Amount to be paid at once");
        EXPECT_EQ(panel.place().height, 2 * oneLine + 4) << "two lines";
        EXPECT_EQ(panel.place().top, 20);
        EXPECT_EQ(panel.place().width, 100);
        panel.setLook(wide);
        const int before = panel.place().width;
        panel.setCaption("Amount to be paid at once, in cash");
        EXPECT_GT(panel.place().width, before);
        panel.setCaption("");
        EXPECT_EQ(panel.place().width, 4) << "the bevels alone";
    });
}

}  // namespace
