#include "platform/pictures.h"

#include <algorithm>

#include "platform/base/runtime.h"

namespace platform {

const Picture& pictureByName(std::string_view name) {
    const auto stored = storedPictures();
    const auto found = std::ranges::find(stored, name, &StoredPicture::name);
    if (found == stored.end()) failure::ofFile(ENOENT, "picture " + std::string(name));
    return found->picture;
}

}  // namespace platform
