#pragma once

#include <QPainter>

constexpr int passWidth = 90;
constexpr int passHeight = 39;

/// Paints the Pass button: lacquered wood with a gilt rim and the word.
void paintPass(QPainter& painter);

/// Paints its mask: black where the button shows, white outside its rounded corners.
void paintPassMask(QPainter& painter);
