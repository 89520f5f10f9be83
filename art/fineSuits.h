#pragma once

#include <QPainter>
#include <string_view>

/// The parts of the suits as outlines. Colours are given as three palette letters: dark, plain and light.

/// Paints a disc with its rings and its rosette.
void paintFineDisc(QPainter& painter, QPointF centre, double radius, std::string_view colours);

/// Paints a bamboo cane of two members from one end to the other.
void paintFineCane(QPainter& painter, QPointF from, QPointF to, double breadth, std::string_view colours);

/// Paints the peacock on its branch.
void paintFineBird(QPainter& painter);

/// Paints the frame of the Blue dragon.
void paintFineFrame(QPainter& painter);
