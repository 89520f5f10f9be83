#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace platform {

/// A colour with red in the low byte, then green, then blue: 0xFF is red, 0xFF0000 is blue.
using Color = uint32_t;

/// The opaque pixel of that colour: 0xFFRRGGBB.
constexpr uint32_t pixelOf(Color color) {
    return 0xFF000000 | (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF);
}

/// A point on a picture, in pixels.
struct PixelPoint {
    int16_t X = 0;
    int16_t Y = 0;
};

/// A rectangle by its top left corner and its size, in pixels.
struct Place {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

/// A picture that the program carries; rows from the top, a pixel as 0xAARRGGBB. Never changes, lives for the run.
struct Picture {
    int width = 0;
    int height = 0;
    const uint32_t* pixels = nullptr;
};

/// What text is printed in: the font's name, its size in points and its weight.
struct Font {
    std::string name = "Times New Roman";
    double points = 8;
    bool bold = false;
};

/// A text as it was printed on a surface: the top left corner of its line in pixels, its font and its colour.
struct PrintedText {
    std::string text;
    int left = 0;
    int top = 0;
    Font font;
    Color color = 0;
};

/// A block of pixels with a lasting background picture and a pen for text. Nothing on it is seen but through a form.
class Surface {
  public:
    Surface() = default;
    Surface(int width, int height);            ///< In pixels, black all over; below 0 counts as 0.
    explicit Surface(const Picture& picture);  ///< A copy of the picture, which is its background too.

    int width() const { return width_; }    ///< Pixels.
    int height() const { return height_; }  ///< Pixels.

    /// Makes the picture the background and takes its size; all drawing is lost.
    void setPicture(const Picture& picture);
    /// Gives it another size in pixels, below 0 as 0; all drawing is lost, the background stays at the top left, the
    /// rest is black.
    void resize(int width, int height);
    void clear();  ///< Removes all drawing and leaves the background.

    Font font;                                     ///< Stays set from one text to the next.
    Color foreColor = 0;                           ///< Colour of text.
    int currentX = 0;                              ///< Left edge of the next text.
    int currentY = 0;                              ///< Top edge of the next text.
    void print(const std::string& text);           ///< Prints at the current place in the current font.
    int textWidth(const std::string& text) const;  ///< Width in pixels in the current font.

    Color point(int x, int y) const;  ///< Colour of a pixel; 0 outside and where pixels are left out.
    /// The pixels of a row, as many as the width, from the left; y from 0 to below the height, and only with pixels.
    uint32_t* row(int y) { return pixels_.data() + static_cast<size_t>(y) * width_; }
    const uint32_t* row(int y) const { return pixels_.data() + static_cast<size_t>(y) * width_; }
    bool hasPixels() const { return !pixels_.empty(); }  ///< Not when it is empty or keeps none.

    /// The texts on it, in the order of printing, where the back end writes them down here instead of drawing them;
    /// always empty where it draws. They go with the drawing, and a copy of the surface has them too.
    std::vector<PrintedText> texts;

    /// While false, surfaces that are made or sized have no pixels and all drawing on them is nothing: for play that
    /// nobody watches.
    static inline bool keepsPixels = true;

  private:
    int width_ = 0;
    int height_ = 0;
    Picture background_;
    std::vector<uint32_t> pixels_;  ///< 0xFFRRGGBB in rows from the top.
};

/// The raster operations.
constexpr uint32_t SRCCOPY = 0xCC0020;   ///< The source.
constexpr uint32_t SRCAND = 0x8800C6;    ///< Destination and source, bit by bit.
constexpr uint32_t SRCPAINT = 0xEE0086;  ///< Destination or source, bit by bit.

/// Transfers a rectangle of the source at (sourceX, sourceY) to (x, y), cut to what lies on both surfaces. Any other
/// operation than the three does nothing. With SRCCOPY a text that was written down instead of drawn goes where the
/// pixel goes at which it begins, and one that begins at a pixel that is overwritten is gone.
void BitBlt(Surface& destination, int x, int y, int width, int height, const Surface& source, int sourceX, int sourceY,
            uint32_t operation);

}  // namespace platform
