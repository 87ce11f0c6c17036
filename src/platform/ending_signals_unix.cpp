// SPDX-License-Identifier: GPL-3.0-or-later
// SIGTERM, SIGINT and SIGHUP. A handler may do next to nothing: it writes a byte into a pipe that the event loop
// watches.
#include "platform/ending_signals.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace
{
std::array<int, 2> ends; // Of the pipe: reading, writing.

void tellPipe(int)
{
    const int error = errno;
    [[maybe_unused]] const ssize_t written = ::write(ends[1], "", 1);
    errno = error;
}
} // namespace

void onEndingSignals(QObject *listener, const std::function<void()> &end)
{
    if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    auto *notifier = new QSocketNotifier(ends[0], QSocketNotifier::Read, listener);
    QObject::connect(notifier, &QSocketNotifier::activated, listener, [notifier, end] {
        notifier->setEnabled(false);
        end();
    });
    struct sigaction action = {};
    action.sa_handler = tellPipe;
    action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        struct sigaction usual = {};
        ::sigaction(signal, nullptr, &usual);
        if (usual.sa_handler != SIG_IGN) // Started to outlive its terminal.
            ::sigaction(signal, &action, nullptr);
    }
}
