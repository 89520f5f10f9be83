#pragma once

#include <QPainter>

/// The faces below are painted on 25 by 35 pixels from the origin, their index in the top left corner.

/// Paints the circles, bamboo or characters face of a number from 1 to 9.
void paintCircles(QPainter& painter, int number);
void paintBamboo(QPainter& painter, int number);
void paintCharacters(QPainter& painter, int number);

/// Paints an honour: 1 to 4 are East, South, West, North, 5 to 7 the Red, Green and Blue dragon.
void paintHonour(QPainter& painter, int number);

/// Paints a season or a flower, 1 to 4.
void paintSeason(QPainter& painter, int number);
void paintFlower(QPainter& painter, int number);
