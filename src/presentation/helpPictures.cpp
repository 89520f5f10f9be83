#include "presentation/helpPictures.h"

#include <algorithm>
#include <sstream>
#include <string_view>
#include <vector>

#include "platform/pictures.h"
#include "presentation/buttons.h"
#include "presentation/frmBitmaps.h"

namespace {

constexpr std::string_view tilesWord = "tiles:";
constexpr std::string_view iconWord = "icon:";
constexpr int rowMargin = 3;               // clear pixels at both ends of a row of tiles, to tell it from the next one
constexpr uint32_t colourOnly = 0xFFFFFF;  // of a pixel
constexpr uint32_t opaque = 0xFF000000;

/// A run of kinds that have a letter, and a digit from 1 behind it if there is more than one of them.
struct NameRun {
    char letter;
    int16_t firstKind;
    int16_t kinds;
};

constexpr NameRun nameRuns[] = {
    {'c', 1, kindsPerSuit},        {'b', 10, kindsPerSuit},     {'w', 19, kindsPerSuit},
    {'E', firstWindKind, 1},       {'S', firstWindKind + 1, 1}, {'W', firstWindKind + 2, 1},
    {'N', firstWindKind + 3, 1},   {'R', firstDragonKind, 1},   {'G', firstDragonKind + 1, 1},
    {'B', firstDragonKind + 2, 1}, {'s', firstSeasonKind, 4},   {'f', firstFlowerKind, 4},
};

/// The kind with that short name; 0 if there is none.
int16_t kindNamed(std::string_view name) {
    for (const NameRun& run : nameRuns) {
        if (name.empty() || name[0] != run.letter) continue;
        const int index = run.kinds == 1 ? 0 : name.size() == 2 ? name[1] - '1' : -1;
        const bool fits = name.size() == (run.kinds == 1 ? 1u : 2u) && index >= 0 && index < run.kinds;
        if (fits) return static_cast<int16_t>(run.firstKind + index);
    }
    return 0;
}

/// Where a tile's picture comes from: a sheet, and the left edge of its column on it.
struct TilePicture {
    const platform::Surface* sheet = nullptr;
    int left = 0;
};

TilePicture tileNamed(const std::string& name) {
    if (name == "back") return {&gfrmBitmaps->picTileBack, 0};
    const int16_t kind = kindNamed(name);
    if (kind == 0) return {};
    return {&gfrmBitmaps->picAllTiles, (kind - 1) * tileWidth};
}

std::vector<std::string> listed(std::string_view names) {
    std::istringstream in{std::string(names)};
    std::vector<std::string> list;
    for (std::string name; std::getline(in, name, ',');) list.push_back(name);
    return list;
}

/// Tiles side by side, straight on; what their outline leaves out is clear.
platform::HelpPicture tilesInARow(const std::vector<std::string>& names) {
    const platform::Surface& mask = gfrmBitmaps->picTileBackMask;
    if (names.empty() || !mask.hasPixels()) return {};
    const int dense = platform::density();
    platform::HelpPicture row{static_cast<int>(names.size()) * tileWidth + 2 * rowMargin, tileHeight, dense, {}};
    row.pixels.resize(static_cast<size_t>(row.width) * row.height * dense * dense);
    for (size_t i = 0; i < names.size(); ++i) {
        const TilePicture tile = tileNamed(names[i]);
        if (tile.sheet == nullptr || !tile.sheet->hasPixels()) return {};
        const int left = (rowMargin + static_cast<int>(i) * tileWidth) * dense;
        for (int y = 0; y < tileHeight * dense; ++y)
            for (int x = 0; x < tileWidth * dense; ++x)
                if ((mask.row(y)[x] & colourOnly) == 0)
                    row.pixels[static_cast<size_t>(y * row.width * dense + left + x)] =
                        tile.sheet->row(y)[tile.left * dense + x] | opaque;
    }
    return row;
}

/// The image of a button of the toolbar.
platform::HelpPicture toolbarIcon(std::string_view number) {
    const platform::ImageList images = ImageList1();
    const int size = images.imageWidth;
    for (int button = 1; button <= toolbarButtons; ++button) {
        const int left = (gintfButtonImage(button) - 1) * size;
        if (std::to_string(button) != number || left < 0 || left + size > images.strip.width) continue;
        const auto [pixels, dense] = platform::densePixels(images.strip, platform::density());
        platform::HelpPicture icon{size, images.strip.height, dense, {}};
        for (int y = 0; y < icon.height * dense; ++y) {
            const uint32_t* const from = pixels + (y * images.strip.width + left) * dense;
            icon.pixels.insert(icon.pixels.end(), from, from + size * dense);
        }
        std::ranges::replace(icon.pixels, platform::pixelOf(images.maskColor), 0u);
        return icon;
    }
    return {};
}

}  // namespace

platform::HelpPicture gudtfHelpPicture(const std::string& strName) {
    const std::string_view name = strName;
    if (name.starts_with(tilesWord)) return tilesInARow(listed(name.substr(tilesWord.size())));
    if (name.starts_with(iconWord)) return toolbarIcon(name.substr(iconWord.size()));
    return {};
}
