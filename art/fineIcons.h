#pragma once

#include <QPainter>

/// Paints an icon of the toolbar as outlines, 16 by 16 from the origin; icons count from 0.
void paintFineIcon(QPainter& painter, int icon);
