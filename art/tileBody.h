#pragma once

#include <QPainter>
#include <array>

constexpr int tileWidth = 30;
constexpr int tileHeight = 39;

/// The part of a tile's front that a face may cover, the same in all views.
constexpr int faceWidth = 25;
constexpr int faceHeight = 35;

/// What a corner of a tile leaves out: so many pixels of its outermost line, one less of the next, or a round.
struct Corner {
    int slant;
    double round;
};

/// One view of a tile: its outline, where its front lies and where a face starts on it.
struct TileView {
    Corner topLeft, topRight, bottomLeft, bottomRight;
    QRect front;
    QPoint face;

    /// Whether the tile covers the place (x, y) of its 30 by 39 rectangle.
    bool covers(double x, double y) const;
};

/// The rounds are such that at density 1 a keen corner keeps its pixel and a rounded one loses it, and no other.
constexpr Corner keen = {0, 1.2};
constexpr Corner rounded = {0, 2.4};
constexpr Corner farSlant = {3, 0};
constexpr Corner nearSlant = {2, 0};

/// Straight on, side at the right, side at the left: the rows of every sheet of tiles.
constexpr std::array<TileView, 3> tileViews = {{
    {rounded, rounded, rounded, rounded, QRect(0, 0, 30, 39), QPoint(2, 2)},
    {keen, farSlant, nearSlant, keen, QRect(0, 0, 27, 37), QPoint(1, 1)},
    {farSlant, keen, keen, nearSlant, QRect(3, 0, 27, 37), QPoint(4, 1)},
}};

/// Paints the blank ivory tile of a view with its side.
void paintIvory(QPainter& painter, const TileView& view);

/// Paints the lacquered back of a tile with its side.
void paintBack(QPainter& painter, const TileView& view);

/// Paints the view's mask: black where the tile shows, white where the ground stays.
void paintTileMask(QPainter& painter, const TileView& view);
