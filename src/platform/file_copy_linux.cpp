// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/drives.h"
#include "platform/file_copy.h"
#include "platform/handle_unix.h"

#include <QElapsedTimer>

#include <algorithm>
#include <cerrno>
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
        if (got == 0)
            errno = EIO; // It ends before its length.
        if (got <= 0 || !writeAll(to, QByteArrayView(buffer.get(), got)))
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
} // namespace

PendingCopy::PendingCopy(ScratchFile file, const QByteArray &destination)
    : m_file(std::move(file)), m_destination(destination)
{
}

std::optional<PendingCopy> PendingCopy::make(const QByteArray &source, const QByteArray &destination, FileTimes times,
                                             std::optional<qint64> length, const CopyWatcher &watcher)
{
    const Handle from(::open(source.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status = {};
    if (!from.isOpen() || ::fstat(from.get(), &status) != 0)
        return std::nullopt;
    if (!S_ISREG(status.st_mode)) {
        errno = EINVAL;
        return std::nullopt;
    }
    const qint64 total = length.value_or(status.st_size);
    auto to = ScratchFile::make(hostFolderOf(destination), 0600);
    if (!to || total < 0 || total > status.st_size || !copyBytes(from.get(), to->handle(), total, watcher))
        return std::nullopt;
    copyOwnerAndPermissions(from.get(), to->handle(), status);
    if (times == FileTimes::Kept)
        copyTimes(to->handle(), status);
    if (!to->finish())
        return std::nullopt;
    return PendingCopy(std::move(*to), destination);
}

bool shortenFile(const QString &path, qint64 length)
{
    const QByteArray file = realPath(hostPath(path));
    if (file.isEmpty() || ::access(file.constData(), W_OK) != 0)
        return false;
    auto copy = PendingCopy::make(file, file, FileTimes::Fresh, length);
    return copy && copy->commit(Existing::Replace) == RenameResult::Done;
}
