// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/drives.h"
#include "platform/file_copy.h"
#include "platform/handle_unix.h"

#include <QElapsedTimer>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace
{
constexpr qint64 chunkSize = 1 << 20;
constexpr qint64 watchEveryMs = 100;
constexpr mode_t permissionBits = 0777;

bool writeAll(int handle, const char *bytes, qint64 size)
{
    while (size > 0) {
        const ssize_t put = ::write(handle, bytes, static_cast<std::size_t>(size));
        if (put < 0 && errno == EINTR)
            continue;
        if (put <= 0)
            return false;
        bytes += put;
        size -= put;
    }
    return true;
}

// A source that ends early is a failure: a copy is whole or is none.
bool copyBytes(int from, int to, qint64 total, const CopyWatcher &watcher)
{
    const auto buffer = std::make_unique<char[]>(chunkSize);
    QElapsedTimer sinceWatched;
    sinceWatched.start();
    for (qint64 done = 0; done < total;) {
        const qint64 wanted = std::min(chunkSize, total - done);
        const ssize_t got = ::read(from, buffer.get(), static_cast<std::size_t>(wanted));
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0 || !writeAll(to, buffer.get(), got))
            return false;
        done += got;
        if (watcher && sinceWatched.hasExpired(watchEveryMs)) {
            if (!watcher(done, total))
                return false;
            sinceWatched.restart();
        }
    }
    return true;
}

// Ratings and labels that file managers keep beside the bytes. Not every file system can take them.
void copyExtendedAttributes(int from, int to)
{
    std::vector<char> names(static_cast<std::size_t>(std::max<ssize_t>(::flistxattr(from, nullptr, 0), 0)));
    const ssize_t size = ::flistxattr(from, names.data(), names.size());
    for (ssize_t at = 0; at < size;) {
        const QByteArray name(names.data() + at);
        std::vector<char> value(static_cast<std::size_t>(std::max<ssize_t>(::fgetxattr(from, name, nullptr, 0), 0)));
        const ssize_t length = ::fgetxattr(from, name, value.data(), value.size());
        if (length >= 0)
            ::fsetxattr(to, name, value.data(), static_cast<std::size_t>(length), 0);
        at += name.size() + 1;
    }
}

// The owner first: a change of owner takes permissions away. Who may not give files away keeps the copy.
void copyOwnerAndPermissions(int from, int to, const struct stat &status)
{
    if (::fchown(to, status.st_uid, status.st_gid) != 0 && ::fchown(to, static_cast<uid_t>(-1), status.st_gid) != 0)
        errno = 0;
    copyExtendedAttributes(from, to);
    ::fchmod(to, status.st_mode & permissionBits);
}

void copyTimes(int to, const struct stat &status)
{
    const timespec times[] = {status.st_atim, status.st_mtim};
    ::futimens(to, times);
}

QByteArray realPath(const QByteArray &path)
{
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.constData(), nullptr), &std::free);
    return QByteArray(real.get());
}
} // namespace

PendingCopy::PendingCopy(const QByteArray &hiddenName, const QByteArray &destination)
    : m_hiddenName(hiddenName), m_destination(destination)
{
}

PendingCopy::PendingCopy(PendingCopy &&other) noexcept
    : m_hiddenName(std::exchange(other.m_hiddenName, {})), m_destination(std::exchange(other.m_destination, {}))
{
}

PendingCopy::~PendingCopy()
{
    if (!m_hiddenName.isEmpty())
        ::unlink(m_hiddenName.constData());
}

std::optional<PendingCopy> PendingCopy::make(const QByteArray &source, const QByteArray &destination, FileTimes times,
                                             std::optional<qint64> length, const CopyWatcher &watcher)
{
    const Handle from(::open(source.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status = {};
    if (!from.isOpen() || ::fstat(from.get(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    const qint64 total = length.value_or(status.st_size);

    QByteArray hiddenName = destination.first(destination.lastIndexOf('/') + 1) +
                            ".kiv-mp3-XXXXXX"; // Short: the destination's may be the longest.
    Handle to(::mkostemp(hiddenName.data(), O_CLOEXEC));
    if (!to.isOpen())
        return std::nullopt;
    PendingCopy copy(hiddenName, destination);
    if (total < 0 || total > status.st_size || !copyBytes(from.get(), to.get(), total, watcher))
        return std::nullopt;
    copyOwnerAndPermissions(from.get(), to.get(), status);
    if (times == FileTimes::Kept)
        copyTimes(to.get(), status);
    if (::fsync(to.get()) != 0 || !to.close())
        return std::nullopt;
    return copy;
}

RenameResult PendingCopy::commit(Existing existing)
{
    const RenameResult result = renameEntry(m_hiddenName, m_destination, existing);
    if (result == RenameResult::Done)
        m_hiddenName.clear();
    return result;
}

bool shortenFile(const QString &path, qint64 length)
{
    const QByteArray file = realPath(hostPathOnDisk(path));
    if (file.isEmpty() || ::access(file.constData(), W_OK) != 0)
        return false;
    auto copy = PendingCopy::make(file, file, FileTimes::Fresh, length);
    return copy && copy->commit(Existing::Replace) == RenameResult::Done;
}
