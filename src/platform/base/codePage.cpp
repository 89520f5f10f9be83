#include "platform/base/codePage.h"

#include <algorithm>
#include <iterator>

#include "platform/base/utf8.h"

namespace platform {
namespace {

constexpr char32_t none = 0;

/// The bytes from 0x80 to 0x9F. Of the others each from the blank on is the character with its number.
constexpr int firstSpecial = 0x80;
constexpr char32_t specials[] = {
    0x20AC, none,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // euro sign, quotes, dagger
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, none,   0x017D, none,    // per mille, S and Z with caron, OE
    none,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // quotes, bullet, dashes
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, none,   0x017E, 0x0178,  // trade mark, s and z with caron, oe, Y
};

constexpr bool standsForItself(char32_t number) {
    return (number >= ' ' && number < 0x7F) || (number >= 0xA0 && number <= 0xFF);
}

char byteOf(char32_t character) {
    if (standsForItself(character)) return static_cast<char>(character);
    const auto* const found = std::find(std::begin(specials), std::end(specials), character);
    if (character == none || found == std::end(specials)) return '?';
    return static_cast<char>(firstSpecial + (found - std::begin(specials)));
}

char32_t characterOf(unsigned char byte) {
    if (standsForItself(byte)) return byte;
    const size_t special = static_cast<size_t>(byte - firstSpecial);
    if (byte < firstSpecial || special >= std::size(specials) || specials[special] == none) return '?';
    return specials[special];
}

}  // namespace

std::string toCodePage(std::string_view text) {
    std::string bytes;
    for (size_t at = 0; at < text.size();) bytes += byteOf(nextCharacter(text, at));
    return bytes;
}

std::string fromCodePage(std::string_view bytes) {
    std::string text;
    for (const char byte : bytes) appendCharacter(text, characterOf(static_cast<unsigned char>(byte)));
    return text;
}

}  // namespace platform
