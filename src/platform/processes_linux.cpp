// SPDX-License-Identifier: GPL-3.0-or-later
// On Linux a process is a folder of /proc. SIGTERM, SIGINT and SIGHUP end one; a handler may do next to nothing, so it
// writes a byte into a pipe that the event loop watches.
#include "platform/desktop.h"
#include "platform/file_names.h"
#include "platform/handle_unix.h"
#include "platform/processes.h"

#include <QDir>
#include <QFile>
#include <QSocketNotifier>
#include <QSysInfo>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{
std::array<int, 2> ends; // Of the pipe: reading, writing.

void writeToPipe(int)
{
    const int error = errno;
    [[maybe_unused]] const ssize_t written = ::write(ends[1], "", 1);
    errno = error;
}

// The name the process gave itself; "" when it has ended since.
QString nameOf(const QString &process)
{
    QFile file(u"/proc/"_s + process + u"/comm"_s);
    return file.open(QIODevice::ReadOnly) ? nameFromHost(file.readAll().trimmed()) : QString();
}
} // namespace

// Only the lock counts, not the file: what a player leaves behind keeps no other one away.
SingleInstance::SingleInstance() : m_lock(noHandle)
{
    const QByteArray folder = QFile::encodeName(runtimeFolder());
    if (folder.isEmpty()) {
        qWarning("no folder of your own for the lock that keeps a second player away");
        return;
    }
    const QByteArray path = folder + "/kiv-mp3.lock";
    m_lock = ::open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600);
    const bool isHeld = m_lock != noHandle && ::flock(m_lock, LOCK_EX | LOCK_NB) == 0;
    m_isHeldByAnother = !isHeld && m_lock != noHandle && errno == EWOULDBLOCK;
    if (!isHeld && !m_isHeldByAnother)
        qWarning("%s, which keeps a second player away, cannot be locked: %s", path.constData(), std::strerror(errno));
}

SingleInstance::~SingleInstance()
{
    if (m_lock != noHandle)
        ::close(m_lock);
}

void outliveReaders()
{
    std::signal(SIGPIPE, SIG_IGN);
    int handle = noHandle;
    do
        handle = ::open("/dev/null", O_RDWR); // Takes the lowest place that is free.
    while (handle >= 0 && handle < STDERR_FILENO);
    if (handle > STDERR_FILENO)
        ::close(handle);
}

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
    action.sa_handler = writeToPipe;
    action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        struct sigaction usual = {};
        ::sigaction(signal, nullptr, &usual);
        if (usual.sa_handler != SIG_IGN) // Started to outlive its terminal.
            ::sigaction(signal, &action, nullptr);
    }
}

QString systemVersionText()
{
    return QSysInfo::prettyProductName() + u", "_s + QSysInfo::kernelType() + u' ' + QSysInfo::kernelVersion();
}

QStringList runningProcesses()
{
    QList<int> numbers;
    for (const QString &entry : QDir(u"/proc"_s).entryList(QDir::Dirs)) {
        bool isProcess = false;
        const int number = entry.toInt(&isProcess);
        if (isProcess)
            numbers += number;
    }
    std::sort(numbers.begin(), numbers.end());
    QStringList processes;
    for (const int number : numbers) {
        const QString name = nameOf(QString::number(number));
        if (!name.isEmpty())
            processes += QString::number(number).rightJustified(7) + u"  "_s + name;
    }
    return processes;
}
