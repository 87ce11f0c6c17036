// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/drives.h"
#include "platform/files.h"
#include "platform/handle_unix.h"

#include <QFile>
#include <QSaveFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace
{
// Opens as spelled first; only a miss pays for the search that ignores case. Never blocks on a pipe or a device.
int openHandle(const QString &path, int flags)
{
    const QByteArray exact = hostPath(path);
    if (exact.isEmpty())
        return noHandle;
    const int handle = ::open(exact.constData(), flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (handle != noHandle || errno != ENOENT)
        return handle;
    return ::open(hostPathOnDisk(path).constData(), flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
}
} // namespace

std::optional<ByteFile> ByteFile::open(const QString &path, Access access)
{
    const int handle = openHandle(path, access == Access::Read ? O_RDONLY : O_RDWR);
    if (handle == noHandle)
        return std::nullopt;
    struct stat status = {};
    if (::fstat(handle, &status) != 0 || !S_ISREG(status.st_mode)) {
        ::close(handle);
        return std::nullopt;
    }
    return ByteFile(handle, status.st_size);
}

ByteFile::ByteFile(int handle, qint64 length) : m_handle(handle), m_length(length) {}

ByteFile::ByteFile(ByteFile &&other) noexcept
    : m_handle(std::exchange(other.m_handle, noHandle)), m_length(other.m_length)
{
}

ByteFile &ByteFile::operator=(ByteFile &&other) noexcept
{
    std::swap(m_handle, other.m_handle);
    std::swap(m_length, other.m_length);
    return *this;
}

ByteFile::~ByteFile()
{
    if (m_handle != noHandle)
        ::close(m_handle);
}

qint64 ByteFile::readAt(qint64 offset, char *buffer, qint64 size) const
{
    qint64 done = 0;
    while (offset >= 0 && done < size) {
        const ssize_t got = ::pread(m_handle, buffer + done, static_cast<std::size_t>(size - done), offset + done);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            break;
        done += got;
        if (offset + done >= m_length) // The end is known: no further read is needed to learn of it.
            break;
    }
    return done;
}

QByteArray ByteFile::readAt(qint64 offset, qint64 size) const
{
    QByteArray bytes(std::max<qint64>(size, 0), Qt::Uninitialized);
    bytes.truncate(readAt(offset, bytes.data(), bytes.size()));
    return bytes;
}

qint64 ByteFile::writeSome(qint64 offset, QByteArrayView bytes)
{
    qint64 done = 0;
    while (done < bytes.size()) {
        const ssize_t put =
            ::pwrite(m_handle, bytes.data() + done, static_cast<std::size_t>(bytes.size() - done), offset + done);
        if (put < 0 && errno == EINTR)
            continue;
        if (put <= 0)
            break;
        done += put;
    }
    return done;
}

bool ByteFile::writeAt(qint64 offset, QByteArrayView bytes)
{
    if (offset < 0)
        return false;
    const QByteArray before = readAt(offset, bytes.size());
    if (writeSome(offset, bytes) == bytes.size()) {
        m_length = std::max(m_length, offset + bytes.size());
        return true;
    }
    writeSome(offset, before);
    resize(m_length);
    return false;
}

bool ByteFile::resize(qint64 length)
{
    if (::ftruncate(m_handle, length) != 0)
        return false;
    m_length = length;
    return true;
}

bool ByteFile::flush()
{
    return ::fsync(m_handle) == 0;
}

std::optional<QByteArray> loadFile(const QString &path)
{
    const auto file = ByteFile::open(path, ByteFile::Access::Read);
    return file ? std::optional<QByteArray>(file->readAt(0, file->length())) : std::nullopt;
}

bool saveFile(const QString &path, QByteArrayView bytes)
{
    QSaveFile file(QFile::decodeName(hostPathOnDisk(path)));
    if (!file.open(QIODevice::WriteOnly))
        return false;
    // Flushed by hand: commit() takes no notice when its own flush meets a full disk.
    return file.write(bytes.data(), bytes.size()) == bytes.size() && file.flush() && file.commit();
}
