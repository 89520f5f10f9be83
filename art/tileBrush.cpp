#include "tileBrush.h"

#include <QImage>
#include <algorithm>
#include <cmath>

#include "materials.h"
#include "outline.h"
#include "script.h"

namespace {

constexpr double drawnSize = 400;

/// The size of a character on a face in pixels, which its weight goes by.
constexpr double usualSize = 24;

constexpr int fineness = 8;
constexpr double sharpness = 2.4;

QPainterPath outlineOf(char32_t character, double weight) {
    const QPainterPath path = script::brushed(QString::fromUcs4(&character, 1), drawnSize);
    return weight > 0 ? script::grown(path, weight / 2 * drawnSize / usualSize) : path;
}

/// Draws the character at `fineness` times its size and takes each pixel's share of ink.
QImage inkOf(const QSize& size, const QPainterPath& path) {
    QImage fine(size * fineness, QImage::Format_ARGB32_Premultiplied);
    fine.fill(Qt::transparent);
    QPainter painter(&fine);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF bounds = path.boundingRect();
    painter.scale(fine.width() / bounds.width(), fine.height() / bounds.height());
    painter.translate(-bounds.topLeft());
    painter.fillPath(path, Qt::black);
    painter.end();
    return fine.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

/// The outline stands in the middle of the box and is hardly stretched to fill it.
void paintFineBrush(QPainter& painter, const QRectF& box, const QPainterPath& path, QRgb ink) {
    const QRectF bounds = path.boundingRect();
    constexpr double mostStretched = 1.12;
    const double across = box.width() / bounds.width(), down = box.height() / bounds.height();
    const double most = mostStretched * std::min(across, down);
    QTransform fit = QTransform::fromTranslate(box.center().x(), box.center().y());
    fit.scale(std::min(across, most), std::min(down, most));
    outline::engrave(painter, fit.map(path.translated(-bounds.center())), ink);
}

}  // namespace

void paintBrush(QPainter& painter, const QRect& box, char32_t character, QRgb ink, double weight) {
    if (materials::density > 1) return paintFineBrush(painter, box, outlineOf(character, weight), ink);
    QImage image = inkOf(box.size(), outlineOf(character, weight)).convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const double share = (qAlpha(image.pixel(x, y)) / 255.0 - 0.5) * sharpness + 0.5;
            const int alpha = static_cast<int>(std::lround(std::clamp(share, 0.0, 1.0) * 255));
            image.setPixel(x, y, (ink & 0xFFFFFF) | static_cast<QRgb>(alpha) << 24);
        }
    materials::lay(painter, box.topLeft(), image);
}
