#pragma once

#include <algorithm>
#include <map>
#include <sstream>

#include "tests/gameFixture.h"
#include "tools/png.h"

/// The main window as it should look: put together from the committed picture files and from places that are written
/// down here, without any help of the game. Tiles are named as in kindOf. Texts are listed in the order of the calls.
class ExpectedTable {
  public:
    /// The bare table.
    ExpectedTable() { paintPicture("101", 0, 0); }

    /// A tile on the board, falling or lying, in the view of its column.
    ExpectedTable& tile(int column, int row, const std::string& name) {
        return paintTile(40 + 30 * (column - 1), 24 + 39 * row, name, viewOf(column));
    }
    /// Tiles on the board, as in GameFixture::setBoard.
    ExpectedTable& board(const std::string& rowsFromBottom) {
        std::istringstream rows(rowsFromBottom);
        int row = 12;
        for (std::string names; std::getline(rows, names, '/'); --row) {
            int column = 1;
            for (const std::string& name : words(names)) {
                if (name != ".") tile(column, row, name);
                ++column;
            }
        }
        return *this;
    }
    ExpectedTable& nextTile(const std::string& name) { return straightTile(474, 44, name); }
    /// The tiles taken, from the left; behind a bar the flowers and seasons.
    ExpectedTable& earned(const std::string& text) {
        std::istringstream rows(text);
        int top = 177;
        for (std::string names; std::getline(rows, names, '|'); top = 129) {
            int left = 352;
            for (const std::string& name : words(names)) {
                straightTile(left, top, name);
                left += 30;
            }
        }
        return *this;
    }
    /// The small table with its names, the small marker on the House, and the large one.
    ExpectedTable& seats(int player, int house, int wind, bool inChinese = true) {
        static const struct {
            const char* name;
            int nameLeft, nameTop, markerLeft, markerTop;
        } places[] = {{"East", 600, 272, 615, 311},
                      {"South", 526, 320, 599, 328},
                      {"West", 600, 366, 615, 346},
                      {"North", 663, 320, 634, 328}};
        constexpr platform::Color white = 0xFFFFFF, blue = 0xFF0000;
        dialog("picTableTop", 592, 304);
        for (int seat = 1; seat <= 4; ++seat) {
            const auto& place = places[seat - 1];
            shadowed(seat == player ? "Player" : place.name, place.nameLeft, place.nameTop, false,
                     seat == player ? white : blue);
        }
        const int left = wind - 1, top = inChinese ? 0 : 1;  // in the sheets of markers
        const auto& place = places[house - 1];
        paintMasked(place.markerLeft, place.markerTop, "picSmallHouseMask", 0, "picSmallHouse", left * 16, top * 16);
        return paintMasked(428, 306, "picHouseMask", 0, "picHouse", left * 64, top * 66);
    }
    ExpectedTable& score(const std::string& digits) { return shadowed(digits, 454, 237, true, 0x0000FF); }
    /// Lightning. What stands over it comes later.
    ExpectedTable& strike() { return paintMasked(580, 0, "picLightningMask", 0, "picLightning", 0, 0); }
    /// One entry of the chooser, from 1: its tiles as they lie on the board from that column on.
    ExpectedTable& offer(int entry, int column, const std::string& names) {
        for (int left = offerLeft(entry); const std::string& name : words(names)) {
            paintTile(left, offerTop(entry), name, viewOf(column++));
            left += 30;
        }
        return *this;
    }
    ExpectedTable& pass(int entry) {
        return paintMasked(offerLeft(entry), offerTop(entry), "picPassMask", 0, "picPass", 0, 0);
    }
    /// A dialog's background, with its top left corner there.
    ExpectedTable& dialog(const std::string& picture, int left, int top) {
        const PngImage& image = paintPicture(picture, left, top);
        std::erase_if(texts_, [&](const platform::PrintedText& text) {
            return text.left >= left && text.left < left + image.width && text.top >= top &&
                   text.top < top + image.height;
        });
        return *this;
    }
    ExpectedTable& tileBack(int left, int top) {
        return paintMasked(left, top, "picTileBackMask", 0, "picTileBack", 0, 0, 39);
    }
    ExpectedTable& straightTile(int left, int top, const std::string& name) { return paintTile(left, top, name, 0); }
    /// Repeats a row of pixels in the row below it.
    ExpectedTable& repeatRow(int left, int top, int length) {
        for (int x = left; x < left + length; ++x) pixels_[at(x, top + 1)] = pixels_[at(x, top)];
        return *this;
    }
    ExpectedTable& text(const platform::PrintedText& text) {
        texts_.push_back(text);
        return *this;
    }

