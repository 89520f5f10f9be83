// The order's sheet, line by line and column by column.

#include <functional>

#include "forms/orderSheet.h"
#include "platform/sim/simulation.h"
#include "tests/expectedSheet.h"
#include "tests/gameFixture.h"
#include "toolkit/modScreen.h"

namespace {

const std::string fullSheet = "\n" + expectedSheet(R"(Apt. #12
              5 High Street
              Old Town
              Salem, OR 97301
              Canada
)");

OrderSheet fullOrder() {
    OrderSheet order;
    order.txtOrderInfo = {"Ann B. Carter", "Apt. #12", "5 High Street",   "Old Town",
                          "Salem",         "Canada",   "ann@example.org", "3"};
    order.cboOrderInfo = "Oregon - OR";
    order.mskOrderInfo = "97301";
    order.mlngShipCharge = 4;
    order.pnlAmtDue = "$40";
    return order;
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    const size_t at = text.find(from);
    if (at == std::string::npos) ADD_FAILURE() << "the sheet has no " << from;
    return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

class Sheet : public ::testing::Test {
  protected:
    void SetUp() override { sim::switchOn(1); }

    static void print(const OrderSheet& order) { gsPrintOrderSheet(order, platform::printer()); }

    /// The only sheet that the printer was sent, a line of it on each line.
    static std::string sheet() {
        EXPECT_EQ(sim::sheets().size(), 1u);
        return sim::sheets().empty() ? "" : printedSheet(sim::sheets().front());
    }
};

TEST_F(Sheet, HoldsTheOrderInItsColumns) {
    struct {
        const char* what;
        std::function<void(OrderSheet& order)> change;
        const char* from;  // of the full sheet
        std::string to;
    } const cases[] = {
        {"everything filled", [](auto&) {}, "", ""},
        {"no e-mail leaves two empty lines", [](auto& o) { o.txtOrderInfo[6] = ""; }, "  Email:      ann@example.org\n",
         ""},
        {"no second address line", [](auto& o) { o.txtOrderInfo[2] = ""; }, "              5 High Street\n", ""},
        {"no third address line", [](auto& o) { o.txtOrderInfo[3] = ""; }, "              Old Town\n", ""},
        {"no country", [](auto& o) { o.txtOrderInfo[5] = ""; }, "              Canada\n", ""},
        {"a blank in a box prints its line", [](auto& o) { o.txtOrderInfo[2] = " "; }, "5 High Street\n", "\n"},
        {"texts are trimmed", [](auto& o) { o.txtOrderInfo[0] = "  Ann B. Carter "; }, "", ""},
        {"the city isn't trimmed", [](auto& o) { o.txtOrderInfo[4] = " Salem "; }, "Salem, OR", " Salem , OR"},
        {"a city that the line just has room for", [](auto& o) { o.txtOrderInfo[4] = std::string(42, 'x'); }, "Salem",
         std::string(42, 'x')},
        {"a longer one", [](auto& o) { o.txtOrderInfo[4] = std::string(43, 'x'); }, "Salem, OR",
         std::string(43, 'x') + ", \n              OR"},
        {"a blank zip needs no room",
         [](auto& o) { o.txtOrderInfo[4] = std::string(48, 'x'), o.mskOrderInfo = "     "; }, "Salem, OR 97301",
         std::string(48, 'x') + ", OR      "},
        {"no state, no zip", [](auto& o) { o.cboOrderInfo = ""; }, ", OR 97301", ""},
        {"a state without a zip", [](auto& o) { o.mskOrderInfo = "     "; }, "97301", "     "},
        {"a row without a dash", [](auto& o) { o.cboOrderInfo = "North Dakota ND"; }, ", OR", ", ND"},
        {"one copy, written otherwise", [](auto& o) { o.txtOrderInfo[7] = "01"; }, "3 Copies @ US $12 each:        36",
         "01 Copy @ US $12 each:         12"},
        {"the most copies", [](auto& o) { o.txtOrderInfo[7] = "9999"; }, "3 Copies @ US $12 each:        36",
         "9999 Copies @ US $12 each: 119988"},
        {"copies that are no number", [](auto& o) { o.txtOrderInfo[7] = "nan"; }, "3 Copies @ US $12 each:        36",
         "nan Copies @ US $12 each:       0"},
        {"one copy", [](auto& o) { o.txtOrderInfo[7] = "1"; }, "3 Copies @ US $12 each:        36",
         "1 Copy @ US $12 each:          12"},
        {"letters of other scripts keep the columns",
         [](auto& o) { o.txtOrderInfo[7] = "\xE2\x82\xAC\xF0\x9F\x80\x84"; }, "3 Copies @ US $12 each:        36",
         "?? Copies @ US $12 each:        0"},
        {"an electronic copy", [](auto& o) { o.chkECopy = true; }, "  Allow up to two weeks for delivery.\n\n", ""},
    };
    for (const auto& row : cases) {
        SetUp();
        OrderSheet order = fullOrder();
        row.change(order);
        print(order);
        ASSERT_FALSE(sim::sheets().empty()) << row.what;
        EXPECT_EQ(sheet(), replaced(fullSheet, row.from, row.to)) << row.what;
        for (const platform::PrintedLine& line : sim::sheets().front()) {
            EXPECT_EQ(line.font.name, "Courier New");
            EXPECT_EQ(line.font.points, 14);
            EXPECT_FALSE(line.font.bold);
        }
    }
}

TEST_F(Sheet, ThePrintersFontComesBack) {
    struct {
        platform::Font before;
        int16_t remembered;
    } const cases[] = {
        {{"Times New Roman", 11, true}, 11}, {{"Wonton ICG", 12.5, false}, 12}, {{"Any", 1e6, true}, 12}};
    for (const auto& row : cases) {
        platform::Font& font = platform::printer().font;
        font = row.before;
        gsSavePrinterSettings();
        print(fullOrder());
        EXPECT_EQ(font.name, "Courier New");
        gsRestorePrinterSettings();
        EXPECT_EQ(font.name, row.before.name);
        EXPECT_EQ(font.points, row.remembered);
        EXPECT_EQ(font.bold, row.before.bold);
    }
    EXPECT_TRUE(sim::messages().empty());
}

}  // namespace
