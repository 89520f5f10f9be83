#include "platform/surface.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "platform/text.h"

namespace platform {
namespace {

constexpr Color black = 0;

/// Red and blue change places on the way back as they did on the way there.
Color colorOf(uint32_t pixel) { return pixelOf(pixel) & 0xFFFFFF; }

/// The part of [start, start + length) that lies on both axes, as an offset and a length; the length may be negative.
struct Span {
    int offset;
    int length;
};

Span common(int start, int sourceStart, int length, int size, int sourceSize) {
    const int offset = std::max({0, -start, -sourceStart});
    return {offset, std::min({length, size - start, sourceSize - sourceStart}) - offset};
}

template <class Operation>
void combine(uint32_t* to, const uint32_t* from, int count, Operation operation) {
    for (int i = 0; i < count; ++i) to[i] = operation(to[i], from[i]);
}

bool beginsInside(const PrintedText& text, const Place& place) {
    return text.left >= place.left && text.left < place.left + place.width && text.top >= place.top &&
           text.top < place.top + place.height;
}

/// Replaces the texts in a rectangle of one surface by those in a rectangle of as many pixels of another.
void copyTexts(Surface& destination, const Place& to, const Surface& source, const Place& from) {
    std::vector<PrintedText> copies;
    for (const PrintedText& text : source.texts)
        if (beginsInside(text, from)) copies.push_back(text);
    std::erase_if(destination.texts, [&](const PrintedText& text) { return beginsInside(text, to); });
    for (PrintedText& copy : copies) {
        copy.left += to.left - from.left;
        copy.top += to.top - from.top;
        destination.texts.push_back(std::move(copy));
    }
}

}  // namespace

Surface::Surface(int width, int height) { resize(width, height); }

Surface::Surface(const Picture& picture) { setPicture(picture); }

void Surface::setPicture(const Picture& picture) {
    background_ = picture;
    resize(picture.width, picture.height);
}

void Surface::resize(int width, int height) {
    width_ = std::max(0, width);
    height_ = std::max(0, height);
    pixels_.clear();
    if (keepsPixels) pixels_.resize(static_cast<size_t>(width_) * height_);
    clear();
}

void Surface::clear() {
    texts.clear();
    if (!hasPixels()) return;
    const int columns = std::min(width_, background_.width);
    const int rows = std::min(height_, background_.height);
    for (int y = 0; y < height_; ++y) {
        const int covered = y < rows ? columns : 0;
        if (covered > 0)
            std::memcpy(row(y), background_.pixels + static_cast<size_t>(y) * background_.width,
                        sizeof(uint32_t) * static_cast<size_t>(covered));
        std::fill(row(y) + covered, row(y) + width_, pixelOf(black));
    }
}

void Surface::print(const std::string& text) {
    if (hasPixels()) drawText(*this, currentX, currentY, text, font, foreColor);
}

int Surface::textWidth(const std::string& text) const { return measureText(text, font); }

Color Surface::point(int x, int y) const {
    if (x < 0 || y < 0 || x >= width_ || y >= height_ || !hasPixels()) return 0;
    return colorOf(row(y)[x]);
}

void BitBlt(Surface& destination, int x, int y, int width, int height, const Surface& source, int sourceX, int sourceY,
            uint32_t operation) {
    if (!destination.hasPixels() || !source.hasPixels()) return;
    const Span across = common(x, sourceX, width, destination.width(), source.width());
    const Span down = common(y, sourceY, height, destination.height(), source.height());
    if (across.length <= 0) return;
    if (operation == SRCCOPY && !(destination.texts.empty() && source.texts.empty()))
        copyTexts(destination, {x + across.offset, y + down.offset, across.length, down.length}, source,
                  {sourceX + across.offset, sourceY + down.offset, across.length, down.length});
    for (int line = down.offset; line < down.offset + down.length; ++line) {
        uint32_t* to = destination.row(y + line) + x + across.offset;
        const uint32_t* from = source.row(sourceY + line) + sourceX + across.offset;
        switch (operation) {
            case SRCCOPY:
                std::memmove(to, from, sizeof(uint32_t) * static_cast<size_t>(across.length));
                break;
            case SRCAND:
                combine(to, from, across.length, [](uint32_t a, uint32_t b) { return a & b; });
                break;
            case SRCPAINT:
                combine(to, from, across.length, [](uint32_t a, uint32_t b) { return a | b; });
                break;
            default:
                return;
        }
    }
}

}  // namespace platform
