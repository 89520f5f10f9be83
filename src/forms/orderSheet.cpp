#include "forms/orderSheet.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <vector>

#include "platform/base/runtime.h"
#include "product.h"
#include "toolkit/input.h"

namespace {

// Where orders go.
constexpr const char* payee = PRODUCT_AUTHOR;
constexpr const char* firstPostalLine = "417 Willow Court";
constexpr const char* secondPostalLine = "Millbrook Falls, OH 43999";
constexpr const char* contactLine = "Questions/Comment to velmora@example.com";

constexpr int amountWidth = 6;  // characters
constexpr int stateCodeLength = 2;

using namespace Box;

std::string rightAligned(const std::string& amount) {
    const auto length = static_cast<int>(amount.size());
    return std::string(static_cast<size_t>(std::max(0, amountWidth - length)), ' ') + amount;
}

bool hasState(const OrderSheet& order) { return order.cboOrderInfo.size() >= stateCodeLength; }

std::string city(const OrderSheet& order) { return order.txtOrderInfo[City] + (hasState(order) ? ", " : ""); }

std::string stateAndZip(const OrderSheet& order) {
    if (!hasState(order)) return {};
    const std::string& state = order.cboOrderInfo;
    return state.substr(state.size() - stateCodeLength) + " " + order.mskOrderInfo;
}

std::string copiesText(const OrderSheet& order) {
    const std::string& copies = order.txtOrderInfo[Copies];
    return copies + (gdblfNumberIn(copies) == 1 ? " Copy" : " Copies") + " @ US $12 each:";
}

std::string copiesPrice(const OrderSheet& order) {
    const int32_t price = narrow32(std::nearbyint(gdblfNumberIn(order.txtOrderInfo[Copies]) * copyPrice));
    return rightAligned(std::to_string(price));
}

std::string shippingCharge(const OrderSheet& order) { return rightAligned(std::to_string(order.mlngShipCharge)); }
std::string total(const OrderSheet& order) { return rightAligned(order.pnlAmtDue); }

template <Index box>
std::string contentOf(const OrderSheet& order) {
    return gstrfTrim(order.txtOrderInfo[box]);
}

template <Index box>
bool holds(const OrderSheet& order) {
    return !order.txtOrderInfo[box].empty();
}

bool isPosted(const OrderSheet& order) { return !order.chkECopy; }

/// A text at a column: a fixed one, or one that is made of the order; with neither it is none.
struct Entry {
    constexpr Entry() = default;
    constexpr Entry(int atColumn, const char* text) : column(atColumn), fixed(text) {}
    constexpr Entry(int atColumn, std::string (*text)(const OrderSheet&)) : column(atColumn), made(text) {}

    int column = 1;
    const char* fixed = nullptr;
    std::string (*made)(const OrderSheet& order) = nullptr;
};

struct SheetLine {
    Entry first = {};
    Entry second = {};
    bool (*isPrinted)(const OrderSheet& order) = nullptr;  // null: always
};

// clang-format off
constexpr SheetLine sheetLines[] = {
    {},
    {{24, "***** ORDER FORM *****"}},
    {},
    {{3, "Name:"},            {15, contentOf<Name>}},
    {{3, "Address:"},         {15, contentOf<Address1>}},
    {{},                      {15, contentOf<Address2>}, holds<Address2>},
    {{},                      {15, contentOf<Address3>}, holds<Address3>},
    {{15, city},              {platform::columnBehind, stateAndZip}},
    {{},                      {15, contentOf<Country>},  holds<Country>},
    {},
    {{3, "Email:"},           {15, contentOf<Email>},    holds<Email>},
    {},
    {{3, copiesText},         {30, copiesPrice}},
    {{3, "Shipping Charge:"}, {30, shippingCharge}},
    {},
    {{3, "Total:"},           {30, total}},
    {},
    {{3, "Make check payable to " PRODUCT_AUTHOR "."}},
    {},
    {{3, "Allow up to two weeks for delivery."}, {},     isPosted},
    {{},                      {},                        isPosted},
    {{3, "Mail To:"},         {15, payee}},
    {{},                      {15, firstPostalLine}},
    {{},                      {15, secondPostalLine}},
    {{},                      {15, "USA"}},
    {},
    {{3, contactLine}},
    {},
    {{28, "THANK YOU!!!"}},
};
// clang-format on

void printLine(const SheetLine& line, const OrderSheet& order, platform::Printer& printer) {
    std::vector<platform::ColumnText> texts;
    for (const Entry& entry : {line.first, line.second})
        if (entry.made || entry.fixed) texts.push_back({entry.column, entry.made ? entry.made(order) : entry.fixed});
    printer.print(texts);
}

}  // namespace

double gdblfNumberIn(const std::string& text) {
    double number = 0;
    const size_t first = std::min(text.find_first_not_of(' '), text.size());
    std::from_chars(text.data() + first, text.data() + text.size(), number);
    return std::isfinite(number) ? number : 0;
}

void gsPrintOrderSheet(const OrderSheet& order, platform::Printer& printer) {
    printer.font = {"Courier New", 14, false};
    for (const SheetLine& line : sheetLines)
        if (line.isPrinted == nullptr || line.isPrinted(order)) printLine(line, order, printer);
    printer.endDoc();
}
