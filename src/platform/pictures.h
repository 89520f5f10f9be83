#pragma once

#include <string_view>

#include "platform/surface.h"

namespace platform {

/// The picture that the program carries under that name; fails with number 53 if there is none.
const Picture& pictureByName(std::string_view name);

}  // namespace platform
