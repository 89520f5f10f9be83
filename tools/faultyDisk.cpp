#include "tools/faultyDisk.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <set>

namespace faultyDisk {
namespace {

constexpr int errors[] = {EACCES, EBADF,  EDQUOT, EFBIG,  EINVAL, EIO,   EISDIR, EMFILE,
                          ENFILE, ENOENT, ENOMEM, ENOSPC, EPERM,  EROFS, ESTALE};
constexpr int interruptions = 3;

struct Disk {
    std::string path;
    std::vector<Fault> faults;
    std::vector<Call> calls;
    std::set<int> handles;
};

bool isWatched = false;

Disk& disk() {
    static Disk& theDisk = *new Disk;  // Files are still closed at the very end.
    return theDisk;
}

/// Whether the fault befalls the call that was made last; the first one is meant by its number, others by their name.
bool befalls(const Fault& fault) {
    const size_t number = disk().calls.size();
    if (number <= fault.call) return number == fault.call;
    return fault.times > 0 && fault.error != 0 &&
           (fault.ofAnyName || disk().calls[fault.call - 1].name == disk().calls.back().name);
}

void endProcess() { ::kill(::getpid(), SIGKILL); }

bool isOfFile(const char* path) { return isWatched && path == disk().path; }
bool isOfFile(int handle) { return isWatched && disk().handles.contains(handle); }

/// Makes a call on a path or a handle by `real`, which gets the number of bytes; on the file what a fault makes of it.
template <class File, class Real>
long made(const char* name, File file, size_t bytes, Real real) {
    if (!isOfFile(file)) return real(bytes);
    disk().calls.push_back({name, bytes});
    const auto found = std::ranges::find_if(disk().faults, befalls);
    if (found == disk().faults.end()) return real(bytes);
    const bool isFirst = disk().calls.size() == found->call;
    if (found->isKilled && !found->isCut) endProcess();
    if (found->isCut && isFirst) {
        const long result = real(std::min(bytes, found->bytes));
        if (found->isKilled) endProcess();
        return result;
    }
    --found->times;
    errno = found->error;
    return found->error == nothing ? 0 : -1;
}

/// The same of a call that is about no bytes.
template <class File, class Real>
int made(const char* name, File file, Real real) {
    return static_cast<int>(made(name, file, 0, [&](size_t) { return long{real()}; }));
}

int kept(int handle) {
    if (handle >= 0) disk().handles.insert(handle);
    return handle;
}

}  // namespace

std::vector<Fault> faultsOf(const Call& call, size_t number) {
    std::vector<Fault> faults = {{"is interrupted", number, EINTR, interruptions},
                                 {"fails, and all calls behind it", number, EIO, forGood, true},
                                 {"finds the program killed", number, 0, 1, false, false, 0, true}};
    for (const int error : errors) {
        if (error == ENOENT && call.name.ends_with("stat")) continue;  // It would be true.
        faults.push_back({"fails once", number, error});
        faults.push_back({"fails for good", number, error, forGood});
    }
    std::set<size_t> lengths = {0, 1, call.bytes / 2, call.bytes - 1};
    if (call.bytes == 0) lengths.clear();
    for (const size_t length : lengths) {
        faults.push_back({"is cut, and goes on", number, 0, 1, false, true, length});
        faults.push_back({"is cut, and fails once", number, EIO, 1, false, true, length});
        faults.push_back({"is cut, and fails for good", number, EIO, forGood, false, true, length});
        faults.push_back({"is cut, and gets no more", number, nothing, forGood, false, true, length});
        if (!call.name.ends_with("read"))  // The call behind it finds that, too.
            faults.push_back({"is cut, and finds the program killed", number, 0, 1, false, true, length, true});
    }
    return faults;
}

void begin(const std::string& path, const std::vector<Fault>& faults) {
    disk() = {path, faults, {}, {}};
    isWatched = true;
}

std::vector<Call> end() {
    isWatched = false;
    return disk().calls;
}

size_t openHandles() { return disk().handles.size(); }

}  // namespace faultyDisk

// These stand before the system's own.

using namespace faultyDisk;

int openInstead(const char* path, int flags, mode_t mode) asm("open");
int openInstead(const char* path, int flags, mode_t mode) {
    const auto real = [&] { return ::syscall(SYS_openat, AT_FDCWD, path, flags, mode); };
    const int handle = made("open", path, real);
    return isOfFile(path) ? kept(handle) : handle;
}

int stat(const char* path, struct stat* state) noexcept {
    return made("stat", path, [&] { return ::fstatat(AT_FDCWD, path, state, 0); });
}

int lstat(const char* path, struct stat* state) noexcept {
    return made("lstat", path, [&] { return ::fstatat(AT_FDCWD, path, state, AT_SYMLINK_NOFOLLOW); });
}

int fstat(int handle, struct stat* state) noexcept {
    return made("fstat", handle, [&] { return ::fstatat(handle, "", state, AT_EMPTY_PATH); });
}

int dup(int handle) noexcept {
    const int copy = made("dup", handle, [&] { return ::syscall(SYS_dup, handle); });
    return isOfFile(handle) ? kept(copy) : copy;
}

int ftruncate(int handle, off_t length) noexcept {
    return made("ftruncate", handle, [&] { return ::syscall(SYS_ftruncate, handle, length); });
}

int fsync(int handle) {
    return made("fsync", handle, [&] { return ::syscall(SYS_fsync, handle); });
}

// What fails is closed all the same.
int close(int handle) {
    const auto result = static_cast<int>(::syscall(SYS_close, handle));
    const int told = made("close", handle, [&] { return result; });
    if (isWatched) disk().handles.erase(handle);
    return told;
}

ssize_t read(int handle, void* bytes, size_t count) {
    return made("read", handle, count, [&](size_t most) { return ::syscall(SYS_read, handle, bytes, most); });
}

ssize_t pread(int handle, void* bytes, size_t count, off_t from) {
    return made("pread", handle, count, [&](size_t most) { return ::syscall(SYS_pread64, handle, bytes, most, from); });
}

ssize_t write(int handle, const void* bytes, size_t count) {
    return made("write", handle, count, [&](size_t most) { return ::syscall(SYS_write, handle, bytes, most); });
}

ssize_t pwrite(int handle, const void* bytes, size_t count, off_t from) {
    return made("pwrite", handle, count,
                [&](size_t most) { return ::syscall(SYS_pwrite64, handle, bytes, most, from); });
}
