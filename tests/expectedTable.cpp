#include "tests/expectedTable.h"

#include <algorithm>
#include <map>
#include <sstream>

#include "tests/gameFixture.h"
#include "tools/png.h"

namespace {

constexpr int windowWidth = 795, windowHeight = 581;
constexpr uint32_t colourBits = 0xFFFFFF;

const PngImage& pictureFile(const std::string& name) {
    static std::map<std::string, PngImage> pictures;
    const auto [entry, isNew] = pictures.try_emplace(name);
    if (isNew) entry->second = readPng(VELMORA_ASSETS "/pictures/" + name + ".png");
    return entry->second;
}

size_t at(int x, int y) { return static_cast<size_t>(y) * windowWidth + x; }

std::string describe(const platform::PrintedText& text) {
    std::ostringstream out;
    out << '"' << text.text << "\" at " << text.left << ", " << text.top << " in " << text.font.name << ' '
        << text.font.points << (text.font.bold ? " bold" : "") << ", colour 0x" << std::hex << text.color;
    return out.str();
}

}  // namespace

ExpectedTable::ExpectedTable() : pixels_(static_cast<size_t>(windowWidth) * windowHeight) {
    const PngImage& table = pictureFile("101");
    for (int y = 0; y < windowHeight; ++y)
        for (int x = 0; x < windowWidth; ++x) pixels_[at(x, y)] = table.at(x, y) & colourBits;
}

ExpectedTable::View ExpectedTable::viewOf(int column) {
    return column == 5 ? straight : column < 5 ? sideAtRight : sideAtLeft;
}

ExpectedTable& ExpectedTable::tile(int column, int row, const std::string& name) {
    paintTile(40 + 30 * (column - 1), 24 + 39 * row, name, viewOf(column));
    return *this;
}

ExpectedTable& ExpectedTable::board(const std::string& rowsFromBottom) {
    int row = 12, column = 0;
    for (const std::string& name : words(rowsFromBottom))
        if (name == "/")
            --row, column = 0;
        else if (++column; name != ".")
            tile(column, row, name);
    return *this;
}

ExpectedTable& ExpectedTable::nextTile(const std::string& name) { return straightTile(474, 44, name); }

ExpectedTable& ExpectedTable::earned(const std::string& text) {
    platform::PixelPoint place{352, 177};
    for (const std::string& name : words(text)) {
        if (name == "|") {
            place = {352, 129};
            continue;
        }
        straightTile(place.X, place.Y, name);
        place.X = static_cast<int16_t>(place.X + 30);
    }
    return *this;
}

ExpectedTable& ExpectedTable::seats(int player, int house, int wind, bool inChinese) {
    static const struct {
        const char* name;
        int nameLeft, nameTop, markerLeft, markerTop;
    } places[] = {{"East", 600, 272, 615, 311},
                  {"South", 526, 320, 599, 328},
                  {"West", 600, 366, 615, 346},
                  {"North", 663, 320, 634, 328}};
    constexpr platform::Color white = 0xFFFFFF, blue = 0xFF0000, black = 0;
    dialog("picTableTop", 592, 304);
    for (int seat = 1; seat <= 4; ++seat) {
        const auto& place = places[seat - 1];
        const std::string name = seat == player ? "Player" : place.name;
        text({name, place.nameLeft - 1, place.nameTop - 1, {"Wonton ICG", 18, false}, black});
        text({name, place.nameLeft, place.nameTop, {"Wonton ICG", 18, false}, seat == player ? white : blue});
    }
    const auto& place = places[house - 1];
    paintMasked({place.markerLeft, place.markerTop, 16, 16}, "picSmallHouseMask", 0, "picSmallHouse", (wind - 1) * 16,
                inChinese ? 0 : 16);
    paintMasked({428, 306, 64, 66}, "picHouseMask", 0, "picHouse", (wind - 1) * 64, inChinese ? 0 : 66);
    return *this;
}

ExpectedTable& ExpectedTable::score(const std::string& digits) {
    constexpr platform::Color red = 0x0000FF, black = 0;
    text({digits, 453, 236, {"Wonton ICG", 18, true}, black});
    return text({digits, 454, 237, {"Wonton ICG", 18, true}, red});
}

ExpectedTable& ExpectedTable::strike() {
    paintMasked({580, 0, 200, 233}, "picLightningMask", 0, "picLightning", 0, 0);
    return *this;
}

