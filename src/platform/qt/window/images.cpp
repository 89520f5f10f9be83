#include "platform/qt/window/images.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "platform/pictures.h"
#include "platform/qt/window/fonts.h"
#include "platform/shared/text.h"

namespace platform {
namespace qt {

QImage imageOf(const Surface& surface) {
    if (!surface.hasPixels()) return {};
    return {reinterpret_cast<const uchar*>(surface.row(0)), surface.width() * density(), surface.height() * density(),
            QImage::Format_RGB32};
}

QImage imageOf(const Picture& picture, int ofDensity) {
    if (!picture.pixels) return {};
    const auto [pixels, itsDensity] = densePixels(picture, ofDensity);
    return {reinterpret_cast<const uchar*>(pixels), picture.width * itsDensity, picture.height * itsDensity,
            QImage::Format_ARGB32};
}

int densityFor(qreal scale) { return std::clamp(static_cast<int>(std::ceil(scale)), 1, highestDensity); }

}  // namespace qt

void drawText(Surface& surface, int x, int y, const std::string& text, const Font& font, Color color) {
    if (!surface.hasPixels() || text.empty()) return;
    QImage canvas(reinterpret_cast<uchar*>(surface.canvas()), surface.width() * density(), surface.height() * density(),
                  QImage::Format_RGB32);
    canvas.setDevicePixelRatio(density());
    QPainter painter(&canvas);
    painter.setFont(qt::fontOf(font));
    painter.setPen(qt::colorOf(color));
    painter.drawText(x, y + QFontMetrics(qt::fontOf(font)).ascent(), QString::fromStdString(text));
}

int measureText(const std::string& text, const Font& font) {
    return QFontMetrics(qt::fontOf(font)).horizontalAdvance(QString::fromStdString(text));
}

}  // namespace platform
