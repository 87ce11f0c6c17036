// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/scratch_file.h"
#include "platform/scratch_folder.h"
#include "platform/trash.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace
{
const QByteArray folderStart = ".new-";
const QByteArray randomLetters = "XXXXXX";

// Other files stay, and then so does the folder.
void removeFolder(const QByteArray &path, const QList<QByteArray> &names)
{
    for (const QByteArray &name : names)
        removeEntry(path + '/' + name);
    ::rmdir(path.constData());
}

Handle folderItself(const QByteArray &path)
{
    return Handle(::open(path.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

// False while another program holds it.
bool lock(const Handle &folder)
{
    return ::flock(folder.get(), LOCK_EX | LOCK_NB) == 0;
}

void removeLeftFolders(const QByteArray &parent, const QList<QByteArray> &names)
{
    for (const QByteArray &entry : hostEntries(parent, folderStart).value_or(QList<QByteArray>())) {
        struct stat status = {};
        const Handle folder = folderItself(parent + entry);
        const bool isOwn = folder.isOpen() && ::fstat(folder.get(), &status) == 0 && status.st_uid == ::geteuid();
        if (isOwn && entry.size() == folderStart.size() + randomLetters.size() && lock(folder))
            removeFolder(parent + entry, names);
    }
}
} // namespace

ScratchFolder::ScratchFolder(Handle folder, const QByteArray &path, const QList<QByteArray> &names)
    : m_folder(std::move(folder)), m_path(path), m_names(names)
{
}

ScratchFolder::ScratchFolder(ScratchFolder &&other) noexcept
    : m_folder(std::move(other.m_folder)), m_path(std::exchange(other.m_path, {})), m_names(std::move(other.m_names)),
      m_files(std::move(other.m_files))
{
}

ScratchFolder::~ScratchFolder()
{
    const int reason = errno;
    if (!m_path.isEmpty())
        removeFolder(m_path, m_names);
    errno = reason;
}

std::optional<ScratchFolder> ScratchFolder::make(const QByteArray &parent, const QList<QByteArray> &names)
{
    if (::mkdir(parent.constData(), 0777) != 0 && errno != EEXIST)
        return std::nullopt;
    removeLeftFolders(parent, names);
    QByteArray path = parent + folderStart + randomLetters;
    if (!::mkdtemp(path.data()))
        return std::nullopt;
    ScratchFolder made(folderItself(path), path, names);
    if (!made.m_folder.isOpen())
        return std::nullopt;
    lock(made.m_folder); // Where there are no locks, others hold none either, and remove nothing.
    return made;
}

bool ScratchFolder::write(const QByteArray &name, QByteArrayView bytes)
{
    const QByteArray path = m_path + '/' + name;
    Handle file(::open(path.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666));
    if (!file.isOpen() || !writeAll(file.get(), bytes))
        return false;
    m_files.push_back(std::move(file));
    return true;
}

// All at the end: most disks then wait once.
bool ScratchFolder::flush()
{
    for (Handle &file : m_files) {
        if (::fsync(file.get()) != 0 || !file.close())
            return false;
    }
    m_files.clear();
    return ::fsync(m_folder.get()) == 0;
}

bool ScratchFolder::replace(const QByteArray &destination)
{
    if (!exchangeEntries(m_path, destination))
        return moveToTrash(destination) && renameEntry(m_path, destination, Existing::Keep) == RenameResult::Done;
    if (moveToTrash(m_path, destination.sliced(hostFolderOf(destination).size())))
        return true;
    const int reason = errno;
    exchangeEntries(m_path, destination);
    errno = reason;
    return false;
}

RenameResult ScratchFolder::commit(const QByteArray &destination, Existing existing)
{
    if (!flush())
        return RenameResult::Failed;
    RenameResult result = renameEntry(m_path, destination, Existing::Keep);
    if (result == RenameResult::OtherExists && existing != Existing::Keep)
        result = replace(destination) ? RenameResult::Done : RenameResult::Failed;
    if (result == RenameResult::Done)
        m_path.clear();
    return result;
}
