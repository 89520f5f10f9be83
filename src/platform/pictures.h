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

/// The picture that the program carries under that name; fails with number 53 if there is none.
inline const Picture& pictureByName(std::string_view name) {
    for (const StoredPicture& stored : storedPictures())
        if (stored.name == name) return stored.picture;
    failure::ofFile(ENOENT, "picture " + std::string(name));
}

}  // namespace platform
