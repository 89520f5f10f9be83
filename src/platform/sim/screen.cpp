#include <cmath>

#include "platform/base/text.h"
#include "platform/shared/text.h"
#include "platform/sim/state.h"

namespace platform {
namespace {

constexpr double widthPerPoint = 2.0 / 3;  // pixels: half the font's height
constexpr int boldExtra = 1;               // pixels

}  // namespace

void drawText(Surface& surface, int x, int y, const std::string& text, const Font& font, Color color) {
    surface.texts.push_back({text, x, y, font, color});
}

// All characters are equally wide, so that a test can tell a text's width beforehand.
int measureText(const std::string& text, const Font& font) {
    const int width = static_cast<int>(std::lround(font.points * widthPerPoint)) + (font.bold ? boldExtra : 0);
    return width * static_cast<int>(charactersOf(text).size());
}

}  // namespace platform

platform::Surface sim::screen() {
    const auto* const main = platform::desk().main();
    if (main == nullptr) return {};
    platform::Surface result = main->surface;
    for (const auto* dialog : platform::desk().dialogs())
        platform::BitBlt(result, platform::toPixels(dialog->left - main->left),
                         platform::toPixels(dialog->top - main->top), dialog->surface.width(), dialog->surface.height(),
                         dialog->surface, 0, 0, platform::SRCCOPY);
    return result;
}
