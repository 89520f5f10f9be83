#pragma once

#include <QColor>
#include <QRect>

#include "platform/controls.h"

class QPainter;

namespace platform::qt {

constexpr Color buttonBack = 0xC0C0C0;  // The same under every desktop theme.

/// The colour, that much of the way to another one; 0 leaves it, 1 is the other.
QColor towards(const QColor& color, const QColor& other, double part);

/// Paints a bevel of that width in pixels along the edge of the rectangle and returns what lies within it.
QRect paintBevel(QPainter& painter, const QRect& rect, Bevel bevel, int width, const QColor& back);

/// Paints the fine rectangle that marks the control with the focus.
void paintFocus(QPainter& painter, const QRect& rect, const QColor& back);

}  // namespace platform::qt
