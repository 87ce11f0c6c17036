// SPDX-License-Identifier: GPL-3.0-or-later
// On Linux a process is a folder of /proc. SIGTERM, SIGINT and SIGHUP end one; a handler may do next to nothing, so it
// writes a byte into a pipe that the event loop watches.
#include "platform/desktop.h"
#include "platform/file_names.h"
#include "platform/processes.h"

#include <QDir>
#include <QFile>
#include <QSocketNotifier>
#include <QSysInfo>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{
// It names no owner: a power cut has damaged it.
bool isUnreadable(const QLockFile &lock)
{
    qint64 processId = 0;
    QString host;
    QString program;
    return lock.error() == QLockFile::LockFailedError && !lock.getLockInfo(&processId, &host, &program);
}

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

SingleInstance::SingleInstance() : m_lock(runtimeFolder() + u"/kiv-mp3.lock"_s)
{
    m_lock.setStaleLockTime(0); // Only a dead owner makes a lock stale, however long the player has been running.
    m_hasLock = m_lock.tryLock(0);
    if (!m_hasLock && isUnreadable(m_lock) && m_lock.removeStaleLockFile()) // Refused while its owner runs.
        m_hasLock = m_lock.tryLock(0);
    m_hasLock = m_hasLock || m_lock.error() != QLockFile::LockFailedError; // No place for a lock: play anyway.
}

void outliveReaders()
{
    std::signal(SIGPIPE, SIG_IGN);
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
