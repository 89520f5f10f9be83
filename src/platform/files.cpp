#include "platform/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "platform/fileFailure.h"
#include "platform/runtime.h"

namespace platform {
namespace {

/// Opens an ordinary file. What isn't one, a pipe for example, is not even tried, since it could keep the game waiting.
int openForBoth(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode)) failure::pathFileAccess(path);
    constexpr int flags = O_RDWR | O_CLOEXEC | O_NONBLOCK;
    int handle = ::open(path.c_str(), flags);
    if (handle >= 0) return handle;
    if (errno != ENOENT) failure::ofFile(errno, path);
    // Made only where nothing is: a link to nothing is left alone.
    constexpr mode_t rights = 0666;
    handle = ::open(path.c_str(), flags | O_CREAT | O_EXCL, rights);
    if (handle < 0) failure::ofFile(errno == EEXIST ? ENOENT : errno, path);
    return handle;
}

}  // namespace

bool isThere(const std::string& path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0 || (errno != ENOENT && errno != ENOTDIR);
}
bool isOrdinaryFile(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}


File::File(const std::string& path) : path_(path), handle_(openForBoth(path)) {}
File::~File() { ::close(handle_); }

std::string File::read(size_t count) const {
    std::string bytes(count, '\0');
    size_t have = 0;
    while (have < count) {
        const ssize_t got = ::pread(handle_, bytes.data() + have, count - have, static_cast<off_t>(have));
        if (got < 0) failure::ofFile(errno, path_);
        if (got == 0) break;
        have += static_cast<size_t>(got);
    }
    bytes.resize(have);
    return bytes;
}

void File::write(const std::string& bytes) {
    const std::string before = read(bytes.size());
    const ssize_t written = ::pwrite(handle_, bytes.data(), bytes.size(), 0);
    if (written == static_cast<ssize_t>(bytes.size())) return;
    const int error = written < 0 ? errno : ENOSPC;
    if (written > 0 && !putBack(before, static_cast<size_t>(written), bytes.size())) failure::deviceFault(path_);
    failure::ofFile(error, path_);
}

/// Puts back what a write that was cut off has overwritten, and takes off what it has added; true if that went well.
bool File::putBack(const std::string& before, size_t written, size_t wanted) {
    const size_t overwritten = std::min(written, before.size());
    if (::pwrite(handle_, before.data(), overwritten, 0) != static_cast<ssize_t>(overwritten)) return false;
    return before.size() == wanted || ::ftruncate(handle_, static_cast<off_t>(before.size())) == 0;
}

}  // namespace platform
