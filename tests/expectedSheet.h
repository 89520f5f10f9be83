#pragma once

#include <string>
#include <vector>

#include "platform/base/text.h"
#include "platform/shared/printColumns.h"

/// The sheet of an order of three copies for Ann B. Carter, a line of it on each line, with those lines as her address.
inline std::string expectedSheet(const std::string& address) {
    return R"(                       ***** ORDER FORM *****

  Name:       Ann B. Carter
  Address:    )" +
           address + R"(
  Email:      ann@example.org

  3 Copies @ US $12 each:        36
  Shipping Charge:                4

  Total:                        $40

  Make check payable to Tavin Orlec.

  Allow up to two weeks for delivery.

  Mail To:    Tavin Orlec
              417 Willow Court
              Millbrook Falls, OH 43999
              USA

  Questions/Comment to velmora@example.com

                           THANK YOU!!!
)";
}

/// A sheet on A4 in 14 points, by a printer whose font has the letters of ASCII and no others.
inline std::string printedSheet(const std::vector<platform::PrintedLine>& lines) {
    const auto charactersOf = [](const std::string& text) {
        std::u32string characters = platform::charactersOf(text);
        for (char32_t& character : characters)
            if (character < U' ' || character > U'~') character = U'?';
        return characters;
    };
    std::string sheet;
    for (const platform::PrintedLine& line : lines)
        for (const std::u32string& characters : platform::linesInColumns(line.texts, 66, charactersOf))
            sheet += std::string(characters.begin(), characters.end()) + '\n';
    return sheet;
}
