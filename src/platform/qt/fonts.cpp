#include "platform/qt/fonts.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

#include "platform/text.h"

namespace platform::qt {
namespace {

constexpr double pixelsPerPoint = 96.0 / 72;

QFont make(const Font& font) {
    QFont made(QString::fromStdString(standInFor(font.name)));
    made.setPixelSize(std::max(1, static_cast<int>(std::lround(font.points * pixelsPerPoint))));
    made.setBold(font.bold);
    made.setStyleStrategy(static_cast<QFont::StyleStrategy>(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
    return made;
}

}  // namespace

const Lettering& letteringOf(const Font& font) {
    static std::map<std::tuple<std::string, double, bool>, Lettering> letterings;
    const std::tuple wanted(font.name, font.points, font.bold);
    const auto found = letterings.find(wanted);
    if (found != letterings.end()) return found->second;
    const QFont made = make(font);
    return letterings.emplace(wanted, Lettering{made, QFontMetrics(made)}).first->second;
}

}  // namespace platform::qt
