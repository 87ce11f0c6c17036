// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/entries.h"
#include "platform/handle_unix.h"

#include <cerrno>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>

namespace
{
QByteArray folderOf(const QByteArray &path)
{
    return path.first(path.lastIndexOf('/') + 1);
}

// Makes a name that has just been given or taken away last through a power cut, where the file system can.
void flushFolder(const QByteArray &folder)
{
    const Handle handle(::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (handle.isOpen())
        ::fsync(handle.get());
}

// For file systems that cannot rename without replacing: an empty file claims the name first.
int renameOntoClaim(const QByteArray &from, const QByteArray &to)
{
    Handle claim(::open(to.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (!claim.isOpen())
        return -1;
    claim.close();
    const int result = ::rename(from.constData(), to.constData());
    if (result != 0) {
        const int reason = errno;
        ::unlink(to.constData());
        errno = reason;
    }
    return result;
}

int renameWithoutReplacing(const QByteArray &from, const QByteArray &to)
{
    const int result = ::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE);
    const bool unknown = result != 0 && (errno == EINVAL || errno == ENOSYS || errno == ENOTSUP);
    return unknown ? renameOntoClaim(from, to) : result;
}

using StatusCall = int (*)(const char *, struct stat *);

bool haveSameIdentity(const QByteArray &first, const QByteArray &second, StatusCall statusOf)
{
    struct stat one = {};
    struct stat two = {};
    return statusOf(first.constData(), &one) == 0 && statusOf(second.constData(), &two) == 0 &&
           one.st_dev == two.st_dev && one.st_ino == two.st_ino;
}
} // namespace

bool hostEntryExists(const QByteArray &path)
{
    struct stat status = {};
    return !path.isEmpty() && ::lstat(path.constData(), &status) == 0;
}

QList<QByteArray> hostEntries(const QByteArray &folder)
{
    QList<QByteArray> entries;
    const std::unique_ptr<DIR, int (*)(DIR *)> open(::opendir(folder.constData()), ::closedir);
    while (const dirent *entry = open ? ::readdir(open.get()) : nullptr)
        entries += QByteArray(entry->d_name);
    return entries;
}

bool isSameFile(const QByteArray &first, const QByteArray &second)
{
    return haveSameIdentity(first, second, ::stat);
}

bool isSameEntry(const QByteArray &first, const QByteArray &second)
{
    return haveSameIdentity(first, second, ::lstat);
}

bool isHostFolder(const QByteArray &path)
{
    struct stat status = {};
    return ::stat(path.constData(), &status) == 0 && S_ISDIR(status.st_mode);
}

RenameResult renameEntry(const QByteArray &from, const QByteArray &to, Existing existing)
{
    const int result =
        existing == Existing::Replace ? ::rename(from.constData(), to.constData()) : renameWithoutReplacing(from, to);
    if (result != 0)
        return errno == EEXIST ? RenameResult::OtherExists : RenameResult::Failed;
    flushFolder(folderOf(to));
    return RenameResult::Done;
}

bool removeEntry(const QByteArray &path)
{
    return ::unlink(path.constData()) == 0;
}
