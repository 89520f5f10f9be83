#include <array>

#include "pictures.h"
#include "tileBody.h"
#include "tileFaces.h"
#include "tilePass.h"

namespace {

/// Runs of kinds that one painter paints, in the order of their columns.
struct Family {
    int count;
    void (*paint)(QPainter& painter, int number);
};
constexpr std::array families = {
    Family{9, paintCircles}, Family{9, paintBamboo}, Family{9, paintCharacters},
    Family{7, paintHonour},  Family{4, paintSeason}, Family{4, paintFlower},
};
constexpr int kindCount = 42;

/// Calls paint(view) for each row of a sheet of tiles, the painter moved to that row of the column.
template <typename Paint>
void paintColumn(QPainter& painter, int column, Paint paint) {
    for (int row = 0; const TileView& view : tileViews) {
        painter.save();
        painter.translate(column * tileWidth, row++ * tileHeight);
        paint(view);
        painter.restore();
    }
}

void paintAllTiles(QPainter& painter) {
    int column = 0;
    for (const Family& family : families)
        for (int number = 1; number <= family.count; ++number)
            paintColumn(painter, column++, [&](const TileView& view) {
                paintIvory(painter, view);
                painter.translate(view.face);
                painter.setClipRect(0, 0, faceWidth, faceHeight);
                family.paint(painter, number);
            });
}

void paintBacks(QPainter& painter) {
    paintColumn(painter, 0, [&](const TileView& view) { paintBack(painter, view); });
}

void paintMasks(QPainter& painter) {
    paintColumn(painter, 0, [&](const TileView& view) { paintTileMask(painter, view); });
}

constexpr QSize columnSize{tileWidth, static_cast<int>(tileViews.size()) * tileHeight};
constexpr QSize sheetSize{kindCount * tileWidth, columnSize.height()};
constexpr std::array pictures = {
    Picture{"picAllTiles", sheetSize, paintAllTiles},
    Picture{"picTileBackMask", columnSize, paintMasks},
    Picture{"picTileBack", columnSize, paintBacks},
    Picture{"picPass", QSize(passWidth, passHeight), paintPass},
    Picture{"picPassMask", QSize(passWidth, passHeight), paintPassMask},
};

}  // namespace

std::span<const Picture> tilePictures() { return pictures; }
