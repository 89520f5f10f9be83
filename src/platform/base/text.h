#pragma once

#include <string>
#include <string_view>

namespace platform {

/// The characters of UTF-8 text.
std::u32string charactersOf(std::string_view text);

/// The text in the single-byte code page 1252: the characters of western Europe, one byte each. What has no place in it
/// becomes "?", a control character and broken UTF-8 too.
std::string toCodePage(std::string_view text);

/// Bytes of the code page as UTF-8 text; a byte that stands for no printable character becomes "?".
std::string fromCodePage(std::string_view bytes);

}  // namespace platform
