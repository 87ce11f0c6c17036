// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/scratch_file.h"

#include <QRandomGenerator>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <utility>

namespace
{
const QByteArray hiddenStart = ".kiv-mp3-"; // Short: the name it will take may be the longest.
const QByteArray end = ".part";
constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyz0123456789";
constexpr qsizetype randomLength = 6;
constexpr int mostTries = 100;

QByteArray randomName()
{
    QByteArray name = hiddenStart;
    for (qsizetype i = 0; i < randomLength; ++i)
        name += letters[QRandomGenerator::global()->bounded(static_cast<quint32>(letters.size()))];
    return name + end;
}

bool isScratchName(const QByteArray &name)
{
    const QByteArray middle = name.mid(hiddenStart.size(), randomLength);
    const bool isRandom =
        std::all_of(middle.begin(), middle.end(), [](char c) { return letters.find(c) != std::string_view::npos; });
    return isRandom && name == hiddenStart + middle + end && middle.size() == randomLength;
}

bool isBeingRemoved(int file)
{
    struct stat status = {};
    return (::flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) ||
           (::fstat(file, &status) == 0 && status.st_nlink == 0);
}

// The lock is held until the name has gone, so that a file made at the same moment is left alone.
void removeIfLeft(const QByteArray &path)
{
    struct stat status = {};
    if (::lstat(path.constData(), &status) != 0 || !S_ISREG(status.st_mode) || status.st_uid != ::geteuid())
        return;
    const Handle file(::open(path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW));
    if (file.isOpen() && ::flock(file.get(), LOCK_EX | LOCK_NB) == 0)
        ::unlink(path.constData());
}
} // namespace

ScratchFile::ScratchFile(Handle file, const QByteArray &hiddenName) : m_file(std::move(file)), m_hiddenName(hiddenName)
{
}

ScratchFile::ScratchFile(ScratchFile &&other) noexcept
    : m_file(std::move(other.m_file)), m_hiddenName(std::exchange(other.m_hiddenName, {})),
      m_name(std::exchange(other.m_name, {}))
{
}

ScratchFile::~ScratchFile()
{
    const int reason = errno;
    if (!m_hiddenName.isEmpty() && !removeEntry(m_hiddenName))
        removeEntry(m_hiddenName);
    errno = reason;
}

std::optional<ScratchFile> ScratchFile::make(const QByteArray &folder, mode_t permissions)
{
    removeScratchFiles(folder);
    for (int i = 0; i < mostTries; ++i) {
        const QByteArray path = folder + randomName();
        Handle file(::open(path.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, permissions));
        if (!file.isOpen() && errno != EEXIST)
            return std::nullopt;
        if (file.isOpen() && !isBeingRemoved(file.get()))
            return ScratchFile(std::move(file), path);
    }
    return std::nullopt;
}

// Some file systems tell of a failed write only when a file is closed; the lock goes with the last handle.
bool ScratchFile::finish()
{
    if (::fsync(m_file.get()) != 0)
        return false;
    Handle second(::fcntl(m_file.get(), F_DUPFD_CLOEXEC, 0));
    return second.isOpen() && second.close();
}

RenameResult ScratchFile::commit(const QByteArray &destination, Existing existing)
{
    const bool isSetAside = existing == Existing::SetAside && exchangeEntries(m_hiddenName, destination);
    const RenameResult result = isSetAside ? RenameResult::Done : renameEntry(m_hiddenName, destination, existing);
    if (result != RenameResult::Done)
        return result;
    m_name = destination;
    if (!isSetAside)
        m_hiddenName.clear();
    return result;
}

bool ScratchFile::undo()
{
    return m_hiddenName.isEmpty() ? removeEntry(m_name) : exchangeEntries(m_hiddenName, m_name);
}

bool writeAll(int handle, QByteArrayView bytes)
{
    while (!bytes.isEmpty()) {
        const ssize_t put = ::write(handle, bytes.data(), static_cast<std::size_t>(bytes.size()));
        if (put < 0 && errno == EINTR)
            continue;
        if (put <= 0)
            return false;
        bytes = bytes.sliced(put);
    }
    return true;
}

void removeScratchFiles(const QByteArray &folder)
{
    const int reason = errno;
    for (const QByteArray &name : hostEntries(folder, hiddenStart).value_or(QList<QByteArray>()))
        removeIfScratchFile(folder, name);
    errno = reason;
}

void removeIfScratchFile(const QByteArray &folder, const QByteArray &name)
{
    if (isScratchName(name))
        removeIfLeft(folder + name);
}
