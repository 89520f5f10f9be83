#pragma once

#include <span>
#include <string_view>

#include "platform/surface.h"

namespace platform {

struct StoredPicture {
    std::string_view name;
    Picture picture;
};

/// All pictures that the program carries. The table is written by the build from the files under assets/.
std::span<const StoredPicture> storedPictures();

/// The picture that the program carries under that name; fails with number 53 if there is none.
const Picture& pictureByName(std::string_view name);

}  // namespace platform
