#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace platform {

/// A rectangle by its top left corner and its size, in pixels.
struct Place {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    bool operator==(const Place&) const = default;
    bool contains(int x, int y) const { return x >= left && x < left + width && y >= top && y < top + height; }
};

/// What was drawn on a surface lately, as rectangles in the order of drawing. It remembers the last few of them; a
/// query that goes further back gets the whole surface.
class Changes {
  public:
    /// A moment between two changes.
    using Moment = uint64_t;

    Moment now() const { return now_; }                                     ///< After the last change.
    void add(const Place& place) { places_[now_++ % remembered] = place; }  ///< The next one.
    void addAll() { complete_ = ++now_; }                                   ///< Everything may have changed.
    /// Adds each rectangle that has changed since a moment to the list, or the whole if that is longer ago than is
    /// known.
    void collect(Moment since, const Place& whole, std::vector<Place>& list) const;

  private:
    static constexpr Moment remembered = 64;

    std::array<Place, remembered> places_{};
    Moment now_ = 0;
    Moment complete_ = 0;  // everything may have changed up to here
};

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

/// A picture that the program carries; rows from the top, a pixel as 0xAARRGGBB. Never changes, lives for the run.
struct Picture {
    int width = 0;
    int height = 0;
    const uint32_t* pixels = nullptr;  ///< Those of density 1.
};

/// How many real pixels stand for each of the game's, across and down: one number for all surfaces, 1 at first. Sizes
/// and places are the game's pixels everywhere; only what holds or shows real pixels asks for it.
int density();
constexpr int highestDensity = 4;
/// From 1 to 4. What has been drawn is enlarged, and crisp again with the next painting; backgrounds are so at once.
void setDensity(int pixels);

/// The real pixels of a picture: `density` times its width and height.
struct DensePixels {
    const uint32_t* pixels = nullptr;
    int density = 1;

    /// The row that stands for a row of a higher density, or of the same.
    const uint32_t* row(const Picture& picture, int y, int ofDensity) const {
        return pixels + static_cast<size_t>(y * density / ofDensity) * picture.width * density;
    }
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

class Surface;

/// Part of a surface, from a point on it in pixels.
struct SurfacePart {
    const Surface& surface;
    int left = 0;
    int top = 0;
};

/// A block of pixels with a lasting background picture and a pen for text. Nothing on it is seen but through a form.
/// For each of its pixels it holds `density()` times as many real ones across and down.
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
    void clear();                                              ///< Removes all drawing and leaves the background.
    const Picture& background() const { return background_; }  ///< Of no size while there is none.

    Font font;                                     ///< Stays set from one text to the next.
    Color foreColor = 0;                           ///< Colour of text.
    int currentX = 0;                              ///< Left edge of the next text.
    int currentY = 0;                              ///< Top edge of the next text.
    void print(const std::string& text);           ///< Prints at the current place in the current font.
    int textWidth(const std::string& text) const;  ///< Width in pixels in the current font.

    Color point(int x, int y) const;  ///< Colour of a pixel; 0 outside and where pixels are left out.
    /// The real pixels of a row of them, from the left; only with pixels. Both count them `density()` times.
    const uint32_t* row(int y) const {
        if (density_ != density()) adapt();
        return (borrows_ ? ground_ : pixels_.data()) + static_cast<size_t>(y) * width_ * density_;
    }
    uint32_t* canvas();  ///< All real pixels, to be drawn on until the next call for it.
    bool hasPixels() const { return borrows_ || !pixels_.empty(); }  ///< Not when it is empty or keeps none.
    const Changes& changes() const { return changes_; }              ///< Which of its pixels have got another colour.

    /// The texts on it, in the order of printing, where the back end writes them down here instead of drawing them;
    /// always empty where it draws. They go with the drawing, and a copy of the surface has them too.
    std::vector<PrintedText> texts;

    /// While false, surfaces that are made or sized have no pixels, and nothing of what is drawn on them is kept but
    /// the texts: for play that nobody watches, where the back end writes texts down.
    static inline bool keepsPixels = true;

  private:
    /// Tells this surface from every other one, also from its copies.
    struct Identity {
        Identity() = default;
        Identity(const Identity& /*other*/) {}
        Identity& operator=(const Identity& /*other*/) {
            serial = ++last;
            return *this;
        }

        uint64_t serial = ++last;
        static inline uint64_t last = 0;
    };

    /// Another surface of which this one is a copy but for what has changed on either since.
    struct Original {
        uint64_t serial = 0;  ///< 0 for none.
        Changes::Moment itsMoment = 0;
        Changes::Moment ownMoment = 0;
    };

    template <class PaintRow>
    void paintRows(const Place& place, PaintRow paintRow);
    template <class CombineRow>
    void transfer(const Place& place, const SurfacePart& part, CombineRow combineRow);
    void copyWhole(const Surface& source);
    void adapt() const;
    void layBackground() const;
    void ownPixels() const;
    size_t realPixels() const { return static_cast<size_t>(width_) * height_ * density_ * density_; }

    friend void BitBlt(Surface& destination, int x, int y, int width, int height, const Surface& source, int sourceX,
                       int sourceY, uint32_t operation);
    friend void paintMasked(Surface& destination, const Place& place, const SurfacePart& mask,
                            const SurfacePart& picture);

    int width_ = 0;
    int height_ = 0;
    Picture background_;
    // What another density changes, also on a surface that is only read.
    mutable int density_ = density();
    mutable bool borrows_ = false;              ///< The pixels are the background's, as long as nothing is drawn.
    mutable const uint32_t* ground_ = nullptr;  ///< Those, while they are borrowed.
    mutable std::vector<uint32_t> pixels_;      ///< 0xFFRRGGBB in rows from the top.
    mutable Changes changes_;
    Identity identity_;
    Original original_;
};

/// The raster operations.
constexpr uint32_t SRCCOPY = 0xCC0020;   ///< The source.
constexpr uint32_t SRCAND = 0x8800C6;    ///< Destination and source, bit by bit.
constexpr uint32_t SRCPAINT = 0xEE0086;  ///< Destination or source, bit by bit.

/// Transfers a rectangle of the source at (sourceX, sourceY) to (x, y), cut to what lies on both surfaces. Any other
/// operation than the three does nothing. With SRCCOPY a text that was written down instead of drawn goes where the
/// pixel goes at which it begins, and one that begins at a pixel that is overwritten is gone. Where a whole surface was
/// copied to (0, 0) before, the next such copy moves only what has changed on either since.
void BitBlt(Surface& destination, int x, int y, int width, int height, const Surface& source, int sourceX, int sourceY,
            uint32_t operation);

/// Transfers the mask with SRCAND and then the picture with SRCPAINT to one rectangle, cut to what lies on all three. A
/// picture that stands there already is no change.
void paintMasked(Surface& destination, const Place& place, const SurfacePart& mask, const SurfacePart& picture);

}  // namespace platform
