#pragma once

#include <algorithm>
#include <vector>

namespace platform {

/// Moves an entry of the list to that position, from 0, or to the nearest one that there is; the others keep their
/// order.
template <class Entry>
void moveTo(std::vector<Entry>& list, const Entry& entry, int position) {
    const Entry moved = entry;
    std::erase(list, moved);
    list.insert(list.begin() + std::clamp(position, 0, static_cast<int>(list.size())), moved);
}

/// The position of an entry in the list, from 0; the list's size if it isn't there.
template <class Entry>
int positionOf(const std::vector<Entry>& list, const Entry& entry) {
    return static_cast<int>(std::find(list.begin(), list.end(), entry) - list.begin());
}

}  // namespace platform
