#pragma once

#include <QPainter>
#include <span>
#include <string_view>

/// One ring of a rosette: its outer radius in pixels, the palette letters between and on its petals, how many petals
/// (0 for a plain ring) and the share of the ring that they cover.
struct Ring {
    double outer;
    char between, petal;
    int petals;
    double cover;
};

/// Paints rings from the rim inward round the middle of a pixel; '.' between petals of the outermost ring is left
/// clear.
void paintRosette(QPainter& painter, QPoint centre, std::span<const Ring> rings);

/// Paints the same rings as engraved outlines round any point; each letter named in `from` is painted as its partner in
/// `to`.
void paintFineRosette(QPainter& painter, QPointF centre, std::span<const Ring> rings, std::string_view from = {},
                      std::string_view to = {}, double rimLight = 0.75);
