#pragma once

#include <QPainter>
#include <string_view>

/// A small picture as text: rows of palette letters parted by line ends, with '.' where nothing is painted.
using Sprite = std::string_view;

/// Which way a sprite is turned before it is painted.
struct Turn {
    bool leftRight = false;
    bool upsideDown = false;
};

/// The colour of a palette letter; 0 (fully transparent) for '.' and any letter that stands for nothing.
QRgb paletteColour(char letter);

/// Paints the sprite with its top left pixel at (x, y); each letter named in `from` is painted as its partner in `to`.
void paintSprite(QPainter& painter, int x, int y, Sprite sprite, std::string_view from = {}, std::string_view to = {},
                 Turn turn = {});

/// The symbol of a number from 1 to 9.
constexpr char digit(int number) { return static_cast<char>('0' + number); }

/// Paints a digit or a capital letter of the corner index, 6 pixels high, in one colour.
void paintIndex(QPainter& painter, int x, int y, char symbol, QRgb colour);
