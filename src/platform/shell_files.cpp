// SPDX-License-Identifier: GPL-3.0-or-later
// What must be atomic is in file_copy.
#include "platform/shell_files.h"

#include "base/names.h"
#include "platform/drives.h"
#include "platform/entries.h"
#include "platform/file_copy.h"
#include "platform/file_names.h"
#include "platform/folders.h"
#include "platform/trash.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
// The host path of a name that may be new. Empty for an impossible one.
QByteArray possiblePath(const QString &path)
{
    return isPossibleName(FileNameFromPath(path)) ? hostPath(path) : QByteArray();
}

ShellOutcome showFailure(ShellPrompts &prompts, const QString &path, const QString &work,
                         const QString &reason = hostErrorText())
{
    prompts.showFailure(u"%1 cannot be %2: %3."_s.arg(displayPath(path), work, reason));
    return ShellOutcome::Failed;
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

QString firstSaid(const QStringList &reasons)
{
    const auto said = std::find_if(reasons.begin(), reasons.end(), [](const QString &text) { return !text.isEmpty(); });
    return said == reasons.end() ? QString() : *said;
}

// Each says why something is impossible from the start; "" when it is not.
QString whyNoFile(const QByteArray &path)
{
    if (path.isEmpty() || hostEntry(path) == Presence::Missing)
        return u"there is no such file"_s;
    return isHostFolder(path) ? u"it is a folder"_s : QString();
}

QString whyNoChange(const QByteArray &path)
{
    return mayChangeEntries(hostFolderOf(path)) ? QString() : hostErrorText();
}

QString whyNoName(const QByteArray &path)
{
    if (path.isEmpty())
        return u"no file can have that name"_s;
    return isHostFolder(path) ? u"a folder has that name"_s : QString();
}

QString whyNoCopy(const QByteArray &from, const QByteArray &to, Source sourceAfter)
{
    const QString sameFile = isSameFile(from, to) ? u"it is there already"_s : QString();
    const QString fixedSource = sourceAfter == Source::Goes ? whyNoChange(from) : QString();
    return firstSaid({whyNoFile(from), whyNoName(to), sameFile, fixedSource});
}

QString whyNoRename(const QByteArray &from, const QByteArray &to)
{
    const QString otherFolder = hostFolderOf(from) != hostFolderOf(to) ? whyNoName({}) : QString();
    // One may be a link to the other: replacing would leave a link to nothing.
    const bool isNoChange = to == from || (isSameFile(from, to) && !isSameEntry(from, to));
    const QString sameFile = isNoChange ? u"it is the file of that name"_s : QString();
    return firstSaid({whyNoFile(from), whyNoName(to), otherFolder, sameFile, whyNoChange(from)});
}

// Does the folder of a path list its name with this very spelling?
bool isListed(const QByteArray &path)
{
    const QByteArray folder = hostFolderOf(path);
    const auto entries = hostEntries(folder);
    return entries && entries->contains(path.sliced(folder.size()));
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
} // namespace

bool isPossibleName(const QString &name)
{
    const bool hasSeparator =
        std::any_of(name.begin(), name.end(), [](QChar c) { return c == u'/' || c == u'\\' || c.isNull(); });
    return !name.isEmpty() && name != u"."_s && name != u".."_s && !hasSeparator &&
           nameToHost(name).size() <= longestHostName;
}

ShellOutcome ShellCopyFile(const QString &source, const QString &destination, ShellPrompts &prompts, Source sourceAfter)
{
    const QByteArray from = hostPath(source);
    const QByteArray to = possiblePath(destination);
    const bool goes = sourceAfter == Source::Goes;
    const QString work = goes ? u"moved"_s : u"copied"_s;
    const QString refusal = whyNoCopy(from, to, sourceAfter);
    if (!refusal.isEmpty())
        return showFailure(prompts, source, work, refusal);
    const bool replaces = hostEntryExists(to);
    if (replaces && !prompts.mayReplace(destination))
        return ShellOutcome::Declined;

    bool goesOn = true;
    auto copy = PendingCopy::make(from, to, FileTimes::Kept, {}, [&](qint64 done, qint64 total) {
        goesOn = prompts.copyGoesOn(source, done, total);
        return goesOn;
    });
    if (!copy)
        return goesOn ? showFailure(prompts, source, work) : ShellOutcome::Declined;
    const Existing replaced = goes ? Existing::SetAside : Existing::Replace;
    const ShellOutcome outcome = commitAsking(destination, replaces ? replaced : Existing::Keep, prompts,
                                              [&](Existing existing) { return copy->commit(existing); });
    if (outcome == ShellOutcome::Failed)
        return showFailure(prompts, source, work);
    if (outcome != ShellOutcome::Done || !goes || removeEntry(from))
        return outcome;
    const QString reason = hostErrorText();
    copy->undo();
    return showFailure(prompts, source, work, reason);
}

ShellOutcome ShellDeleteFile(const QString &path, ShellPrompts &prompts)
{
    const QByteArray file = hostPath(path);
    if (file.isEmpty() || hostEntry(file) == Presence::Missing || isHostFolder(file))
        return ShellOutcome::Failed;
    const QString refusal = whyNoChange(file);
    if (!refusal.isEmpty())
        return showFailure(prompts, path, u"deleted"_s, refusal);
    if (!prompts.mayTrash(path))
        return ShellOutcome::Declined;
    if (moveToTrash(file))
        return ShellOutcome::Done;
    if (!prompts.mayDeleteForGood(path))
        return ShellOutcome::Declined;
    return removeEntry(file) ? ShellOutcome::Done : showFailure(prompts, path, u"deleted"_s);
}

ShellOutcome ShellRenameFile(const QString &oldPath, const QString &newPath, ShellPrompts &prompts)
{
    const QByteArray from = hostPath(oldPath);
    const QByteArray to = possiblePath(newPath);
    const QString refusal = whyNoRename(from, to);
    if (!refusal.isEmpty())
        return showFailure(prompts, oldPath, u"renamed"_s, refusal);
    const ShellOutcome outcome = isSameEntry(from, to)
                                     ? renameOntoItself(from, to, newPath, prompts)
                                     : commitAsking(newPath, Existing::Keep, prompts,
                                                    [&](Existing existing) { return renameEntry(from, to, existing); });
    return outcome == ShellOutcome::Failed ? showFailure(prompts, oldPath, u"renamed"_s) : outcome;
}

ShellOutcome moveFile(const QString &source, const QString &destination, ShellPrompts &prompts)
{
    if (fileLength(source) != 0)
        return ShellCopyFile(source, destination, prompts, Source::Goes);
    prompts.showFailure(u"%1 cannot be moved: it is empty."_s.arg(displayPath(source)));
    return ShellOutcome::Failed;
}

void tidyFolder(const QString &folder)
{
    removeScratchFiles(hostPathOnDisk(folder) + '/');
}

void tidyTrash(const QString &folder)
{
    removeTrashLeftovers(hostPathOnDisk(folder));
}
