#pragma once

#include <cerrno>
#include <string>

#include "platform/base/runtime.h"

namespace failure {

/// The failure that tells of a file what the system's error number says.
[[noreturn]] inline void ofFile(int error, const std::string& path) {
    switch (error) {
        case ENOENT:
            fileNotFound(path);
        case EIO:
            deviceFault(path);
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            diskFull(path);
        case EMFILE:
        case ENFILE:
            tooManyFiles(path);
        case EACCES:
        case EPERM:
        case EROFS:
        case EAGAIN:  // Somebody else has locked it.
            permissionDenied(path);
        default:
            pathFileAccess(path);
    }
}

}  // namespace failure
