#include "platform/qt/window/modules.h"

#include <dlfcn.h>

#include "platform/desktop.h"

namespace platform::qt {

void* moduleEntry(const char* module, const char* entry) {
    void* const library = dlopen(programFile(module).c_str(), RTLD_NOW | RTLD_LOCAL);
    return library != nullptr ? dlsym(library, entry) : nullptr;
}

}  // namespace platform::qt
