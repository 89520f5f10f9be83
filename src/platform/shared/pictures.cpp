#include "platform/pictures.h"

#include <algorithm>
#include <string>

#include "platform/base/runtime.h"
#include "platform/shared/storedPictures.h"

namespace platform {

const Picture& pictureByName(std::string_view name) {
    const auto stored = storedPictures();
    const auto found = std::find_if(stored.begin(), stored.end(), [&](const auto& row) { return row.name == name; });
    if (found == stored.end()) failure::fileNotFound("picture " + std::string(name));
    return found->picture;
}

}  // namespace platform
