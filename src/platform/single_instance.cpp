// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/single_instance.h"

#include "platform/desktop_places.h"

using namespace Qt::StringLiterals;

namespace
{
// Nobody can tell whose it is: a power cut has damaged it.
bool isUnreadable(const QLockFile &lock)
{
    qint64 processId = 0;
    QString host;
    QString program;
    return lock.error() == QLockFile::LockFailedError && !lock.getLockInfo(&processId, &host, &program);
}
} // namespace

SingleInstance::SingleInstance() : m_lock(runtimeFolder() + u"/kiv-mp3.lock"_s)
{
    m_lock.setStaleLockTime(0); // Only a dead owner makes a lock stale, however long the player has been running.
    m_held = m_lock.tryLock(0);
    if (!m_held && isUnreadable(m_lock) && m_lock.removeStaleLockFile()) // Refused while a living player holds it.
        m_held = m_lock.tryLock(0);
    m_held = m_held || m_lock.error() != QLockFile::LockFailedError; // No place for a lock: play anyway.
}
