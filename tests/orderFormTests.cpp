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

    /// Types all that an order needs.
    static void complete(frmOrder& order) {
        type(order, Box::Name, "Ann");
        type(order, Box::Address1, "5 High Street");
        type(order, Box::City, "Salem");
        type(order, Box::Copies, "3");
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

    static std::string sheet(size_t number) { return printedSheet(sim::sheets().at(number)); }
};

TEST_F(OrderForm, OpensEmptyOverTheTable) {
    for (int showing = 0; showing < 2; ++showing)
        inForm([&](frmOrder& order) {
            for (const platform::TextBox& box : order.txtOrderInfo) EXPECT_EQ(box.text(), "");
            EXPECT_FALSE(order.chkECopy.value());
            EXPECT_EQ(stateOf(order), "$0 ..");
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
        const char *pasted, *state;  // after three copies were shipped to the USA
        const char *report, *printed;
    } const cases[] = {
        {"1234", "$16043 +. Print", "", "  1234 Copies @ US $12 each:  14808\n  Shipping Charge:             1235\n"},
        {"abc", "$0 +.", "", ""},
        {"-5", "$-64 +.", "", ""},
        {"0000", "$0 +.", "", ""},
        {" 7", "$92 +. Print", "", " 7 Copies @"},
        {"2731", "$40 +. Print", "Error In msCalcAmtDue: Error 6 - Overflow",
         "  2731 Copies @ US $12 each:  32772\n  Shipping Charge:             2732\n\n  Total:                        "
         "$40\n"},
        {"9e9", "$40 +. Print", "Error In msCalcAmtDue: Error 6 - Overflow", "  Name:       Ann\n"},
        {"-9e9", "$40 +.", "Error In msCalcAmtDue: Error 6 - Overflow", ""},
        {"nan", "$0 +.", "", ""},
        {"\u4E2D\U0001F004\u0663x", "$0 +.", "", ""},
    };
    for (const auto& row : cases)
        inForm([&](frmOrder& order) {
            const size_t sheets = sim::sheets().size(), reports = sim::messages().size();
            complete(order);
            paste(order, Box::Copies, row.pasted);
            EXPECT_EQ(stateOf(order), row.state) << row.pasted;
            EXPECT_EQ(sim::messages().size() > reports ? sim::messages().back() : "", row.report) << row.pasted;
            sim::press(order.cmdPrint);
            const bool printed = sim::sheets().size() > sheets;
            EXPECT_EQ(printed, *row.printed != 0) << row.pasted;
            EXPECT_NE((printed ? sheet(sheets) : "").find(row.printed), std::string::npos) << row.pasted;
        });
}

TEST_F(OrderForm, PrintWaitsUntilTheOrderIsCompleteAndAnElectronicCopyTakesThePlaceOfShipping) {
    struct {
        const char* what;
        std::function<void(frmOrder&)> change;
        const char* state;
    } const cases[] = {
        {"complete", [](frmOrder&) {}, "$40 +. Print"},
        {"no name", [](frmOrder& o) { paste(o, Box::Name, ""); }, "$40 +."},
        {"a name of blanks", [](frmOrder& o) { paste(o, Box::Name, "   "); }, "$40 +."},
        {"no address", [](frmOrder& o) { paste(o, Box::Address1, ""); }, "$40 +."},
        {"no city", [](frmOrder& o) { paste(o, Box::City, " "); }, "$40 +."},
        {"no copies", [](frmOrder& o) { paste(o, Box::Copies, ""); }, "$0 +."},
        {"0 copies", [](frmOrder& o) { paste(o, Box::Copies, "0"); }, "$0 +."},
        {"all else besides",
         [](frmOrder& o) {
             for (const int box : {Box::Address2, Box::Address3, Box::Country, Box::Email}) paste(o, box, "x");
         },
         "$40 +. Print"},
        {"electronically, without e-mail", [](frmOrder& o) { ship(o, Ship::Electronically); }, "$36 xx"},
        {"with blanks", [](frmOrder& o) { ship(o, Ship::Electronically), sim::typeText("  "); }, "$36 xx"},
        {"with e-mail", [](frmOrder& o) { ship(o, Ship::Electronically), sim::typeText("a@b"); }, "$36 xx Print"},
        {"with the e-mail that is there",
         [](frmOrder& o) {
             paste(o, Box::Email, "a@b"), ship(o, Ship::Electronically);
             EXPECT_TRUE(o.chkECopy.hasFocus());
         },
         "$36 xx Print"},
        {"what is grey", [](frmOrder& o) { ship(o, Ship::Electronically), ship(o, Ship::Usa); }, "$36 xx"},
        {"the choice undone",
         [](frmOrder& o) { ship(o, Ship::Electronically), sim::typeText("a@b"), ship(o, Ship::Electronically); },
         "$36 .."},
        {"and shipped abroad",
         [](frmOrder& o) { ship(o, Ship::Electronically), ship(o, Ship::Electronically), ship(o, Ship::Abroad); },
         "$43 .+ Print"},
    };
    for (const auto& row : cases)
        inForm([&](frmOrder& order) {
            complete(order);
            row.change(order);
            EXPECT_EQ(stateOf(order), row.state) << row.what;
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
        EXPECT_EQ(sheet(1).find("Allow"), std::string::npos);
        EXPECT_NE(sheet(1).find("Shipping Charge:                0\n"), std::string::npos);
    });
}

TEST_F(OrderForm, AFailingPrinterIsReportedAndNothingTypedIsLost) {
    constexpr const char* printing = "Error In msPrintOrder: Error 482 - Printer error";
    struct {
        int line;
        bool atEnd;
        std::vector<std::string> reports;
        size_t lines;  // of the sheet that goes out all the same
        const char* fontAfter;
    } const cases[] = {
        {1, false, {printing}, 0, "Any"},
        {5, false, {printing}, 4, "Any"},
        {0, true, {printing}, 0, "Any"},
        {5, true, {printing, "Error In cmdPrint_Click: Error 482 - Printer error"}, 0, "Courier New"},
    };
    for (const auto& row : cases) {
        inForm([&](frmOrder& order) {
            complete(order);
            platform::printer().font = {"Any", 9, true};
            sim::breakPrinter(row.line, row.atEnd);
            sim::press(order.cmdPrint);
            EXPECT_EQ(sim::messages(), row.reports) << row.line;
            EXPECT_EQ(sim::sheets().empty() ? 0 : sim::sheets()[0].size(), row.lines) << row.line;
            EXPECT_EQ(platform::printer().font.name, row.fontAfter) << row.line;
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
