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

}  // namespace platform
