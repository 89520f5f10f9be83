// What the order form makes of what its fields hold: amounts, a complete order, and the sheet that is printed.

#include "forms/frmOrder.h"
#include "platform/printer.h"
#include "platform/shared/printColumns.h"
#include "platform/sim/simulation.h"
#include "tests/gameFixture.h"
#include "tests/seenText.h"

namespace {

using namespace Box;

constexpr const char* keyboard =
    "`1234567890-=qwertyuiop[]\\asdfghjkl;'zxcvbnm,./ ~!@#$%^&*()_+QWERTYUIOP{}|ASDFGHJKL:\"ZXCVBNM<>?";

enum class Ship { Usa, Abroad, Electronically };

std::string told(const platform::Font& font) {
    return font.name + ' ' + std::to_string(font.points) + (font.bold ? " bold" : "");
}

/// The sheet that was printed last, a line of it on each line.
std::string sheet() {
    const auto charactersOf = [](const std::string& text) { return std::u32string(text.begin(), text.end()); };
    std::string all;
    for (const platform::PrintedLine& line : sim::sheets().back()) {
        EXPECT_EQ(told(line.font), told({"Courier New", 14}));
        for (const std::u32string& characters : platform::linesInColumns(line.texts, 66, charactersOf))
            all += std::string(characters.begin(), characters.end()) + '\n';
    }
    return all;
}

class OrderForm : public GameFixture {
  protected:
    /// Opens the form by its button, which finds it empty, does something there and closes it.
    static void inForm(const std::function<void(frmOrder&)>& action) {
        inDialog(Button::Order, [&] {
            frmOrder& order = *gfrmOrder.hold();
            for (const platform::TextBox& box : order.txtOrderInfo) EXPECT_EQ(box.text(), "");
            EXPECT_FALSE(order.chkECopy.value());
            EXPECT_EQ(stateOf(order), "$0 ..");
            EXPECT_TRUE(order.txtOrderInfo[0].hasFocus());
            action(order);
            EXPECT_TRUE(gfrmOrder.isOpen());
            sim::press(order.cmdClose);
        });
    }

    static void type(frmOrder& order, int box, const std::string& text) {
        order.txtOrderInfo[box].setFocus();
        sim::typeText(text);
    }

    /// Puts a text into a box past its filter, as from the clipboard; the keys for that are let go.
    static void paste(frmOrder& order, int box, const std::string& text) {
        order.txtOrderInfo[box].setText(text);
        order.txtOrderInfo_KeyUp(box);
    }

    static void ship(frmOrder& order, Ship where) {
        if (where == Ship::Usa) sim::press(order.optShipCost[0]);
        if (where == Ship::Abroad) sim::press(order.optShipCost[1]);
        if (where == Ship::Electronically) sim::press(order.chkECopy);
    }

    /// Types all that an order needs.
    static void complete(frmOrder& order) {
        type(order, Name, "Ann");
        type(order, Address1, "5 High Street");
        type(order, City, "Salem");
        type(order, Copies, "3");
        ship(order, Ship::Usa);
    }

