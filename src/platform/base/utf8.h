#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace platform {

/// Takes the next character off UTF-8 text, from a place inside it; of a broken sequence it takes the first byte.
char32_t nextCharacter(std::string_view text, size_t& at);

/// Appends a character to UTF-8 text.
void appendCharacter(std::string& text, char32_t character);

}  // namespace platform
