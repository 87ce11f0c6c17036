// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/drives.h"
#include "platform/files.h"
#include "platform/scratch_file.h"

#include <QSet>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace
{
// What is there but could not be read.
QSet<QByteArray> unreadFiles;

bool isMissing(const QString &path)
{
    const auto place = pathOnDiskIfKnown(path);
    return place && hostEntry(*place) == Presence::Missing;
}

constexpr int always = O_CLOEXEC | O_NONBLOCK | O_NOCTTY;

// Opens as spelled first; only a miss pays for the search that ignores case, and only to read: what is changed is the
// file that was named or none. Never blocks on a pipe or a device.
int openHandle(const QString &path, int flags)
{
    const QByteArray exact = hostPath(path);
    if (exact.isEmpty())
        return noHandle;
    const int handle = ::open(exact.constData(), flags | always);
    if (handle != noHandle || errno != ENOENT || flags != O_RDONLY)
        return handle;
    return ::open(hostPathOnDisk(path).constData(), flags | always);
}
} // namespace

std::optional<ByteFile> ByteFile::open(const QString &path, Access access)
{
    return ofNormalFile(openHandle(path, access == Access::Read ? O_RDONLY : O_RDWR));
}

std::optional<ByteFile> ByteFile::openEntry(const QByteArray &hostPath)
{
    return ofNormalFile(::open(hostPath.constData(), O_RDONLY | O_NOFOLLOW | always));
}

std::optional<ByteFile> ByteFile::ofNormalFile(int handle)
{
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

std::optional<QByteArrayView> ByteFile::readAt(qint64 offset, std::span<char> buffer) const
{
    // The end is known: no read is needed to learn of it.
    const qint64 size = offset < 0 ? 0 : std::clamp<qint64>(m_length - offset, 0, std::ssize(buffer));
    for (qint64 done = 0; done < size;) {
        const ssize_t got =
            ::pread(m_handle, buffer.data() + done, static_cast<std::size_t>(size - done), offset + done);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            return std::nullopt;
        done += got;
    }
    return QByteArrayView(buffer.data(), size);
}

std::optional<QByteArray> ByteFile::readAt(qint64 offset, qint64 size) const
{
    QByteArray bytes(std::max<qint64>(size, 0), Qt::Uninitialized);
    const auto got = readAt(offset, std::span(bytes.data(), static_cast<std::size_t>(bytes.size())));
    if (!got)
        return std::nullopt;
    bytes.truncate(got->size());
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
    const auto before = readAt(offset, bytes.size());
    if (!before) // It could not be put back.
        return false;
    if (writeSome(offset, bytes) == bytes.size()) {
        m_length = std::max(m_length, offset + bytes.size());
        return true;
    }
    writeSome(offset, *before);
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

FileContents loadFile(const QString &path, qint64 longest)
{
    const auto file = ByteFile::open(path, ByteFile::Access::Read);
    const bool isTooLong = file && file->length() > longest;
    const auto bytes = file && !isTooLong ? file->readAt(0, file->length()) : std::nullopt;
    const bool isFailure = !bytes && (file || !isMissing(path));
    if (isFailure && mayReplace(path))
        qWarning("%s %s and is left as it is", qUtf8Printable(displayPath(path)),
                 isTooLong ? "is far too large" : "cannot be read");
    if (isFailure)
        unreadFiles += hostPath(path);
    else
        unreadFiles -= hostPath(path);
    return {bytes ? Reading::Done : isFailure ? Reading::Failed : Reading::Missing, bytes.value_or(QByteArray())};
}

bool mayReplace(const QString &path)
{
    return !unreadFiles.contains(hostPath(path));
}

bool saveFile(const QString &path, QByteArrayView bytes, Existing existing)
{
    const std::optional<QByteArray> place = pathOnDiskIfKnown(path);
    if (!place || !mayReplace(path))
        return false;
    const QByteArray real = realPath(*place); // A link stays.
    const QByteArray target = real.isEmpty() ? *place : real;
    struct stat old = {};
    const bool replaces = ::stat(target.constData(), &old) == 0;
    if (replaces && (!S_ISREG(old.st_mode) || ::access(target.constData(), W_OK) != 0))
        return false;
    auto file = ScratchFile::make(hostFolderOf(target), 0666);
    return file && writeAll(file->handle(), bytes) &&
           (!replaces || ::fchmod(file->handle(), old.st_mode & 0777) == 0) && file->finish() &&
           file->commit(target, existing) == RenameResult::Done;
}

void createIfMissing(const QString &path)
{
    if (loadFile(path).reading == Reading::Missing)
        saveFile(path, {}, Existing::Keep);
}
