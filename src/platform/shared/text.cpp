#include "platform/shared/text.h"

namespace platform {
namespace {

struct StandIn {
    const char* name;
    const char* standsIn;
};

constexpr StandIn standIns[] = {
    {"Wonton ICG", "Kaushan Script"},
    {"Times New Roman", "Liberation Serif"},
    {"Courier New", "Liberation Mono"},
};

}  // namespace

std::string standInFor(const std::string& fontName) {
    for (const StandIn& row : standIns)
        if (fontName == row.name) return row.standsIn;
    return fontName;
}

}  // namespace platform
