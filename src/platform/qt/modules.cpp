#include "platform/qt/modules.h"

#include <dlfcn.h>

#include <filesystem>
#include <system_error>

namespace platform::qt {

// The folder is asked of the system, since Qt's own answer isn't for every thread.
void* moduleEntry(const char* module, const char* entry) {
    std::error_code failure;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", failure);
    if (failure) return nullptr;
    void* const library = dlopen((program.parent_path() / module).c_str(), RTLD_NOW | RTLD_LOCAL);
    return library != nullptr ? dlsym(library, entry) : nullptr;
}

}  // namespace platform::qt