    /// The amount due, the two ways of shipping ("+" for the one chosen, "x" for what is grey), and whether it can be
    /// printed.
    static std::string stateOf(const frmOrder& order) {
        std::string state = order.pnlAmtDue.caption() + ' ';
        for (const platform::OptionButton& way : order.optShipCost)
            state += way.value() ? '+' : way.enabled() ? '.' : 'x';
        return state + (order.cmdPrint.enabled() ? " Print" : "");
    }
};

TEST_F(OrderForm, WorksOutTheAmountDueAndIsPrintedOnceItIsComplete) {
    using Pastes = std::vector<std::pair<int, const char*>>;
    constexpr const char* overflow = "Error In msCalcAmtDue: Error 6 - Overflow";
    struct {
        const char *what, *state;
        Pastes pastes;                 // into a complete order of three copies that are shipped to the USA
        std::vector<Ship> ships = {};  // then
        const char *typed = "", *report = "", *printed = "";
    } const cases[] = {
        {"complete", "$40 +. Print", {}},
        {"no name", "$40 +.", {{Name, ""}}},
        {"a name of blanks", "$40 +.", {{Name, "   "}}},
        {"no address", "$40 +.", {{Address1, ""}}},
        {"no city", "$40 +.", {{City, " "}}},
        {"no copies", "$0 +.", {{Copies, ""}}},
        {"0 copies", "$0 +.", {{Copies, "0"}}},
        {"all", "$40 +. Print", {{Address3, "x"}, {Country, "y"}, {Email, "z"}}, {}, "", "", "y\n\n  Email:      z\n"},
        {"electronically, without e-mail", "$36 xx", {}, {Ship::Electronically}},
        {"with blanks", "$36 xx", {}, {Ship::Electronically}, "  "},
        {"with e-mail", "$36 xx Print", {}, {Ship::Electronically}, "a@b", "", "Tavin Orlec.\n\n  Mail To:"},
        {"that was there", "$36 xx Print", {{Email, "a@b"}}, {Ship::Electronically}, "c", "", "a@b\n"},
        {"what is grey", "$36 xx", {}, {Ship::Electronically, Ship::Usa}},
        {"the choice undone", "$36 ..", {{Email, "a@b"}}, {Ship::Electronically, Ship::Electronically}},
        {"and abroad", "$43 .+ Print", {}, {Ship::Electronically, Ship::Electronically, Ship::Abroad}},
        {"one copy", "$14 +. Print", {{Copies, "1"}}},
        {"two abroad", "$29 .+ Print", {{Copies, "2"}}, {Ship::Abroad}},
        {"ten", "$131 +. Print", {{Copies, "10"}}},
        {"the most", "$35491 +. Print", {{Copies, "2730"}}},
        {"the most abroad", "$38221 .+ Print", {{Copies, "2730"}}, {Ship::Abroad}},
        {"the most electronically", "$32760 xx", {{Copies, "2730"}}, {Ship::Electronically}},
        {"many", "$16043 +. Print", {{Copies, "1234"}}, {}, "", "", "14808\n  Shipping Charge:             1235\n"},
        {"letters", "$0 +.", {{Copies, "abc"}}},
        {"less than none", "$-64 +.", {{Copies, "-5"}}},
        {"zeros", "$0 +.", {{Copies, "0000"}}},
        {"behind a blank", "$92 +. Print", {{Copies, " 7"}}, {}, "", "", "\n   7 Copies @"},
        {"too many", "$40 +. Print", {{Copies, "2731"}}, {}, "", overflow, "Total:                        $40\n"},
        {"far too many", "$40 +. Print", {{Copies, "9e9"}}, {}, "", overflow},
        {"far less than none", "$40 +.", {{Copies, "-9e9"}}, {}, "", overflow},
        {"no number", "$0 +.", {{Copies, "nan"}}},
        {"other scripts", "$0 +.", {{Copies, "\u4E2D\U0001F004\u0663x"}}},
    };
    for (const auto& row : cases)
        inForm([&](frmOrder& order) {
            SCOPED_TRACE(row.what);
            const size_t sheets = sim::sheets().size(), reports = sim::messages().size();
            complete(order);
            for (const auto& [box, text] : row.pastes) paste(order, box, text);
            for (const Ship where : row.ships) ship(order, where);
            sim::typeText(row.typed);
            EXPECT_EQ(stateOf(order), row.state);
            EXPECT_EQ(sim::messages().size() > reports ? sim::messages().back() : "", row.report);
            sim::press(order.cmdPrint);
            ASSERT_EQ(sim::sheets().size() > sheets, order.cmdPrint.enabled());
            EXPECT_TRUE(*row.printed == 0 || sheet().find(row.printed) != std::string::npos) << sheet();
        });
    for (int time = 0; time < 2; ++time)
        inForm([](frmOrder& order) {
            for (const auto& [copies, state] : {std::pair{"2731", "$0 .."}, {"2", "$24 .."}}) {
                paste(order, Copies, copies);
                EXPECT_EQ(stateOf(order), state) << "nothing is left of the order before";
            }
        });
}

TEST_F(OrderForm, EachBoxTakesItsOwnCharacters) {
    const char* const name = "-qwertyuiopasdfghjkl'zxcvbnm,. &QWERTYUIOPASDFGHJKL\"ZXCVBNM";
    const char* const address = "1234567890-qwertyuiopasdfghjkl'zxcvbnm,./ #&QWERTYUIOPASDFGHJKLZXCVBNM";
    const char* const taken[] = {name, address, address, address, name, name, keyboard, "123456789"};
    for (int box = 0; box < 8; ++box)
        inForm([&](frmOrder& order) {
            std::string all;
            for (const char* key = keyboard; *key != 0; ++key) {
                type(order, box, {*key});
                all += order.txtOrderInfo[box].text();
                order.txtOrderInfo[box].setText("");
            }
            type(order, box, "\u00E9\u0141\u4E2D");
            EXPECT_EQ(all + order.txtOrderInfo[box].text(), taken[box]) << "box " << box;
            type(order, box, std::string(60, taken[box][1]));
            EXPECT_EQ(order.txtOrderInfo[box].text().size(), box == Copies ? 4u : 50u) << "box " << box;
        });
}

TEST_F(OrderForm, AddressLinesCloseUpAsABoxIsLeft) {
    for (int left = 0; left < 8; ++left)
        inForm([&](frmOrder& order) {
            order.txtOrderInfo[left].setFocus();
            for (const int line : {Address2, Address3}) order.txtOrderInfo[line].setText({"0123"[line]});
            order.cmdClose.setFocus();
            const char* const after[] = {"3", "2", ""};
            for (int line = 0; line < 3; ++line)
                EXPECT_EQ(order.txtOrderInfo[1 + line].text(), after[line]) << "line " << line << " leaving " << left;
        });
}

TEST_F(OrderForm, ThePrintersFontComesBackAndAFailingPrinterIsReported) {
    constexpr const char *printing = "Error In msPrintOrder: Error 482 - Printer error",
                         *ending = "Error In cmdPrint_Click: Error 482 - Printer error";
    struct {
        int line;
        bool atEnd;
        platform::Font before, after;
        std::vector<std::string> reports;
        size_t lines;  // of the sheet that goes out all the same
    } const cases[] = {
        {0, false, {"Times New Roman", 11, true}, {"Times New Roman", 11, true}, {}, 25},
        {0, false, {"Wonton ICG", 12.5, false}, {"Wonton ICG", 12, false}, {}, 25},
        {0, false, {"Any", 1e6, true}, {"Any", 12, true}, {}, 25},
        {1, false, {"Any", 9, true}, {"Any", 9, true}, {printing}, 0},
        {5, false, {"Any", 9, true}, {"Any", 9, true}, {printing}, 4},
        {0, true, {"Any", 9, true}, {"Any", 9, true}, {printing}, 0},
        {5, true, {"Any", 9, true}, {"Courier New", 14, false}, {printing, ending}, 0},
    };
    for (const auto& row : cases) {
        inForm([&](frmOrder& order) {
            complete(order);
            platform::printer().font = row.before;
            sim::breakPrinter(row.line, row.atEnd);
            sim::press(order.cmdPrint);
            EXPECT_EQ(sim::messages(), row.reports) << row.line;
            EXPECT_EQ(sim::sheets().empty() ? 0 : sim::sheets()[0].size(), row.lines) << row.line;
            EXPECT_EQ(told(platform::printer().font), told(row.after));
            sim::breakPrinter(0);
            sim::press(order.cmdPrint);
            ASSERT_FALSE(sim::sheets().empty());
            EXPECT_EQ(sim::sheets().back().size(), 25u) << "once more, whole";
        });
        TearDown();
        SetUp();
    }
}

TEST_F(OrderForm, TheSheetHoldsTheOrderInItsColumns) {
    constexpr const char* copies = "3 Copies @ US $12 each:        36";
    const auto many = [](size_t letters) { return std::string(letters, 'x'); };
    struct {
        int box;
        std::string text;  // put into it
        const char* from;  // of the full sheet
        std::string to;
        const char *state = "Oregon - OR", *zip = "97301";
    } const cases[] = {
        {Email, "", "  Email:      ann@example.org\n", ""},
        {Address2, "", "              5 High Street\n", ""},
        {Address3, "", "              Old Town\n", ""},
        {Country, "", "              Canada\n", ""},
        {Address2, " ", "5 High Street\n", "\n"},
        {Name, "  Ann B. Carter ", "", ""},
        {City, " Salem ", "Salem, OR", " Salem , OR"},
        {City, many(42), "Salem", many(42)},
        {City, many(43), "Salem, OR", many(43) + ", \n              OR"},
        {City, many(48), "Salem, OR 97301", many(48) + ", OR      ", "Oregon - OR", "     "},
        {City, "Salem", ", OR 97301", "", ""},
        {City, "Salem", "97301", "     ", "Oregon - OR", "     "},
        {City, "Salem", ", OR", ", ND", "North Dakota ND"},
        {Copies, "01", copies, "01 Copy @ US $12 each:         12"},
        {Copies, "9999", copies, "9999 Copies @ US $12 each: 119988"},
        {Copies, "nan", copies, "nan Copies @ US $12 each:       0"},
        {Copies, "1", copies, "1 Copy @ US $12 each:          12"},
    };
    for (const auto& row : cases) {
        OrderSheet order;
        order.txtOrderInfo = {"Ann B. Carter", "Apt. #12", "5 High Street",   "Old Town",
                              "Salem",         "Canada",   "ann@example.org", "3"};
        order.txtOrderInfo[row.box] = row.text;
        order.cboOrderInfo = row.state;
        order.mskOrderInfo = row.zip;
        order.mlngShipCharge = 4;
        order.pnlAmtDue = "$40";
        gsPrintOrderSheet(order, platform::printer());
        std::string expected = seenText("sheet");
        EXPECT_EQ(sheet(), expected.replace(expected.find(row.from), std::string(row.from).size(), row.to));
    }
}

}  // namespace
