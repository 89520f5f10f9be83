#include "platform/surface.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "platform/pictures.h"
#include "platform/shared/text.h"

namespace platform {
namespace {

constexpr Color black = 0;

int realPixelsForOne = 1;

/// `pixelOf` swaps red and blue; doing it twice restores them.
Color colorOf(uint32_t pixel) { return pixelOf(pixel) & 0xFFFFFF; }

/// What two rectangles have in common; of no size or less if that is nothing.
Place common(const Place& one, const Place& other) {
    const int left = std::max(one.left, other.left), top = std::max(one.top, other.top);
    return {left, top, std::min(one.left + one.width, other.left + other.width) - left,
            std::min(one.top + one.height, other.top + other.height) - top};
}

/// Where a surface lies that covers a place with the part of it.
Place groundOf(const Place& place, const SurfacePart& part) {
    return {place.left - part.left, place.top - part.top, part.surface.width(), part.surface.height()};
}

/// The real pixels from one of them on that the part of a surface has for a place.
const uint32_t* pixelsAt(int x, int y, const Place& place, const SurfacePart& part) {
    const Place ground = groundOf(place, part);
    return part.surface.row(y - ground.top * density()) + x - ground.left * density();
}

/// Works out each pixel of a row anew, by its number from 0; true if one has got another colour.
template <class Result>
bool workOutRow(uint32_t* to, int count, Result resultAt) {
    uint32_t difference = 0;
    for (int i = 0; i < count; ++i) {
        const uint32_t result = resultAt(i);
        difference |= result ^ to[i];
        to[i] = result;
    }
    return difference != 0;
}

bool andRow(uint32_t* to, const uint32_t* from, int count) {
    return workOutRow(to, count, [=](int i) { return to[i] & from[i]; });
}

bool orRow(uint32_t* to, const uint32_t* from, int count) {
    return workOutRow(to, count, [=](int i) { return to[i] | from[i]; });
}

bool copyRow(uint32_t* to, const uint32_t* from, int count) {
    const size_t bytes = sizeof(uint32_t) * static_cast<size_t>(count);
    if (std::memcmp(to, from, bytes) == 0) return false;
    std::memmove(to, from, bytes);
    return true;
}

/// Replaces the texts in a rectangle of a surface by those in the part of another.
void copyTexts(Surface& destination, const Place& place, const SurfacePart& part) {
    const Place ground = groundOf(place, part);
    const Place to = common(common(place, ground), {0, 0, destination.width(), destination.height()});
    const Place from{to.left - ground.left, to.top - ground.top, to.width, to.height};
    std::vector<PrintedText> copies;
    for (const PrintedText& text : part.surface.texts)
        if (from.contains(text.left, text.top)) copies.push_back(text);
    std::erase_if(destination.texts, [&](const PrintedText& text) { return to.contains(text.left, text.top); });
    for (PrintedText& copy : copies) {
        copy.left += ground.left;
        copy.top += ground.top;
        destination.texts.push_back(std::move(copy));
    }
}

}  // namespace

void Changes::collect(Moment since, const Place& whole, std::vector<Place>& list) const {
    if (since < complete_ || since + remembered < now_) return list.push_back(whole);
    for (Moment moment = since; moment != now_; ++moment) list.push_back(places_[moment % remembered]);
}

int density() { return realPixelsForOne; }
void setDensity(int pixels) { realPixelsForOne = std::clamp(pixels, 1, highestDensity); }

Surface::Surface(int width, int height) { resize(width, height); }

Surface::Surface(const Picture& picture) { setPicture(picture); }

void Surface::setPicture(const Picture& picture) {
    background_ = picture;
    resize(picture.width, picture.height);
}

void Surface::resize(int width, int height) {
    width_ = std::max(0, width);
    height_ = std::max(0, height);
    density_ = density();
    borrows_ = false;
    pixels_.clear();
    texts.clear();
    if (keepsPixels && width_ > 0 && height_ > 0) layBackground();
}

void Surface::clear() {
    texts.clear();
    density_ = density();
    if (hasPixels()) layBackground();
}

// Memory costs most when it is touched for the first time, so each pixel is written once, and a surface that only shows
// its picture has no pixels of its own.
void Surface::layBackground() const {
    changes_.addAll();
    const DensePixels dense = densePixels(background_, density_);
    borrows_ = width_ == background_.width && height_ == background_.height && dense.density == density_;
    ground_ = dense.pixels;
    if (borrows_) return;
    pixels_.assign(realPixels(), pixelOf(black));
    const int columns = std::min(width_, background_.width) * density_;
    const int rows = std::min(height_, background_.height) * density_;
    for (int y = 0; y < rows; ++y) {
        const uint32_t* const from = dense.row(background_, y, density_);
        uint32_t* const to = pixels_.data() + static_cast<size_t>(y) * width_ * density_;
        if (dense.density == density_) std::copy_n(from, columns, to);
        for (int x = 0; dense.density != density_ && x < columns; ++x) to[x] = from[x * dense.density / density_];
    }
}

void Surface::ownPixels() const {
    if (!borrows_) return;
    pixels_.assign(ground_, ground_ + realPixels());
    borrows_ = false;
}

/// Takes the density of the program: the background anew, and what was drawn on it enlarged.
void Surface::adapt() const {
    const int before = std::exchange(density_, density());
    if (!hasPixels()) return;
    const bool isDrawnOn = !borrows_;
    const std::vector<uint32_t> drawn = std::exchange(pixels_, {});
    layBackground();
    if (!isDrawnOn) return;
    ownPixels();
    const DensePixels ground = densePixels(background_, before);
    for (int y = 0; y < height_ * density_; ++y)
        for (int x = 0; x < width_ * density_; ++x) {
            const int oldX = x * before / density_, oldY = y * before / density_;
            const uint32_t pixel = drawn[static_cast<size_t>(oldY) * width_ * before + oldX];
            const bool onGround = oldX < background_.width * before && oldY < background_.height * before;
            const uint32_t under =
                onGround ? ground.row(background_, oldY, before)[oldX * ground.density / before] : pixelOf(black);
            if (pixel != under) pixels_[static_cast<size_t>(y) * width_ * density_ + x] = pixel;
        }
}

void Surface::print(const std::string& text) {
    if (hasPixels() || !keepsPixels) drawText(*this, currentX, currentY, text, font, foreColor);
}

int Surface::textWidth(const std::string& text) const { return measureText(text, font); }

Color Surface::point(int x, int y) const {
    if (x < 0 || y < 0 || x >= width_ || y >= height_ || !hasPixels()) return 0;
    return colorOf(row(y * density())[x * density()]);
}

uint32_t* Surface::canvas() {
    if (density_ != density()) adapt();
    ownPixels();
    changes_.addAll();
    return pixels_.data();
}

/// Paints the rows of real pixels of a rectangle, as far as it lies on the surface, each from one on, and remembers the
/// rectangle if a pixel has changed.
template <class PaintRow>
void Surface::paintRows(const Place& place, PaintRow paintRow) {
    const Place cut = common(place, {0, 0, width_, height_});
    if (cut.width <= 0 || cut.height <= 0) return;
    if (density_ != density()) adapt();
    ownPixels();
    bool changed = false;
    const int left = cut.left * density_;
    for (int y = cut.top * density_; y < (cut.top + cut.height) * density_; ++y) {
        uint32_t* const to = pixels_.data() + static_cast<size_t>(y) * width_ * density_ + left;
        changed |= paintRow(to, left, y, cut.width * density_);
    }
    if (changed) changes_.add(cut);
}

template <class CombineRow>
void Surface::transfer(const Place& place, const SurfacePart& part, CombineRow combineRow) {
    paintRows(common(place, groundOf(place, part)), [&](uint32_t* to, int x, int y, int count) {
        return combineRow(to, pixelsAt(x, y, place, part), count);
    });
}

void Surface::copyWhole(const Surface& source) {
    const Place whole{0, 0, std::min(width_, source.width_), std::min(height_, source.height_)};
    std::vector<Place> changed;
    if (original_.serial == source.identity_.serial) {
        source.changes_.collect(original_.itsMoment, whole, changed);
        changes_.collect(original_.ownMoment, whole, changed);
    } else {
        changed.push_back(whole);
    }
    for (const Place& place : changed) transfer(place, {source, place.left, place.top}, copyRow);
    original_ = {source.identity_.serial, source.changes_.now(), changes_.now()};
}

void BitBlt(Surface& destination, int x, int y, int width, int height, const Surface& source, int sourceX, int sourceY,
            uint32_t operation) {
    if (!destination.hasPixels() || !source.hasPixels()) return;
    const Place place{x, y, width, height};
    const SurfacePart part{source, sourceX, sourceY};
    switch (operation) {
        case SRCCOPY: {
            if (!(destination.texts.empty() && source.texts.empty())) copyTexts(destination, place, part);
            const bool whole = x == 0 && y == 0 && sourceX == 0 && sourceY == 0 && width == source.width() &&
                               height == source.height();
            return whole ? destination.copyWhole(source) : destination.transfer(place, part, copyRow);
        }
        case SRCAND:
            return destination.transfer(place, part, andRow);
        case SRCPAINT:
            return destination.transfer(place, part, orRow);
        default:
            return;
    }
}

void paintMasked(Surface& destination, const Place& place, const SurfacePart& mask, const SurfacePart& picture) {
    if (!destination.hasPixels() || !mask.surface.hasPixels() || !picture.surface.hasPixels()) return;
    const Place cut = common(common(place, groundOf(place, mask)), groundOf(place, picture));
    destination.paintRows(cut, [&](uint32_t* to, int x, int y, int count) {
        const uint32_t *kept = pixelsAt(x, y, place, mask), *added = pixelsAt(x, y, place, picture);
        return workOutRow(to, count, [=](int i) { return (to[i] & kept[i]) | added[i]; });
    });
}

}  // namespace platform
