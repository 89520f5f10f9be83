#pragma once

#include <QPainter>

/// The painters of the pictures beside the tiles; each one fills its whole picture.
namespace tableArt {

/// The table: cloth, the board in its frame, the labels and the mat for the seats; 800 by 600.
void paintTable(QPainter& painter);

/// The ground of the break-down: a grid of two columns of six rows and the labels of the totals; 667 by 329.
void paintBreakDown(QPainter& painter);

/// The ground of the seat draw; 256 by 256.
void paintChooseSeat(QPainter& painter);

/// The ground of the high scores: paper with heads, row numbers and the line that explains the Levels; 500 by 350.
void paintHiScore(QPainter& painter);

/// The small table that the seats stand round; 64 by 64.
void paintTableTop(QPainter& painter);

/// The large markers of the winds, Chinese above English; 256 by 132.
void paintHouse(QPainter& painter);

/// The mask of one large marker; 64 by 66.
void paintHouseMask(QPainter& painter);

/// The small markers of the winds, Chinese above English; 64 by 32.
void paintSmallHouse(QPainter& painter);

/// The mask of one small marker; 16 by 16.
void paintSmallHouseMask(QPainter& painter);

/// The bolt of lightning on black, made to be added to the table by its bits; 200 by 233.
void paintLightning(QPainter& painter);

/// The complement of the lightning; 200 by 233.
void paintLightningMask(QPainter& painter);

/// The 14 icons of the toolbar on their transparent grey; 224 by 16.
void paintToolbarIcons(QPainter& painter);

}  // namespace tableArt
