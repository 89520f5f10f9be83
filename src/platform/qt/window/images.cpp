#include "platform/qt/window/images.h"

namespace platform::qt {
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

}  // namespace platform::qt
