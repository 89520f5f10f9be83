#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "platform/surface.h"

/// The main window as it should look: put together from the committed picture files and from places that are written
/// down here, without any help of the game. Tiles are named as in kindOf. Texts are listed in the order of the calls.
class ExpectedTable {
  public:
    ExpectedTable();  ///< The bare table.

    /// A tile on the board, falling or lying, in the view of its column.
    ExpectedTable& tile(int column, int row, const std::string& name);
    /// Tiles on the board, as in GameFixture::setBoard.
    ExpectedTable& board(const std::string& rowsFromBottom);
    ExpectedTable& nextTile(const std::string& name);
    /// The tiles taken, from the left; behind a bar the flowers and seasons.
    ExpectedTable& earned(const std::string& text);
    /// The small table with its names, the small marker on the House, and the large one.
    ExpectedTable& seats(int player, int house, int wind, bool inChinese = true);
    ExpectedTable& score(const std::string& digits);

    ExpectedTable& strike();  ///< Lightning. What stands over it comes later.

    /// One entry of the chooser, from 1: its tiles as they lie on the board from that column on.
    ExpectedTable& offer(int entry, int column, const std::string& names);
    ExpectedTable& pass(int entry);
    /// A dialog's background, with its top left corner there.
    ExpectedTable& dialog(const std::string& picture, int left, int top);
    ExpectedTable& tileBack(int left, int top);
    ExpectedTable& straightTile(int left, int top, const std::string& name);
    /// Repeats a row of pixels in the row below it.
    ExpectedTable& repeatRow(int left, int top, int width);
    ExpectedTable& text(const platform::PrintedText& text);

    /// Whether a surface has these pixels and texts and no others; if not, how it differs.
    ::testing::AssertionResult isSeenOn(const platform::Surface& surface) const;

  private:
    enum View : int { straight = 0, sideAtRight = 39, sideAtLeft = 78 };  // rows of the sheets

    static View viewOf(int column);
    void paintTile(int left, int top, const std::string& name, View view);
    void paintMasked(const platform::Place& place, const std::string& mask, int maskTop, const std::string& picture,
                     int pictureLeft, int pictureTop);
    ::testing::AssertionResult hasPixels(const platform::Surface& surface) const;
    ::testing::AssertionResult hasTexts(const platform::Surface& surface) const;

    std::vector<uint32_t> pixels_;  // 0xRRGGBB in rows from the top
    std::vector<platform::PrintedText> texts_;
};
