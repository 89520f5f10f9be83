#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "platform/printer.h"

/// The text boxes of the order form, by their index.
namespace Box {
enum Index : int { Name, Address1, Address2, Address3, City, Country, Email, Copies };
}

constexpr int orderBoxes = Box::Copies + 1;
constexpr int32_t copyPrice = 12;  ///< Dollars.

/// What the order form holds when it is printed, texts as they stand in its fields.
struct OrderSheet {
    std::array<std::string, orderBoxes> txtOrderInfo;
    std::string cboOrderInfo;  // the chosen row of the states, whose code is its last two characters; empty for none
    std::string mskOrderInfo;  // the zip
    bool chkECopy = false;
    int32_t mlngShipCharge = 0;  // dollars
    std::string pnlAmtDue;       // "$" and the amount due
};

/// Prints the order as one document in "Courier New" 14, line by line. Fails as the printer does, or with number 6 for
/// a price beyond 32 bits; the document that has begun isn't ended then.
void gsPrintOrderSheet(const OrderSheet& order, platform::Printer& printer);

/// The number at the beginning of a text, as in "12 copies"; 0 if there is none.
double gdblfNumberIn(const std::string& text);
