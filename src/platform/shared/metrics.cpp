#include "platform/desktop.h"

namespace platform {
namespace {

constexpr int pixelsPerInch = 96;

}  // namespace

void AdjustWindowRect(Rect& rect, uint32_t /*style*/, bool menu) {
    if (menu) rect.top -= menuBarHeight;
}

int GetDeviceCaps(const Form& /*form*/, int index) {
    return index == LOGPIXELSX || index == LOGPIXELSY ? pixelsPerInch : 0;
}

}  // namespace platform