    /// Whether a surface has these pixels and texts and no others; if not, how it differs.
    ::testing::AssertionResult isSeenOn(const platform::Surface& surface) const {
        if (surface.width() != width || surface.height() != height)
            return ::testing::AssertionFailure() << "the window is " << surface.width() << " by " << surface.height();
        const std::string texts = described(texts_), seen = described(surface.texts);
        auto how = ::testing::AssertionFailure();
        if (seen != texts) return how << "the texts are\n" << seen << "instead of\n" << texts;
        int count = 0, left = width, top = height, right = 0, bottom = 0;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                if ((surface.row(y)[x] & colourBits) == pixels_[at(x, y)]) continue;
                ++count;
                left = std::min(left, x);
                right = std::max(right, x);
                top = std::min(top, y);
                bottom = y;
            }
        if (count == 0) return ::testing::AssertionSuccess();
        return how << count << " pixels differ, in x " << left << " to " << right << ", y " << top << " to " << bottom;
    }

  private:
    static constexpr int width = 795, height = 581;
    static constexpr uint32_t colourBits = 0xFFFFFF;

    static const PngImage& pictureFile(const std::string& name) {
        static std::map<std::string, PngImage> pictures;
        const auto [entry, isNew] = pictures.try_emplace(name);
        if (isNew) entry->second = readPng(VELMORA_ASSETS "/pictures/" + name + ".png");
        return entry->second;
    }

    static std::string described(const std::vector<platform::PrintedText>& texts) {
        std::ostringstream out;
        for (const platform::PrintedText& text : texts)
            out << '"' << text.text << "\" at " << text.left << ", " << text.top << " in " << text.font.name << ' '
                << text.font.points << (text.font.bold ? " bold" : "") << ", colour " << text.color << '\n';
        return out.str();
    }

    static size_t at(int x, int y) { return static_cast<size_t>(y) * width + x; }
    /// The first row of the view, in the sheets of tiles.
    static int viewOf(int column) { return column == 5 ? 0 : column < 5 ? 39 : 78; }
    static int offerLeft(int entry) { return 353 + 6 + 98 * ((entry - 1) % 4); }
    static int offerTop(int entry) { return 436 + 6 + 45 * ((entry - 1) / 4); }

    ExpectedTable& shadowed(const std::string& words, int left, int top, bool bold, platform::Color color) {
        text({words, left - 1, top - 1, {"Wonton ICG", 18, bold}, 0});
        return text({words, left, top, {"Wonton ICG", 18, bold}, color});
    }
    ExpectedTable& paintTile(int left, int top, const std::string& name, int view) {
        return paintMasked(left, top, "picTileBackMask", view, "picAllTiles", (kindOf(name) - 1) * 30, view, 39);
    }
    /// Paints what the mask leaves of a picture; all rows of the mask if no other number is given.
    ExpectedTable& paintMasked(int left, int top, const std::string& mask, int maskTop, const std::string& picture,
                               int pictureLeft, int pictureTop, int rows = 0) {
        const PngImage& outline = pictureFile(mask);
        const PngImage& image = pictureFile(picture);
        for (int y = 0; y < (rows > 0 ? rows : outline.height); ++y)
            for (int x = 0; x < outline.width; ++x) {
                uint32_t& pixel = pixels_[at(left + x, top + y)];
                pixel = ((pixel & outline.at(x, maskTop + y)) | image.at(pictureLeft + x, pictureTop + y)) & colourBits;
            }
        return *this;
    }
    const PngImage& paintPicture(const std::string& name, int left, int top) {
        const PngImage& image = pictureFile(name);
        for (int y = 0; y < std::min(image.height, height - top); ++y)
            for (int x = 0; x < std::min(image.width, width - left); ++x)
                pixels_[at(left + x, top + y)] = image.at(x, y) & colourBits;
        return image;
    }

    std::vector<uint32_t> pixels_ = std::vector<uint32_t>(static_cast<size_t>(width) * height);  // 0xRRGGBB in rows
    std::vector<platform::PrintedText> texts_;
};
