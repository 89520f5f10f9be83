#pragma once

#include <QPainter>
#include <QPainterPath>

/// The lettering of the pictures, drawn as outlines so that it is the same at every making.
/// A font that isn't installed ends the program with a message.
namespace script {

/// How a text is inked: from its upper colour down to its lower one, with a dark edge.
struct Ink {
    QRgb upper;
    QRgb lower;
    QRgb edge;
};

/// A flowing script for headings; size is the em in pixels, the baseline starts at (0, 0).
QPainterPath flowing(const QString& text, double size);

/// A plain bold serif for small text; size is the em in pixels, the baseline starts at (0, 0).
QPainterPath plain(const QString& text, double size);

/// A brushed Chinese character; size is the em in pixels, the baseline starts at (0, 0).
QPainterPath brushed(const QString& text, double size);

/// An outline grown by some pixels on all sides.
QPainterPath grown(const QPainterPath& path, double by);

/// Paints an outline with its ink; the edge is edgeWidth pixels broad all round.
void paint(QPainter& painter, const QPainterPath& path, const Ink& ink, double edgeWidth);

/// Paints an outline stretched so that its ink fills exactly the rows of a band and starts exactly at its left column.
void paintInBand(QPainter& painter, const QPainterPath& path, const QRect& band, const Ink& ink);

}  // namespace script
