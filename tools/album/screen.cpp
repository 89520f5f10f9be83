#include "tools/album/screen.h"

#include <QBackingStore>
#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace album {
namespace {

constexpr QImage::Format format = QImage::Format_RGB32;
constexpr int toolbar = 40;  // pixels, with all that it shows

}  // namespace

QImage screenOf(const QWidget& window) {
    QBackingStore* const store = window.backingStore();
    return store != nullptr ? dynamic_cast<const QImage*>(store->paintDevice())->convertToFormat(format) : QImage();
}

bool isSmoothed(const QImage& screen, const QWidget& window) { return screen.width() % window.width() != 0; }

bool areAlike(const QImage& one, const QImage& other, int difference) {
    const QImage second = other.convertToFormat(format);
    if (one.size() != second.size()) return false;
    const auto length = static_cast<size_t>(one.bytesPerLine());
    for (int y = 0; y < one.height(); ++y) {
        const uchar* const line = one.constScanLine(y);
        const auto isNear = [=](uchar a, uchar b) { return std::abs(a - b) <= difference; };
        const bool isSame = std::memcmp(line, second.constScanLine(y), length) == 0;
        if (!isSame && !std::equal(line, line + length, second.constScanLine(y), isNear)) return false;
    }
    return true;
}

int firstRowUnlike(const QImage& screen, const platform::Surface& picture) {
    for (int y = toolbar * platform::density(); y < screen.height(); ++y) {
        const auto* const row = reinterpret_cast<const uint32_t*>(screen.constScanLine(y));
        if (!std::equal(row, row + screen.width(), picture.row(y))) return y;
    }
    return -1;
}

}  // namespace album
