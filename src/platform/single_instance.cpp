// One player a user.
#include "platform/single_instance.h"

#include "platform/desktop_places.h"

using namespace Qt::StringLiterals;

SingleInstance::SingleInstance() : m_lock(runtimeFolder() + u"/kiv-mp3.lock"_s)
{
    m_lock.setStaleLockTime(0); // Only a dead owner makes a lock stale, however long the player has been running.
    m_held = m_lock.tryLock(0) || m_lock.error() != QLockFile::LockFailedError; // No place for a lock: play anyway.
}
