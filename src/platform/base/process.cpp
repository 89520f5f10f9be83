#include "platform/base/process.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>

namespace platform {

// Opened the other way round, so that a write fails as it does on a closed stream. A file that is opened gets the
// lowest free number, which is the stream's own, since those below it have been looked at.
void holdStandardStreams() {
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream)
        if (::fcntl(stream, F_GETFD) < 0) ::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
}

// Handlers rather than SIG_IGN, which a program that is started from this one would inherit.
void takeWriteErrors() {
    struct sigaction nothing {};
    nothing.sa_handler = [](int /*signal*/) {};
    nothing.sa_flags = SA_RESTART;
    for (const int signal : {SIGPIPE, SIGXFSZ}) ::sigaction(signal, &nothing, nullptr);
}

int endOutput(const std::string& program, int exitCode) {
    errno = 0;
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return exitCode;
    const char* const reason = std::strerror(errno != 0 ? errno : EIO);
    std::fprintf(stderr, "%s: The output couldn't be written: %s.\n", program.c_str(), reason);
    return exitCode == 0 ? 1 : exitCode;
}

}  // namespace platform
