#include "platform/base/text.h"

#include <iconv.h>

namespace platform {
namespace {

constexpr const char* codePage = "CP1252";
constexpr const char* utf8 = "UTF-8";

constexpr bool isTail(char byte) { return (byte & 0xC0) == 0x80; }

/// A character in another coding; "?" if it has no place there or isn't for print.
std::string recoded(std::string_view character, const char* from, const char* to) {
    std::string made(character.size() + 2, '\0');  // Room for 3 bytes of UTF-8 in place of one.
    char* in = const_cast<char*>(character.data());
    char* out = made.data();
    size_t left = character.size(), room = made.size();
    const iconv_t converter = iconv_open(to, from);
    const bool fits = iconv(converter, &in, &left, &out, &room) != static_cast<size_t>(-1);
    iconv_close(converter);
    const bool isControl = static_cast<unsigned char>(made.front()) < ' ' || made.front() == '\x7F';
    return fits && !isControl ? made.substr(0, made.size() - room) : "?";
}

}  // namespace

std::u32string charactersOf(std::string_view text) {
    constexpr int tailBits = 6;
    std::u32string characters;
    for (const char each : text) {
        const auto byte = static_cast<unsigned char>(each);
        const int lost = byte >= 0xF0 ? 5 : byte >= 0xE0 ? 4 : byte >= 0xC0 ? 3 : 0;  // bits of a first byte
        if (isTail(each) && !characters.empty())
            characters.back() = characters.back() << tailBits | (byte & 0x3F);
        else
            characters += byte & (0xFF >> lost);
    }
    return characters;
}

std::string toCodePage(std::string_view text) {
    std::string bytes;
    for (size_t from = 0, to = 0; from < text.size(); from = to) {
        for (to = from + 1; to < text.size() && isTail(text[to]);) ++to;
        bytes += recoded(text.substr(from, to - from), utf8, codePage);
    }
    return bytes;
}

std::string fromCodePage(std::string_view bytes) {
    std::string text;
    for (size_t at = 0; at < bytes.size(); ++at) text += recoded(bytes.substr(at, 1), codePage, utf8);
    return text;
}

}  // namespace platform
