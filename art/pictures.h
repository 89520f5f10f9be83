#pragma once

#include <QPainter>
#include <QSize>
#include <span>

/// One picture that the game loads: its file name under assets/pictures, its size in the game's pixels and what paints
/// it. The painter counts in the game's pixels, on a picture of that size filled with black, with antialiasing off.
struct Picture {
    const char* name;
    QSize size;
    void (*paint)(QPainter& painter);
};

/// Tile faces, backs, their masks and the Pass button.
std::span<const Picture> tilePictures();

/// The table, the backgrounds of the dialogs, markers, lightning and toolbar icons.
std::span<const Picture> tablePictures();
