// What the order form makes of what its fields hold: amounts, a complete order, and what goes to the printer.

#include <functional>

#include "forms/frmOrder.h"
#include "platform/printer.h"
#include "platform/sim/simulation.h"
#include "presentation/buttons.h"
#include "tests/expectedSheet.h"
#include "tests/gameFixture.h"

namespace {

constexpr const char* keyboard =
    "`1234567890-=qwertyuiop[]\\asdfghjkl;'zxcvbnm,./ ~!@#$%^&*()_+QWERTYUIOP{}|ASDFGHJKL:\"ZXCVBNM<>?";

enum class Ship { Nowhere, Usa, Abroad, Electronically };

class OrderForm : public GameFixture {
  protected:
    /// Opens the form by its button and does something there; it is closed afterwards if it is still open.
    void inForm(const std::function<void(frmOrder&)>& action) {
        bool done = false;
        sim::post([&] {
            ASSERT_TRUE(gfrmOrder.isOpen());
            action(*gfrmOrder.hold());
            done = true;
            sim::press(gfrmOrder->cmdClose);
        });
        sim::clickToolButton(Button::Order);
        EXPECT_TRUE(done);
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

    /// Types to whom the order goes.
    static void address(frmOrder& order) {
        type(order, Box::Name, "Ann");
        type(order, Box::Address1, "5 High Street");
        type(order, Box::City, "Salem");
    }

    /// Types all that an order needs.
    static void complete(frmOrder& order) {
        address(order);
        type(order, Box::Copies, "3");
        ship(order, Ship::Usa);
        EXPECT_TRUE(order.cmdPrint.enabled());
    }

    static std::string sheet(size_t number) { return printedSheet(sim::sheets().at(number)); }
};

TEST_F(OrderForm, OpensEmptyOverTheTable) {
    for (int showing = 0; showing < 2; ++showing)
        inForm([&](frmOrder& order) {
            for (const platform::TextBox& box : order.txtOrderInfo) EXPECT_EQ(box.text(), "");
            EXPECT_FALSE(order.chkECopy.value() || order.optShipCost[0].value() || order.optShipCost[1].value());
            EXPECT_TRUE(order.optShipCost[0].enabled() && order.optShipCost[1].enabled());
            EXPECT_EQ(order.pnlAmtDue.caption(), "$0");
            EXPECT_FALSE(order.cmdPrint.enabled());
            EXPECT_TRUE(order.txtOrderInfo[0].hasFocus());
            complete(order);
            ship(order, Ship::Electronically);
        });
}

TEST_F(OrderForm, TheAmountDueFollowsTheCopiesAndTheShipping) {
    struct {
        const char* copies;
        int due[4];  // dollars: shipped nowhere yet, to the USA, abroad, electronically
    } const cases[] = {
        {"", {0, 0, 0, 0}},      {"1", {12, 14, 15, 12}},      {"2", {24, 27, 29, 24}},
        {"3", {36, 40, 43, 36}}, {"10", {120, 131, 141, 120}}, {"2730", {32760, 35491, 38221, 32760}},
    };
    for (const auto& row : cases)
        for (const Ship where : {Ship::Nowhere, Ship::Usa, Ship::Abroad, Ship::Electronically})
            for (const bool copiesFirst : {true, false})
                inForm([&](frmOrder& order) {
                    SCOPED_TRACE(testing::Message() << row.copies << " copies, shipping " << static_cast<int>(where));
                    if (copiesFirst) type(order, Box::Copies, row.copies);
                    ship(order, where);
                    if (!copiesFirst) type(order, Box::Copies, row.copies);
                    const int due = row.due[static_cast<int>(where)];
                    EXPECT_EQ(order.pnlAmtDue.caption(), "$" + std::to_string(due));
                    EXPECT_EQ(order.mlngShipCharge, due - row.due[0]);
                });
    EXPECT_TRUE(sim::messages().empty());
}

TEST_F(OrderForm, AnyCopiesThatArePastedCanBePrintedOrAreReported) {
    struct {
        const char *pasted, *due;  // after three copies were shipped to the USA
        bool complete;
        const char *report, *printed;
    } const cases[] = {
        {"1234", "$16043", true, "", "  1234 Copies @ US $12 each:  14808\n  Shipping Charge:             1235\n"},
        {"abc", "$0", false, "", ""},
        {"-5", "$-64", false, "", ""},
        {"0000", "$0", false, "", ""},
        {" 7", "$92", true, "", " 7 Copies @"},
        {"2731", "$40", true, "Error In msCalcAmtDue: Error 6 - Overflow",
         "  2731 Copies @ US $12 each:  32772\n  Shipping Charge:             2732\n\n  Total:                        "
         "$40\n"},
        {"9e9", "$40", true, "Error In msCalcAmtDue: Error 6 - Overflow", "  Name:       Ann\n"},
        {"4e4", "$40", true, "Error In msCalcAmtDue: Error 6 - Overflow", "4e4 Copies @"},
        {"-9e9", "$40", false, "Error In msCalcAmtDue: Error 6 - Overflow", ""},
        {"nan", "$0", false, "", ""},
        {"\u4E2D\U0001F004\u0663x", "$0", false, "", ""},
    };
    for (const auto& row : cases)
        inForm([&](frmOrder& order) {
            const size_t sheets = sim::sheets().size(), reports = sim::messages().size();
            complete(order);
            paste(order, Box::Copies, row.pasted);
            EXPECT_EQ(order.pnlAmtDue.caption(), row.due) << row.pasted;
            EXPECT_EQ(sim::messages().size() > reports ? sim::messages().back() : "", row.report) << row.pasted;
            EXPECT_EQ(order.cmdPrint.enabled(), row.complete) << row.pasted;
            sim::press(order.cmdPrint);
            ASSERT_EQ(sim::sheets().size(), sheets + (row.complete ? 1 : 0)) << row.pasted;
            EXPECT_NE((row.complete ? sheet(sheets) : "").find(row.printed), std::string::npos) << row.pasted;
        });
}

TEST_F(OrderForm, PrintWaitsUntilTheOrderIsComplete) {
    struct {
        const char* what;
        std::function<void(frmOrder&)> change;
        bool complete;
    } const cases[] = {
        {"complete", [](frmOrder&) {}, true},
        {"no name", [](frmOrder& o) { paste(o, Box::Name, ""); }, false},
        {"a name of blanks", [](frmOrder& o) { paste(o, Box::Name, "   "); }, false},
        {"no address", [](frmOrder& o) { paste(o, Box::Address1, ""); }, false},
        {"no city", [](frmOrder& o) { paste(o, Box::City, " "); }, false},
        {"no copies", [](frmOrder& o) { paste(o, Box::Copies, ""); }, false},
        {"0 copies", [](frmOrder& o) { paste(o, Box::Copies, "0"); }, false},
        {"electronically, without e-mail", [](frmOrder& o) { ship(o, Ship::Electronically); }, false},
        {"electronically, with blanks", [](frmOrder& o) { ship(o, Ship::Electronically), sim::typeText("  "); }, false},
        {"electronically, with e-mail", [](frmOrder& o) { ship(o, Ship::Electronically), sim::typeText("a@b"); }, true},
        {"the choice undone",
         [](frmOrder& o) { ship(o, Ship::Electronically), sim::typeText("a@b"), ship(o, Ship::Electronically); },
         false},
        {"all else besides",
         [](frmOrder& o) {
             for (const int box : {Box::Address2, Box::Address3, Box::Country, Box::Email}) paste(o, box, "x");
         },
         true},
    };
    for (const auto& row : cases)
        inForm([&](frmOrder& order) {
            complete(order);
            row.change(order);
            EXPECT_EQ(order.cmdPrint.enabled(), row.complete) << row.what;
        });
}

TEST_F(OrderForm, AnElectronicCopyTakesThePlaceOfShipping) {
    inForm([](frmOrder& order) {
        complete(order);
        ship(order, Ship::Electronically);
        EXPECT_EQ(order.pnlAmtDue.caption(), "$36");
        EXPECT_EQ(order.mintShipOption, -1);
        EXPECT_FALSE(order.optShipCost[0].value() || order.optShipCost[0].enabled() || order.optShipCost[1].enabled());
        EXPECT_FALSE(order.cmdPrint.enabled());
        EXPECT_TRUE(order.txtOrderInfo[Box::Email].hasFocus());
        ship(order, Ship::Usa);
        EXPECT_EQ(order.mintShipOption, -1) << "it is disabled";

        ship(order, Ship::Electronically);
        EXPECT_EQ(order.pnlAmtDue.caption(), "$36") << "nothing is chosen any more";
        EXPECT_FALSE(order.optShipCost[0].value() || order.optShipCost[1].value());
        EXPECT_TRUE(order.optShipCost[0].enabled() && order.optShipCost[1].enabled());
        ship(order, Ship::Abroad);
        EXPECT_EQ(order.pnlAmtDue.caption(), "$43");

        type(order, Box::Email, "a@b");
        ship(order, Ship::Electronically);
        EXPECT_TRUE(order.chkECopy.hasFocus()) << "the address is there already";
        EXPECT_TRUE(order.cmdPrint.enabled());
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
            EXPECT_EQ(order.txtOrderInfo[box].text().size(), box == Box::Copies ? 4u : 50u) << "box " << box;
        });
}

TEST_F(OrderForm, AddressLinesCloseUpAsABoxIsLeft) {
    for (const int left : {0, 1, 2, 3, 4, 5, 6, 7})
        inForm([&](frmOrder& order) {
            order.txtOrderInfo[left].setFocus();
            for (const int line : {Box::Address2, Box::Address3}) order.txtOrderInfo[line].setText({"0123"[line]});
            order.cmdClose.setFocus();
            const char* const after[] = {"3", "2", ""};
            for (int line = 0; line < 3; ++line)
                EXPECT_EQ(order.txtOrderInfo[1 + line].text(), after[line]) << "line " << line << " leaving " << left;
        });
}

TEST_F(OrderForm, AllThatWasFilledInIsPrintedAsOftenAsWanted) {
    inForm([](frmOrder& order) {
        complete(order);
        type(order, Box::Country, "Canada");
        type(order, Box::Email, "a@b");
        sim::press(order.cmdPrint);
        sim::press(order.chkECopy);
        sim::press(order.cmdPrint);
        EXPECT_NE(sheet(0).find("Salem\n              Canada\n\n  Email:      a@b\n"), std::string::npos) << sheet(0);
        EXPECT_NE(sheet(0).find("Allow"), std::string::npos);
        EXPECT_EQ(sheet(1).find("Allow"), std::string::npos);
        EXPECT_NE(sheet(1).find("Shipping Charge:                0\n"), std::string::npos);
        EXPECT_EQ(order.txtOrderInfo[Box::Name].text(), "Ann");
    });
}

TEST_F(OrderForm, AFailingPrinterIsReportedAndNothingTypedIsLost) {
    struct {
        const char* what;
        int line;
        bool atEnd;
        std::vector<std::string> reports;
        size_t lines;  // of the sheet that goes out all the same
        const char* fontAfter;
    } const cases[] = {
        {"at the first line", 1, false, {"Error In msPrintOrder: Error 482 - Printer error"}, 0, "Any"},
        {"in the middle", 5, false, {"Error In msPrintOrder: Error 482 - Printer error"}, 4, "Any"},
        {"at the end", 0, true, {"Error In msPrintOrder: Error 482 - Printer error"}, 0, "Any"},
        {"in the middle and at the end",
         5,
         true,
         {"Error In msPrintOrder: Error 482 - Printer error", "Error In cmdPrint_Click: Error 482 - Printer error"},
         0,
         "Courier New"},
    };
    for (const auto& row : cases) {
        inForm([&](frmOrder& order) {
            complete(order);
            platform::printer().font = {"Any", 9, true};
            sim::breakPrinter(row.line, row.atEnd);
            sim::press(order.cmdPrint);
            EXPECT_EQ(sim::messages(), row.reports) << row.what;
            EXPECT_EQ(sim::sheets().empty() ? 0 : sim::sheets()[0].size(), row.lines) << row.what;
            EXPECT_EQ(platform::printer().font.name, row.fontAfter) << row.what;
            EXPECT_TRUE(gfrmOrder.isOpen());
            sim::breakPrinter(0);
            sim::press(order.cmdPrint);
            EXPECT_EQ(sim::sheets().back().size(), 25u) << "once more, whole";
        });
        TearDown();
        SetUp();
    }
}

}  // namespace
