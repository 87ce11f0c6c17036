// SPDX-License-Identifier: GPL-3.0-or-later
// Copying, deleting and renaming songs as a desktop does it. What must be atomic is in file_copy.
#include "platform/shell_files.h"

#include "base/names.h"
#include "platform/drives.h"
#include "platform/entries.h"
#include "platform/file_copy.h"
#include "platform/file_names.h"
#include "platform/folders.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
constexpr qsizetype longestName = 255; // Bytes, on all usual file systems.

// The host path of a name that may be new: the folder as spelled on disk, the name exactly as given, since names that
// differ in case alone are two. Empty for an impossible name.
QByteArray exactHostPath(const QString &path)
{
    const QString name = FileNameFromPath(path);
    const QByteArray folder = hostPathOnDisk(FolderFromPath(path));
    if (folder.isEmpty() || !isPossibleName(name))
        return {};
    return folder + (folder.endsWith('/') ? "" : "/") + nameToHost(name);
}

// Runs take(existing), replacing another file only after asking. Asks again when a file appears in the meantime.
template<class Take>
ShellOutcome commitAsking(const QString &path, Existing existing, ShellPrompts &prompts, Take take)
{
    RenameResult taken = take(existing);
    if (taken == RenameResult::OtherExists) {
        if (!prompts.mayReplace(path))
            return ShellOutcome::Declined;
        taken = take(Existing::Replace);
    }
    return taken == RenameResult::Done ? ShellOutcome::Done : ShellOutcome::Failed;
}

// Does the folder of a path list its name with this very spelling?
bool isListed(const QByteArray &path)
{
    const qsizetype slash = path.lastIndexOf('/');
    return hostEntries(path.first(slash + 1)).contains(path.sliced(slash + 1));
}

// The new path leads to the old file already: spelled otherwise on a file system that ignores case, or a second name
// (hard link) of the file. Renaming would do nothing for the latter, so the old name goes.
ShellOutcome renameOntoItself(const QByteArray &from, const QByteArray &to, const QString &newPath,
                              ShellPrompts &prompts)
{
    if (!isListed(to))
        return renameEntry(from, to, Existing::Replace) == RenameResult::Done ? ShellOutcome::Done
                                                                              : ShellOutcome::Failed;
    if (!prompts.mayReplace(newPath))
        return ShellOutcome::Declined;
    return removeEntry(from) ? ShellOutcome::Done : ShellOutcome::Failed;
}

// Qt moves only what it can name: a name that is no text would lead to another file or to none.
bool moveToTrash(const QByteArray &path)
{
    const QString name = QFile::decodeName(path);
    // Without its parent folder the trash would be looked for in the current one.
    return QFile::encodeName(name) == path &&
           QDir().mkpath(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)) &&
           QFile::moveToTrash(name);
}
} // namespace

bool isPossibleName(const QString &name)
{
    const bool hasSeparator =
        std::any_of(name.begin(), name.end(), [](QChar c) { return c == u'/' || c == u'\\' || c.isNull(); });
    return !name.isEmpty() && name != u"."_s && name != u".."_s && !hasSeparator &&
           nameToHost(name).size() <= longestName;
}

ShellOutcome ShellCopyFile(const QString &source, const QString &destination, ShellPrompts &prompts)
{
    const QByteArray from = hostPathOnDisk(source);
    const QByteArray to = exactHostPath(destination);
    if (to.isEmpty() || isHostFolder(to) || isSameFile(from, to) || !fileLength(source))
        return ShellOutcome::Failed;
    const bool replaces = hostEntryExists(to);
    if (replaces && !prompts.mayReplace(destination))
        return ShellOutcome::Declined;

    bool goesOn = true;
    auto copy = PendingCopy::make(from, to, FileTimes::Kept, {}, [&](qint64 done, qint64 total) {
        goesOn = prompts.copyGoesOn(source, done, total);
        return goesOn;
    });
    if (!copy)
        return goesOn ? ShellOutcome::Failed : ShellOutcome::Declined;
    return commitAsking(destination, replaces ? Existing::Replace : Existing::Keep, prompts,
                        [&](Existing existing) { return copy->commit(existing); });
}

ShellOutcome ShellDeleteFile(const QString &path, ShellPrompts &prompts)
{
    const QByteArray file = hostPathOnDisk(path);
    if (!hostEntryExists(file) || isHostFolder(file))
        return ShellOutcome::Failed;
    if (!prompts.mayTrash(path))
        return ShellOutcome::Declined;
    if (moveToTrash(file))
        return ShellOutcome::Done;
    if (!prompts.mayDeleteForGood(path))
        return ShellOutcome::Declined;
    return removeEntry(file) ? ShellOutcome::Done : ShellOutcome::Failed;
}

ShellOutcome ShellRenameFile(const QString &oldPath, const QString &newPath, ShellPrompts &prompts)
{
    const QByteArray from = hostPathOnDisk(oldPath);
    const QByteArray to = exactHostPath(newPath);
    const bool staysInFolder = hostPathOnDisk(FolderFromPath(oldPath)) == hostPathOnDisk(FolderFromPath(newPath));
    if (to.isEmpty() || to == from || !staysInFolder || !hostEntryExists(from) || isHostFolder(from) ||
        isHostFolder(to))
        return ShellOutcome::Failed;
    if (isSameEntry(from, to))
        return renameOntoItself(from, to, newPath, prompts);
    if (isSameFile(from, to)) // One is a link to the other: replacing would leave a link to nothing.
        return ShellOutcome::Failed;
    return commitAsking(newPath, Existing::Keep, prompts,
                        [&](Existing existing) { return renameEntry(from, to, existing); });
}
