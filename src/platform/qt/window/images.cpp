#include "platform/qt/window/images.h"

#include <QPainter>

#include "platform/qt/window/fonts.h"
#include "platform/shared/text.h"

namespace platform {
namespace qt {
namespace {

constexpr int bytesPerPixel = 4;

const uchar* bytes(const uint32_t* pixels) { return reinterpret_cast<const uchar*>(pixels); }

}  // namespace

QImage imageOf(const Surface& surface) {
    if (!surface.hasPixels()) return {};
    return {bytes(surface.row(0)), surface.width(), surface.height(), surface.width() * bytesPerPixel,
            QImage::Format_RGB32};
}

QImage canvasOf(Surface& surface) {
    if (!surface.hasPixels()) return {};
    return {reinterpret_cast<uchar*>(surface.canvas()), surface.width(), surface.height(),
            surface.width() * bytesPerPixel, QImage::Format_RGB32};
}

QImage imageOf(const Picture& picture) {
    if (!picture.pixels) return {};
    return {bytes(picture.pixels), picture.width, picture.height, picture.width * bytesPerPixel, QImage::Format_ARGB32};
}

QColor colorOf(Color color) { return QColor(QRgb{pixelOf(color)}); }

}  // namespace qt

void drawText(Surface& surface, int x, int y, const std::string& text, const Font& font, Color color) {
    QImage canvas = qt::canvasOf(surface);
    if (canvas.isNull() || text.empty()) return;
    const qt::Lettering& lettering = qt::letteringOf(font);
    QPainter painter(&canvas);
    painter.setFont(lettering.font);
    painter.setPen(qt::colorOf(color));
    painter.drawText(x, y + lettering.metrics.ascent(), QString::fromStdString(text));
}

int measureText(const std::string& text, const Font& font) {
    return qt::letteringOf(font).metrics.horizontalAdvance(QString::fromStdString(text));
}

}  // namespace platform
