// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/entries.h"
#include "platform/handle_unix.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
bool isForMissing(int error)
{
    return error == ENOENT || error == ENOTDIR;
}

// Makes a name that has just been given or taken away last through a power cut, where the file system can.
void flushFolder(const QByteArray &folder)
{
    const Handle handle(::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (handle.isOpen())
        ::fsync(handle.get());
}

// A folder can only take the place of an empty one.
bool claimName(const QByteArray &name, bool isFolder)
{
    if (isFolder)
        return ::mkdir(name.constData(), 0700) == 0;
    return Handle(::open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600)).isOpen();
}

int renameOntoClaim(const QByteArray &from, const QByteArray &to)
{
    struct stat status = {};
    const bool isFolder = ::lstat(from.constData(), &status) == 0 && S_ISDIR(status.st_mode);
    if (!claimName(to, isFolder))
        return -1;
    const int result = ::rename(from.constData(), to.constData());
    if (result != 0) {
        const int reason = errno;
        ::unlinkat(AT_FDCWD, to.constData(), isFolder ? AT_REMOVEDIR : 0);
        errno = reason;
    }
    return result;
}

// For file systems that cannot rename without replacing: for a moment the file has both names. Where no file can have
// two, an empty one claims the name first.
int linkAndUnlink(const QByteArray &from, const QByteArray &to)
{
    if (::link(from.constData(), to.constData()) != 0)
        return errno == EEXIST ? -1 : renameOntoClaim(from, to);
    if (::unlink(from.constData()) == 0)
        return 0;
    const int reason = errno;
    ::unlink(to.constData());
    errno = reason;
    return -1;
}

int renameWithoutReplacing(const QByteArray &from, const QByteArray &to)
{
    const int result = ::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE);
    const bool unknown = result != 0 && (errno == EINVAL || errno == ENOSYS || errno == ENOTSUP);
    return unknown ? linkAndUnlink(from, to) : result;
}

using StatusCall = int (*)(const char *, struct stat *);

std::optional<FileIdentity> identityOf(const QByteArray &path, StatusCall statusOf)
{
    struct stat status = {};
    if (path.isEmpty() || statusOf(path.constData(), &status) != 0)
        return std::nullopt;
    return FileIdentity{status.st_dev, status.st_ino};
}

bool haveSameIdentity(const QByteArray &first, const QByteArray &second, StatusCall statusOf)
{
    const auto identity = identityOf(first, statusOf);
    return identity && identity == identityOf(second, statusOf);
}
} // namespace

QByteArray hostFolderOf(const QByteArray &path)
{
    return path.first(path.lastIndexOf('/') + 1);
}

Presence hostEntry(const QByteArray &path)
{
    struct stat status = {};
    if (path.isEmpty())
        return Presence::Missing;
    if (::lstat(path.constData(), &status) == 0)
        return Presence::There;
    return isForMissing(errno) ? Presence::Missing : Presence::Unknown;
}

bool hostEntryExists(const QByteArray &path)
{
    return hostEntry(path) == Presence::There;
}

bool isNormalEntry(const QByteArray &path)
{
    struct stat status = {};
    return ::lstat(path.constData(), &status) == 0 && S_ISREG(status.st_mode);
}

std::optional<QList<QByteArray>> hostEntries(const QByteArray &folder, QByteArrayView beginning)
{
    QList<QByteArray> entries;
    const std::unique_ptr<DIR, int (*)(DIR *)> open(::opendir(folder.constData()), ::closedir);
    if (!open)
        return isForMissing(errno) ? std::optional(entries) : std::nullopt;
    errno = 0;
    while (const dirent *entry = ::readdir(open.get())) {
        if (QByteArrayView(entry->d_name).startsWith(beginning))
            entries += QByteArray(entry->d_name);
    }
    return errno == 0 ? std::optional(entries) : std::nullopt;
}

std::optional<FileIdentity> fileIdentity(const QByteArray &path)
{
    return identityOf(path, ::stat);
}

bool isSameFile(const QByteArray &first, const QByteArray &second)
{
    return haveSameIdentity(first, second, ::stat);
}

bool isSameEntry(const QByteArray &first, const QByteArray &second)
{
    return haveSameIdentity(first, second, ::lstat);
}

bool haveOwnFolder(const QByteArray &path, Others others)
{
    if (::mkdir(path.constData(), 0700) != 0 && errno != EEXIST)
        return false;
    constexpr mode_t changeable = S_IWGRP | S_IWOTH;
    struct stat status = {};
    const bool isOwn = ::lstat(path.constData(), &status) == 0 && S_ISDIR(status.st_mode) &&
                       status.st_uid == ::geteuid() &&
                       (others == Others::MayChange || (status.st_mode & changeable) == 0);
    errno = isOwn ? 0 : EACCES;
    return isOwn;
}

bool isHostFolder(const QByteArray &path)
{
    struct stat status = {};
    return ::stat(path.constData(), &status) == 0 && S_ISDIR(status.st_mode);
}

QByteArray realPath(const QByteArray &path)
{
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.constData(), nullptr), &std::free);
    return QByteArray(real.get());
}

QString hostErrorText()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

bool mayChangeEntries(const QByteArray &folder)
{
    return ::access(folder.constData(), W_OK | X_OK) == 0;
}

RenameResult renameEntry(const QByteArray &from, const QByteArray &to, Existing existing)
{
    const int result =
        existing == Existing::Keep ? renameWithoutReplacing(from, to) : ::rename(from.constData(), to.constData());
    if (result != 0)
        return errno == EEXIST ? RenameResult::OtherExists : RenameResult::Failed;
    flushFolder(hostFolderOf(to));
    return RenameResult::Done;
}

bool exchangeEntries(const QByteArray &first, const QByteArray &second)
{
    if (::renameat2(AT_FDCWD, first.constData(), AT_FDCWD, second.constData(), RENAME_EXCHANGE) != 0)
        return false;
    flushFolder(hostFolderOf(second));
    return true;
}

bool removeEntry(const QByteArray &path)
{
    return ::unlink(path.constData()) == 0;
}
