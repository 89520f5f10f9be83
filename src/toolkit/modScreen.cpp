#include "toolkit/modScreen.h"

#include "platform/desktop.h"
#include "platform/pictures.h"
#include "toolkit/failures.h"

namespace {

constexpr double twipsPerInch = 1440;
constexpr double secondsPerDay = 86400;

}  // namespace

void gsSetClientSize(int32_t left, int32_t top, int32_t right, int32_t bottom, platform::Form& form) {
    platform::Rect rect{left, top, right, bottom};
    platform::AdjustWindowRect(rect, 0, true);
    const int across = platform::GetDeviceCaps(form, platform::LOGPIXELSX);
    const int down = platform::GetDeviceCaps(form, platform::LOGPIXELSY);
    form.resize((rect.right - rect.left + 1) * (twipsPerInch / across),
                (rect.bottom - rect.top + 1) * (twipsPerInch / down));
}

void gsCenterForm(platform::Form& form) {
    form.move((platform::screenWidth() - form.width()) / 2, (platform::screenHeight() - form.height()) / 2);
}

void gsFitDialog(platform::Form& form, int width, int height, double down) {
    gsSetClientSize(0, 0, width - 1, height - 1 - platform::menuBarHeight, form);
    const platform::Form* const over = platform::mainForm();
    if (over == nullptr) return;
    form.move(over->left() + (over->width() - form.width()) / 2,
              over->top() + (over->height() - form.height()) / 2 + down);
}

void gsLayGround(platform::Form& form, int number) {
    platform::Surface ground;
    gsLoadPicture(ground, std::to_string(number));
    const int width = ground.width();
    const int height = ground.height();
    platform::BitBlt(form.surface(), 0, 0, width, height, ground, 0, 0, platform::SRCCOPY);
    for (int y = height; y < form.scaleHeight(); ++y)
        platform::BitBlt(form.surface(), 0, y, width, 1, ground, 0, height - 1, platform::SRCCOPY);
}

void gsLoadPicture(platform::Surface& surface, const std::string& name) {
    guarded("gsLoadPicture", [&] { surface.setPicture(platform::pictureByName(name)); });
}

void gsPrintText(platform::Surface& surface, int16_t x, int16_t y, const std::string& text, platform::Color color,
                 const std::string& fontName, int16_t fontSize, bool bold) {
    guarded("gsPrintText", [&] {
        surface.font.name = fontName;
        surface.font.points = fontSize;
        surface.font.bold = bold;
        surface.foreColor = color;
        surface.currentX = x;
        surface.currentY = y;
        surface.print(text);
    });
}

void gsPrintShadowed(platform::Surface& surface, int16_t x, int16_t y, const std::string& text, platform::Color color,
                     const std::string& fontName, int16_t fontSize, bool bold) {
    gsPrintText(surface, narrow16(x - 1), narrow16(y - 1), text, black, fontName, fontSize, bold);
    gsPrintText(surface, x, y, text, color, fontName, fontSize, bold);
}

void gsStripComma(std::string& text) {
    guarded("gsStripComma", [&] {
        if (text.empty()) return;
        if (text.front() == ',')
            text.erase(0, 1);
        else if (text.back() == ',')
            text.pop_back();
    });
}

void gsDelay(double seconds) {
    const double start = platform::secondsOfDay();
    double passed = 0;
    while (static_cast<float>(passed) < static_cast<float>(seconds)) {
        platform::doEvents();
        passed = platform::secondsOfDay() - start;
        if (passed < 0) passed += secondsPerDay;  // The day has turned during the wait.
    }
}
