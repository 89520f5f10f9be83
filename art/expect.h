#pragma once

#include <iostream>
#include <string>

/// Whether everything so far was as it should be.
inline bool pleased = true;

/// Complains if something isn't as it should be.
inline void expect(bool holds, const std::string& complaint) {
    if (holds) return;
    std::cerr << "not as it should be: " << complaint << '\n';
    pleased = false;
}
