#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <functional>
#include <optional>

#include "platform/desktop.h"
#include "platform/pictures.h"

namespace platform {
namespace {

/// What a file holds, for the rest of the run; null if it can't be had or hasn't that size in bytes.
const void* mapped(const std::string& path, size_t size) {
    const int handle = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);  // It waits for no pipe.
    if (handle < 0) return nullptr;
    struct stat status {};
    void* data = MAP_FAILED;
    if (::fstat(handle, &status) == 0 && S_ISREG(status.st_mode) && static_cast<size_t>(status.st_size) == size)
        data = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, handle, 0);
    ::close(handle);
    return data != MAP_FAILED ? data : nullptr;
}

/// The stored pixels of that density, in the order of those of density 1; null if they can't be had.
const uint32_t* setOf(int density) {
    const std::span<const uint32_t> plain = storedPixels();
    if (density == 1) return plain.data();
    static std::array<std::optional<const uint32_t*>, highestDensity + 1> sets;
    std::optional<const uint32_t*>& set = sets.at(static_cast<size_t>(density));
    const auto perPixel = static_cast<size_t>(density) * static_cast<size_t>(density);
    const std::string path = programFile("pictures-x" + std::to_string(density) + ".bin");
    if (!set) set = static_cast<const uint32_t*>(mapped(path, plain.size_bytes() * perPixel));
    return *set;
}

}  // namespace

DensePixels densePixels(const Picture& picture, int density) {
    const std::span<const uint32_t> stored = storedPixels();
    const bool isStored = std::less_equal<>()(stored.data(), picture.pixels) &&
                          std::less<>()(picture.pixels, stored.data() + stored.size());
    if (!isStored) return {picture.pixels, 1};
    while (setOf(density) == nullptr) --density;
    return {setOf(density) + (picture.pixels - stored.data()) * density * density, density};
}

}  // namespace platform
