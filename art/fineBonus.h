#pragma once

#include <QPainter>

/// The outlines of seasons and flowers, 1 to 4.

/// Paints a season in a gilt line that leaves room for its index, under a sky from one colour down to another.
void paintFineSeason(QPainter& painter, int number, QRgb high, QRgb low);

/// Paints what stands on and beside the stems of a flower.
void paintFineFlower(QPainter& painter, int number);

/// Paints a leaf or a stem along a bow, as broad as given in its middle.
void paintFineBlade(QPainter& painter, QPointF root, QPointF bend, QPointF tip, double breadth, char lit, char shaded);
