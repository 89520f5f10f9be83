#include "platform/qt/window/fonts.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontMetrics>
#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>
#include <utility>

extern "C" const char storedKaushanScript[], storedLiberationSerifBold[], storedLiberationMono[], storedFontsEnd[];

namespace platform::qt {
namespace {

constexpr double pixelsPerPoint = 96.0 / 72;

QFont make(const Font& font) {
    QFont made(QString::fromStdString(familyOf(font.name)));
    made.setPixelSize(std::max(1, static_cast<int>(std::lround(font.points * pixelsPerPoint))));
    made.setBold(font.bold);
    made.setHintingPreference(QFont::PreferNoHinting);  // Widths are then the same on every desktop.
    made.setStyleStrategy(static_cast<QFont::StyleStrategy>(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
    return made;
}

}  // namespace

std::string familyOf(const std::string& fontName) {
    struct StandIn {
        const char *name, *family;
        const char *start, *end;
        bool known = false;  // Qt has it already.
    };
    static StandIn fonts[] = {
        {"Wonton ICG", "Kaushan Script", storedKaushanScript, storedLiberationSerifBold},
        {"Times New Roman", "Liberation Serif", storedLiberationSerifBold, storedLiberationMono},
        {"Courier New", "Liberation Mono", storedLiberationMono, storedFontsEnd},
    };
    makeUpForMissingFonts();  // Once the program's own are there, one of them stands in for all that is missing.
    const auto font = std::ranges::find(fonts, fontName, &StandIn::name);
    if (font == std::end(fonts)) return fontName;
    if (!std::exchange(font->known, true))  // Its file is read only now.
        QFontDatabase::addApplicationFontFromData(QByteArray::fromRawData(font->start, font->end - font->start));
    return font->family;
}

void makeUpForMissingFonts() {
    static bool made = false;
    if (std::exchange(made, true) || QFontMetrics(QApplication::font()).inFont(QChar(u'A'))) return;
    QFont font = QApplication::font();
    font.setFamily(QString::fromStdString(familyOf("Courier New")));
    QApplication::setFont(font);
}

const QFont& fontOf(const Font& font) {
    static std::map<std::tuple<std::string, double, bool>, QFont> fonts;
    const auto [made, isNew] = fonts.try_emplace({font.name, font.points, font.bold});
    if (isNew) made->second = make(font);
    return made->second;
}

}  // namespace platform::qt
