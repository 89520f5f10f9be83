#pragma once

#include <QPainter>
#include <QRect>
#include <QSize>

#include "presentation/layout.h"

/// The painters of the pictures beside the tiles; each one fills its whole picture.
namespace tableArt {

constexpr QRect rectOf(const platform::Place& place) { return {place.left, place.top, place.width, place.height}; }
constexpr QSize sizeOf(const platform::Place& place) { return {place.width, place.height}; }

/// The sizes of the pictures in pixels.
constexpr QSize tableSize{tablePictureWidth, tablePictureHeight};
constexpr QSize sizeOf(const Ground& ground) { return {ground.width, ground.height}; }
constexpr QSize breakDownSize = sizeOf(breakDownGround);
constexpr QSize chooseSeatSize = sizeOf(seatGround);
constexpr QSize hiScoreSize = sizeOf(hiScoreGround);
constexpr QSize tableTopSize = sizeOf(smallTablePlace);
constexpr QSize lightningSize = sizeOf(lightningPlace);

/// A sheet of markers has a column for each wind and a row for each script; the sizes in pixels are those of one
/// marker.
constexpr int winds = seatCount;
constexpr int scripts = 2;
constexpr QSize houseSize = sizeOf(roundMarkerPlace);
constexpr QSize smallHouseSize{smallMarkerSide, smallMarkerSide};

/// The icons of the toolbar stand in a row; each is a square of so many pixels.
constexpr int icons = 14;
constexpr int iconSize = 16;

/// The table: cloth, the board in its frame, the labels and the mat for the seats.
void paintTable(QPainter& painter);

/// The ground of the break-down: a grid of two columns of six rows and the labels of the totals.
void paintBreakDown(QPainter& painter);

/// The ground of the seat draw.
void paintChooseSeat(QPainter& painter);

/// The ground of the high scores: paper with heads, row numbers and the line that explains the Levels.
void paintHiScore(QPainter& painter);

/// The small table that the seats stand round, on its piece of the mat: the table's picture at the same place.
void paintTableTop(QPainter& painter);

/// The large markers of the winds, Chinese above English.
void paintHouse(QPainter& painter);

/// The mask of one large marker.
void paintHouseMask(QPainter& painter);

/// The small markers of the winds, Chinese above English.
void paintSmallHouse(QPainter& painter);

/// The mask of one small marker.
void paintSmallHouseMask(QPainter& painter);

/// The bolt of lightning on black, made to be added to the table by its bits.
void paintLightning(QPainter& painter);

/// The complement of the lightning.
void paintLightningMask(QPainter& painter);

/// The icons of the toolbar on their transparent grey.
void paintToolbarIcons(QPainter& painter);

}  // namespace tableArt
