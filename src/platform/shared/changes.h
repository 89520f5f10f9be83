#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace platform {

/// A rectangle by its top left corner and its size, in pixels.
struct Place {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    bool contains(int x, int y) const { return x >= left && x < left + width && y >= top && y < top + height; }
};

/// What was drawn on a surface lately, as rectangles in the order of drawing. It remembers the last few of them; a
/// query that goes further back gets the whole surface.
class Changes {
  public:
    /// A moment between two changes.
    using Moment = uint64_t;

    Moment now() const { return now_; }  ///< After the last change.

    void add(const Place& place) { places_[now_++ % remembered] = place; }
    /// Everything may have changed.
    void addAll() { complete_ = ++now_; }

    /// Whether it still knows each single change since that moment.
    bool knowsSince(Moment moment) const { return moment >= complete_ && moment + remembered >= now_; }
    /// The change that came right after that moment, which must be known and not the present one.
    const Place& after(Moment moment) const { return places_[moment % remembered]; }

  private:
    static constexpr Moment remembered = 64;

    std::array<Place, remembered> places_{};
    Moment now_ = 0;
    Moment complete_ = 0;  // everything may have changed up to here
};

/// Adds each rectangle that has changed since a moment to the list, or the whole if that is longer ago than is known.
void collectChanges(const Changes& changes, Changes::Moment since, const Place& whole, std::vector<Place>& list);

}  // namespace platform