ExpectedTable& ExpectedTable::offer(int entry, int column, const std::string& names) {
    int left = 353 + 6 + 98 * ((entry - 1) % 4);
    for (const std::string& name : words(names)) {
        paintTile(left, 436 + 6 + 45 * ((entry - 1) / 4), name, viewOf(column++));
        left += 30;
    }
    return *this;
}

ExpectedTable& ExpectedTable::pass(int entry) {
    paintMasked({353 + 6 + 98 * ((entry - 1) % 4), 436 + 6 + 45 * ((entry - 1) / 4), 90, 39}, "picPassMask", 0,
                "picPass", 0, 0);
    return *this;
}

ExpectedTable& ExpectedTable::dialog(const std::string& picture, int left, int top) {
    const PngImage& image = pictureFile(picture);
    for (int y = 0; y < image.height; ++y)
        for (int x = 0; x < image.width; ++x) pixels_[at(left + x, top + y)] = image.at(x, y) & colourBits;
    std::erase_if(texts_, [&](const platform::PrintedText& text) {
        return text.left >= left && text.left < left + image.width && text.top >= top && text.top < top + image.height;
    });
    return *this;
}

ExpectedTable& ExpectedTable::tileBack(int left, int top) {
    paintMasked({left, top, 30, 39}, "picTileBackMask", 0, "picTileBack", 0, 0);
    return *this;
}

ExpectedTable& ExpectedTable::straightTile(int left, int top, const std::string& name) {
    paintTile(left, top, name, straight);
    return *this;
}

ExpectedTable& ExpectedTable::repeatRow(int left, int top, int width) {
    for (int x = left; x < left + width; ++x) pixels_[at(x, top + 1)] = pixels_[at(x, top)];
    return *this;
}

ExpectedTable& ExpectedTable::text(const platform::PrintedText& text) {
    texts_.push_back(text);
    return *this;
}

void ExpectedTable::paintTile(int left, int top, const std::string& name, View view) {
    paintMasked({left, top, 30, 39}, "picTileBackMask", view, "picAllTiles", (kindOf(name) - 1) * 30, view);
}

void ExpectedTable::paintMasked(const platform::Place& place, const std::string& mask, int maskTop,
                                const std::string& picture, int pictureLeft, int pictureTop) {
    const PngImage& outline = pictureFile(mask);
    const PngImage& image = pictureFile(picture);
    for (int y = 0; y < place.height; ++y)
        for (int x = 0; x < place.width; ++x) {
            uint32_t& pixel = pixels_[at(place.left + x, place.top + y)];
            pixel = ((pixel & outline.at(x, maskTop + y)) | image.at(pictureLeft + x, pictureTop + y)) & colourBits;
        }
}

::testing::AssertionResult ExpectedTable::isSeenOn(const platform::Surface& surface) const {
    const auto pixels = hasPixels(surface);
    return pixels ? hasTexts(surface) : pixels;
}

::testing::AssertionResult ExpectedTable::hasPixels(const platform::Surface& surface) const {
    if (surface.width() != windowWidth || surface.height() != windowHeight)
        return ::testing::AssertionFailure() << "the window is " << surface.width() << " by " << surface.height();
    int count = 0, firstX = 0, firstY = 0, left = windowWidth, right = 0, bottom = 0;
    for (int y = 0; y < windowHeight; ++y)
        for (int x = 0; x < windowWidth; ++x) {
            if ((surface.row(y)[x] & colourBits) == pixels_[at(x, y)]) continue;
            if (count++ == 0) firstX = x, firstY = y;
            left = std::min(left, x);
            right = std::max(right, x);
            bottom = y;
        }
    if (count == 0) return ::testing::AssertionSuccess();
    std::ostringstream how;
    how << count << " pixels differ, all of them in x " << left << " to " << right << ", y " << firstY << " to "
        << bottom << "; the first at " << firstX << ", " << firstY << " is 0x" << std::hex
        << (surface.row(firstY)[firstX] & colourBits) << " instead of 0x" << pixels_[at(firstX, firstY)];
    return ::testing::AssertionFailure() << how.str();
}

::testing::AssertionResult ExpectedTable::hasTexts(const platform::Surface& surface) const {
    for (size_t i = 0; i < std::max(texts_.size(), surface.texts.size()); ++i) {
        const std::string expected = i < texts_.size() ? describe(texts_[i]) : "nothing";
        const std::string seen = i < surface.texts.size() ? describe(surface.texts[i]) : "nothing";
        if (seen != expected)
            return ::testing::AssertionFailure() << "text " << i + 1 << " is " << seen << " instead of " << expected;
    }
    return ::testing::AssertionSuccess();
}
