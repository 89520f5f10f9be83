#include "platform/qt/window/fonts.h"

#include <QApplication>
#include <QFontDatabase>
#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>
#include <utility>

#include "platform/shared/text.h"

extern "C" const char storedKaushanScript[], storedLiberationSerifBold[], storedLiberationMono[], storedFontsEnd[];

namespace platform::qt {
namespace {

struct StoredFont {
    const char* family;
    const char* start;
    const char* end;
    bool known = false;  ///< Qt has it already.
};

/// Lets Qt know the font that the program carries under that name, if there is one. Its file is read only now.
void provide(const std::string& family) {
    static StoredFont fonts[] = {
        {"Kaushan Script", storedKaushanScript, storedLiberationSerifBold},
        {"Liberation Serif", storedLiberationSerifBold, storedLiberationMono},
        {"Liberation Mono", storedLiberationMono, storedFontsEnd},
    };
    makeUpForMissingFonts();  // Once the program's own are there, one of them stands in for all that is missing.
    for (StoredFont& font : fonts) {
        if (font.known || family != font.family) continue;
        QFontDatabase::addApplicationFontFromData(QByteArray::fromRawData(font.start, font.end - font.start));
        font.known = true;
    }
}

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
    const std::string family = standInFor(fontName);
    provide(family);
    return family;
}

void makeUpForMissingFonts() {
    static bool made = false;
    if (std::exchange(made, true) || QFontMetrics(QApplication::font()).inFont(QChar(u'A'))) return;
    QFont font = QApplication::font();
    font.setFamily(QString::fromStdString(familyOf("Courier New")));
    QApplication::setFont(font);
}

const Lettering& letteringOf(const Font& font) {
    static std::map<std::tuple<std::string, double, bool>, Lettering> letterings;
    const std::tuple wanted(font.name, font.points, font.bold);
    const auto found = letterings.find(wanted);
    if (found != letterings.end()) return found->second;
    const QFont made = make(font);
    return letterings.emplace(wanted, Lettering{made, QFontMetrics(made)}).first->second;
}

}  // namespace platform::qt
