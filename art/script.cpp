#include "script.h"

#include <QFont>
#include <QFontInfo>
#include <algorithm>
#include <cmath>

#include "materials.h"

namespace script {

namespace {

QPainterPath outline(const QString& text, const QString& family, QFont::Weight weight, double size) {
    // Below this size the points of an outline are too coarse for its curves.
    constexpr int leastDrawn = 200;
    const int drawnSize = std::max(leastDrawn, int(std::ceil(size)));
    QFont font(family);
    font.setPixelSize(drawnSize);
    font.setWeight(weight);
    font.setHintingPreference(QFont::PreferNoHinting);
    if (QFontInfo(font).family() != family) qFatal("make_pictures: the font %s isn't installed", qPrintable(family));
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    path.addText(0, 0, font, text);
    return QTransform::fromScale(size / drawnSize, size / drawnSize).map(path);
}

QPen edgePen(QRgb color, double width) {
    return QPen(QColor::fromRgb(color), 2 * width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

QLinearGradient inkOf(const QRectF& bounds, const Ink& ink, QRgb mixedIn = 0, double share = 0) {
    QLinearGradient gradient(bounds.topLeft(), bounds.bottomLeft());
    gradient.setColorAt(0, QColor::fromRgb(materials::mix(ink.upper, mixedIn, share)));
    gradient.setColorAt(1, QColor::fromRgb(materials::mix(ink.lower, mixedIn, share)));
    return gradient;
}

/// Fills an outline with its ink. Where pixels are fine the ink stands up a little: its upper left rim takes the light
/// and its lower right one lies in shade.
void fill(QPainter& painter, const QPainterPath& path, const QRectF& bounds, const Ink& ink) {
    if (materials::density == 1) return painter.fillPath(path, inkOf(bounds, ink));
    constexpr QPointF rim{0.2, 0.2};
    painter.save();
    painter.fillPath(path, inkOf(bounds, ink, qRgb(0, 0, 0), 0.3));
    painter.setClipPath(path, Qt::IntersectClip);
    painter.fillPath(path.translated(-rim), inkOf(bounds, ink, qRgb(255, 255, 255), 0.2));
    painter.setClipPath(path.translated(rim), Qt::IntersectClip);
    painter.fillPath(path.translated(-rim), inkOf(bounds, ink));
    painter.restore();
}

}  // namespace

QPainterPath flowing(const QString& text, double size) { return outline(text, "Kaushan Script", QFont::Normal, size); }

QPainterPath plain(const QString& text, double size) { return outline(text, "Liberation Serif", QFont::Bold, size); }

QPainterPath brushed(const QString& text, double size) { return outline(text, "AR PL UKai TW", QFont::Normal, size); }

QPainterPath grown(const QPainterPath& path, double by) {
    QPainterPathStroker stroker(edgePen(0, by));
    return path.simplified().united(stroker.createStroke(path));
}

void paint(QPainter& painter, const QPainterPath& path, const Ink& ink, double edgeWidth) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (edgeWidth > 0) painter.strokePath(path, edgePen(ink.edge, edgeWidth));
    fill(painter, path, path.boundingRect(), ink);
    painter.restore();
}

void paintInBand(QPainter& painter, const QPainterPath& path, const QRect& band, const Ink& ink) {
    // The outline is drawn a little too large and cut, so that its outermost rows are full ink and not a faint fringe.
    constexpr double cut = 0.4;
    constexpr double edgeWidth = 1.0;
    const QRectF natural = path.boundingRect();
    const double scale = (band.height() + 2 * cut) / natural.height();
    QTransform fit;
    fit.translate(band.left() - cut, band.top() - cut);
    fit.scale(scale, scale);
    fit.translate(-natural.left(), -natural.top());
    const QPainterPath fitted = fit.map(path);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.strokePath(fitted, edgePen(ink.edge, edgeWidth));
    painter.setClipRect(band);
    fill(painter, fitted, band, ink);
    painter.restore();
}

}  // namespace script
