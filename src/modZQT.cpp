#include "modZQT.h"

int16_t gintfTileDir(int column) {
    if (column == entryColumn) return 0;
    return column < entryColumn ? tileHeight : 2 * tileHeight;
}
