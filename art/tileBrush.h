#pragma once

#include <QPainter>

/// Paints a brush-written character so that its ink fills the box exactly, its strokes thickened by `weight` pixels.
void paintBrush(QPainter& painter, const QRect& box, char32_t character, QRgb ink, double weight);
