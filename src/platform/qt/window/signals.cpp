#include "platform/qt/window/signals.h"

#include <fcntl.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QSocketNotifier>
#include <array>
#include <csignal>

namespace platform::qt {
namespace {

std::array<int, 2> ends{-1, -1};  // of the pipe from the signal handler to the event loop

/// Only a write is allowed here: the signal may have come in the middle of anything.
void tellLoop(int /*signal*/) {
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(ends[1], &byte, 1);
}

}  // namespace

void onEndSignal(std::function<void()> handler) {
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
    auto* const notifier = new QSocketNotifier(ends[0], QSocketNotifier::Read, QCoreApplication::instance());
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, [notifier, called = std::move(handler)] {
        notifier->setEnabled(false);
        called();
    });
    struct sigaction action {};
    action.sa_handler = tellLoop;
    action.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaction(signal, &action, nullptr);
}

}  // namespace platform::qt
