#pragma once

#include <dlfcn.h>

#include "platform/desktop.h"

namespace platform::qt {

/// The entry point of a module, a shared library that lies in the program's folder under the file name given; it is
/// loaded at the first call and stays. Null if the file or the entry point isn't there or can't be loaded. Any thread
/// may call it; the first call may take a tenth of a second.
inline void* moduleEntry(const char* module, const char* entry) {
    void* const library = dlopen(programFile(module).c_str(), RTLD_NOW | RTLD_LOCAL);
    return library != nullptr ? dlsym(library, entry) : nullptr;
}

}  // namespace platform::qt
