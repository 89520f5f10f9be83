#pragma once

#include <QPainter>
#include <QPainterPath>
#include <span>
#include <string_view>

/// Shapes drawn as outlines, where sprites would show their pixels. All of them take their light from the upper left.
namespace outline {

/// The outline that letters and numbers describe: M x y moves, L draws a line, Q a curve over one point, C over two,
/// and Z closes. E is an ellipse round a point by two radii. B is a stroke of the brush from a root over a bend to a
/// tip, as broad as two more numbers say in its middle and at its tip; it starts half as broad as it is in its middle.
QPainterPath path(std::string_view words);

/// The outline that B describes.
QPainterPath stroke(QPointF root, QPointF bend, QPointF tip, double inMiddle, double atTip);

/// A disc.
QPainterPath disc(QPointF centre, double radius);

/// What is left along an outline when it is drawn with a pen of so many pixels.
QPainterPath drawn(const QPainterPath& line, double breadth);

/// An outline and the palette letters of its colours: of its lit side, of its shaded one and of a fine line round it.
/// One letter alone engraves the outline in that colour; without a third one there is no line.
struct Shape {
    std::string_view path, inks;
};

/// Paints shapes, one over the other.
void paint(QPainter& painter, std::span<const Shape> shapes);
void paint(QPainter& painter, const QPainterPath& path, std::string_view inks, double lineBreadth = 0.25);

/// Fills an outline as an engraver does: its upper left wall lies in shade, its floor is inked, and its lower right
/// wall takes the light. So does the rim beyond it, by a share that suits the ground: less on dark lacquer than on
/// ivory.
void engrave(QPainter& painter, const QPainterPath& path, QRgb ink, double rimLight = 0.75);

}  // namespace outline
