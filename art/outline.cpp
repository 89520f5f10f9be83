#include "outline.h"

#include <array>
#include <charconv>
#include <cmath>
#include <vector>

#include "materials.h"
#include "tileSprites.h"

namespace outline {

namespace {

/// Reads the next number of a path and drops it.
double takeNumber(std::string_view& words) {
    words.remove_prefix(std::min(words.size(), words.find_first_not_of(' ')));
    double number = 0;
    const auto [end, error] = std::from_chars(words.data(), words.data() + words.size(), number);
    if (error != std::errc()) qFatal("make_pictures: no number in a path at '%.20s'", words.data());
    words.remove_prefix(end - words.data());
    return number;
}

QPointF takePoint(std::string_view& words) {
    const double x = takeNumber(words);
    return {x, takeNumber(words)};
}

void addStroke(QPainterPath& path, QPointF root, QPointF bend, QPointF tip, QPointF breadths) {
    constexpr int steps = 24;
    std::vector<QPointF> there, back;
    for (int step = 0; step <= steps; ++step) {
        const double t = double(step) / steps;
        const QPointF place = root * (1 - t) * (1 - t) + bend * 2 * t * (1 - t) + tip * t * t;
        const QPointF along = (bend - root) * (1 - t) + (tip - bend) * t;
        const double breadth =
            breadths.x() / 2 * (1 - t) * (1 - 2 * t) + breadths.x() * 4 * t * (1 - t) + breadths.y() * t * (2 * t - 1);
        const QPointF aside = QPointF(-along.y(), along.x()) / std::hypot(along.x(), along.y()) * breadth / 2;
        there.push_back(place + aside);
        back.push_back(place - aside);
    }
    there.insert(there.end(), back.rbegin(), back.rend());
    path.addPolygon(QPolygonF(QList<QPointF>(there.begin(), there.end())));
    path.closeSubpath();
}

void addPiece(QPainterPath& path, char letter, std::string_view& words) {
    std::array<QPointF, 4> points;
    constexpr std::string_view letters = "ZMLQECB";
    constexpr int counts[] = {0, 1, 1, 2, 2, 3, 4};
    const int count = counts[letters.find(letter) % std::size(counts)];
    for (int i = 0; i < count; ++i) points[i] = takePoint(words);
    switch (letter) {
        case 'M':
            return path.moveTo(points[0]);
        case 'L':
            return path.lineTo(points[0]);
        case 'Q':
            return path.quadTo(points[0], points[1]);
        case 'C':
            return path.cubicTo(points[0], points[1], points[2]);
        case 'E':
            return path.addEllipse(points[0], points[1].x(), points[1].y());
        case 'B':
            return addStroke(path, points[0], points[1], points[2], points[3]);
        case 'Z':
            return path.closeSubpath();
        default:
            qFatal("make_pictures: no piece of a path is called %c", letter);
    }
}

QLinearGradient fall(const QRectF& bounds, QRgb lit, QRgb shaded) {
    QLinearGradient gradient(bounds.topLeft(), bounds.bottomRight());
    gradient.setColorAt(0.1, QColor::fromRgb(lit));
    gradient.setColorAt(0.9, QColor::fromRgb(shaded));
    return gradient;
}

}  // namespace

QPainterPath path(std::string_view words) {
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (size_t at = 0; (at = words.find_first_not_of(' ')) != std::string_view::npos;) {
        const char letter = words[at];
        words.remove_prefix(at + 1);
        addPiece(path, letter, words);
    }
    return path;
}

QPainterPath stroke(QPointF root, QPointF bend, QPointF tip, double inMiddle, double atTip) {
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    addStroke(path, root, bend, tip, {inMiddle, atTip});
    return path;
}

QPainterPath disc(QPointF centre, double radius) {
    QPainterPath path;
    path.addEllipse(centre, radius, radius);
    return path;
}

QPainterPath drawn(const QPainterPath& line, double breadth) {
    QPainterPathStroker stroker(QPen(Qt::black, breadth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    QPainterPath path = stroker.createStroke(line);
    path.setFillRule(Qt::WindingFill);
    return path;
}

void paint(QPainter& painter, const QPainterPath& path, std::string_view inks, double lineBreadth) {
    if (inks.size() == 1) return engrave(painter, path, paletteColour(inks[0]));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(path, fall(path.boundingRect(), paletteColour(inks[0]), paletteColour(inks[1])));
    // The line is as fine on a shape that is painted enlarged.
    const double breadth = lineBreadth * materials::density / std::sqrt(std::abs(painter.transform().determinant()));
    const QPen pen(QColor::fromRgb(paletteColour(inks.back())), breadth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    if (inks.size() > 2) painter.strokePath(path.simplified(), pen);
    painter.restore();
}

void paint(QPainter& painter, std::span<const Shape> shapes) {
    for (const Shape& shape : shapes) paint(painter, path(shape.path), shape.inks);
}

void engrave(QPainter& painter, const QPainterPath& path, QRgb ink, double rimLight) {
    constexpr double depth = 0.22;
    constexpr QPointF aside{depth, depth};
    const auto color = [&](QRgb other, double share) { return QColor::fromRgb(materials::mix(ink, other, share)); };
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(path.translated(1.3 * aside), QColor(255, 255, 255, int(255 * rimLight)));
    painter.fillPath(path, color(qRgb(0, 0, 0), 0.5));
    painter.setClipPath(path, Qt::IntersectClip);
    painter.fillPath(path.translated(aside), color(qRgb(255, 255, 255), 0.28));
    painter.setClipPath(path.translated(-aside), Qt::IntersectClip);
    painter.fillPath(path.translated(aside), QColor::fromRgb(ink));
    painter.restore();
}

}  // namespace outline
