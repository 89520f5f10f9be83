#include "platform/base/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/base/runtime.h"

namespace platform {
namespace {

/// Opens an ordinary file. What isn't one, a pipe for example, is not even tried, since it could keep the game waiting.
int openForBoth(const std::string& path) {
    std::error_code unreadable;
    const auto status = std::filesystem::status(path, unreadable);
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) failure::ofFile(0, path);
    constexpr int flags = O_RDWR | O_CLOEXEC | O_NONBLOCK;
    int handle = TEMP_FAILURE_RETRY(::open(path.c_str(), flags));
    if (handle >= 0) return handle;
    if (errno != ENOENT) failure::ofFile(errno, path);
    // Made only where nothing is: a link to nothing is left alone.
    constexpr mode_t rights = 0666;
    handle = TEMP_FAILURE_RETRY(::open(path.c_str(), flags | O_CREAT | O_EXCL, rights));
    if (handle < 0) failure::ofFile(errno == EEXIST ? ENOENT : errno, path);
    return handle;
}

/// Writes from the beginning; how many bytes the system has taken. If it wasn't all, errno says why.
size_t put(int handle, const std::string& bytes) {
    size_t taken = 0;
    while (taken < bytes.size()) {
        const auto at = static_cast<off_t>(taken);
        const ssize_t got = TEMP_FAILURE_RETRY(::pwrite(handle, bytes.data() + taken, bytes.size() - taken, at));
        if (got == 0) errno = ENOSPC;
        if (got <= 0) break;
        taken += static_cast<size_t>(got);
    }
    return taken;
}

/// Closes the file as far as the disk can tell, and is 0 if it has taken all. A disk behind a network or a quota may
/// refuse only then what was written; the handle itself stays open, so that it can still be put back.
int closeCopy(int handle) {
    const int copy = ::dup(handle);
    return copy < 0 ? copy : ::close(copy);
}

/// Puts back what a write that failed has overwritten, and takes off what it has added; true if that went well. It is
/// tried again, since half a write is worse than a disk that is busy for a moment.
bool putBack(int handle, const std::string& before, size_t written, size_t wanted) {
    constexpr int tries = 3;
    const std::string overwritten = before.substr(0, written);
    const auto length = static_cast<off_t>(before.size());
    for (int i = 0; i < tries; ++i)
        if (put(handle, overwritten) == overwritten.size() &&
            (before.size() == wanted || TEMP_FAILURE_RETRY(::ftruncate(handle, length)) == 0))
            return true;
    return false;
}

}  // namespace

File::File(const std::string& path) : path_(path), handle_(openForBoth(path)) {}
File::~File() { ::close(handle_); }

std::string File::read(size_t count, size_t from) const {
    std::string bytes(count, '\0');
    size_t have = 0;
    while (have < count) {
        const auto at = static_cast<off_t>(from + have);
        const ssize_t got = TEMP_FAILURE_RETRY(::pread(handle_, bytes.data() + have, count - have, at));
        if (got < 0) failure::ofFile(errno, path_);
        if (got == 0) break;
        have += static_cast<size_t>(got);
    }
    if (have < count) checkEnd(from + have);
    bytes.resize(have);
    return bytes;
}

/// Fails if the file is longer than that: what a disk doesn't give any more must not pass for the end of the file.
void File::checkEnd(size_t length) const {
    struct stat state {};
    if (TEMP_FAILURE_RETRY(::fstat(handle_, &state)) != 0) failure::ofFile(errno, path_);
    if (static_cast<size_t>(state.st_size) > length) failure::ofFile(EIO, path_);
}

void File::write(const std::string& bytes) {
    const std::string before = read(bytes.size());
    const size_t written = put(handle_, bytes);
    if (written == bytes.size() && TEMP_FAILURE_RETRY(closeCopy(handle_)) == 0) return;
    const int error = errno;
    if (written > 0 && !putBack(handle_, before, written, bytes.size())) failure::ofFile(EIO, path_);
    failure::ofFile(error, path_);
}

}  // namespace platform
