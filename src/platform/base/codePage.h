#pragma once

#include <string>
#include <string_view>

namespace platform {

// The single-byte code page is 1252: the characters of western Europe, one byte each.

/// UTF-8 text in the code page; a character that has no place in it becomes "?", a control character too.
std::string toCodePage(std::string_view text);

/// Bytes of the code page as UTF-8 text; a byte that stands for no printable character becomes "?".
std::string fromCodePage(std::string_view bytes);

}  // namespace platform
