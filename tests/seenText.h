#pragma once

#include <fstream>
#include <sstream>
#include <string>

/// What should be seen, by the text of that name in tests/seen.
inline std::string seenText(const std::string& name) {
    std::ostringstream text;
    text << std::ifstream(VELMORA_SOURCE "/tests/seen/" + name + ".txt").rdbuf();
    return text.str();
}
