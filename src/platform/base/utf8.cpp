#include "platform/base/utf8.h"

namespace platform {
namespace {

constexpr unsigned tailMask = 0x3F;  // the bits that a byte behind the first carries
constexpr int tailBits = 6;

}  // namespace

char32_t nextCharacter(std::string_view text, size_t& at) {
    const auto byte = [&](size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U; };
    const unsigned lead = byte(at);
    const size_t more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC0 ? 1 : 0;
    char32_t character = more == 0 ? lead : lead & (tailMask >> more);
    for (size_t i = 1; i <= more; ++i) {
        if ((byte(at + i) & 0xC0) != 0x80) return byte(at++);
        character = (character << tailBits) | (byte(at + i) & tailMask);
    }
    at += more + 1;
    return character;
}

void appendCharacter(std::string& text, char32_t character) {
    const int more = character < 0x80 ? 0 : character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
    constexpr unsigned leads[] = {0, 0xC0, 0xE0, 0xF0};
    text += static_cast<char>(leads[more] | character >> (tailBits * more));
    for (int i = more - 1; i >= 0; --i) text += static_cast<char>(0x80 | (character >> (tailBits * i) & tailMask));
}

}  // namespace platform
