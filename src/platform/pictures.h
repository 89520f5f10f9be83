#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/base/runtime.h"
#include "platform/surface.h"

namespace platform {

struct StoredPicture {
    std::string_view name;
    Picture picture;
};

/// All pictures that the program carries. The table is written by the build from the files under assets/.
std::span<const StoredPicture> storedPictures();

/// All pixels of the table, from those of its first picture, and how many there are.
std::span<const uint32_t> storedPixels();

/// The real pixels of a picture at that density or, where it isn't painted at that, at the nearest lower one. Pictures
/// of a higher density than 1 lie in a file beside the program, which is read where it is looked at; one that isn't
/// there, or has another size than it should, counts as none.
DensePixels densePixels(const Picture& picture, int density);

/// The picture that the program carries under that name; fails with number 53 if there is none.
inline const Picture& pictureByName(std::string_view name) {
    for (const StoredPicture& stored : storedPictures())
        if (stored.name == name) return stored.picture;
    failure::ofFile(ENOENT, "picture " + std::string(name));
}

}  // namespace platform
