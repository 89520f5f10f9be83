#pragma once

#include <QPainter>
#include <array>

constexpr int tileWidth = 30;
constexpr int tileHeight = 39;

/// The part of a tile's front that a face may cover, the same in all views.
constexpr int faceWidth = 25;
constexpr int faceHeight = 35;

/// How many pixels are left out of a corner: of its outermost line, the next one and the one after that.
using CornerCut = std::array<int, 3>;

/// One view of a tile: its outline, where its front lies and where a face starts on it.
struct TileView {
    CornerCut topLeft, topRight, bottomLeft, bottomRight;
    QRect front;
    QPoint face;

    /// Whether the tile covers the pixel (x, y) of its 30 by 39 rectangle.
    bool covers(int x, int y) const;
};

constexpr CornerCut square = {0, 0, 0};
constexpr CornerCut rounded = {1, 0, 0};
constexpr CornerCut farSlant = {3, 2, 1};
constexpr CornerCut nearSlant = {2, 1, 0};

/// Straight on, side at the right, side at the left: the rows of every sheet of tiles.
constexpr std::array<TileView, 3> tileViews = {{
    {rounded, rounded, rounded, rounded, QRect(0, 0, 30, 39), QPoint(2, 2)},
    {square, farSlant, nearSlant, square, QRect(0, 0, 27, 37), QPoint(1, 1)},
    {farSlant, square, square, nearSlant, QRect(3, 0, 27, 37), QPoint(4, 1)},
}};

/// Paints the blank ivory tile of a view with its side.
void paintIvory(QPainter& painter, const TileView& view);

/// Paints the lacquered back of a tile with its side.
void paintBack(QPainter& painter, const TileView& view);

/// Paints the view's mask: black where the tile shows, white where the ground stays.
void paintTileMask(QPainter& painter, const TileView& view);
