// SPDX-License-Identifier: GPL-3.0-or-later
// Copying, deleting and renaming songs as a desktop does it: it asks before a file is replaced or thrown away, never
// replaces silently, and leaves every file as it was when something fails. Paths are the program's, spelled exactly:
// the file that is named or none.
#pragma once

#include <QString>

/// Who asks the user. The questions are a window's; a test answers them beforehand.
class ShellPrompts
{
public:
    virtual ~ShellPrompts() = default;

    /// May the file of this path be replaced?
    virtual bool mayReplace(const QString &path) = 0;

    /// May it go to the trash?
    virtual bool mayTrash(const QString &path) = 0;

    /// There is no trash that could take it: may it be deleted for good?
    virtual bool mayDeleteForGood(const QString &path) = 0;

    /// Called with a copy's progress in bytes, at most ten times a second; shows a progress window once the copy has
    /// lasted a second. False stops the copy.
    virtual bool copyGoesOn(const QString &path, qint64 done, qint64 total) = 0;

    /// Told once when the work failed: what could not be done, and why.
    virtual void showFailure(const QString &text) { Q_UNUSED(text) }
};

enum class ShellOutcome {
    Done,
    Declined, // The user said no, or stopped it.
    Failed,
};

/// Can a file have this name? Not "", ".", "..", nor one that holds a slash, a backslash or NUL, or is too long.
bool isPossibleName(const QString &name);

enum class Source { Stays, Goes }; // Of a copy, once that is in place.

/// Copies a file, times and permissions kept; onto another file after asking. The copy appears when it is complete and
/// on the disk. A file is never copied onto itself, and no folder is made for it. Where the source is to go and cannot,
/// the copy goes again.
ShellOutcome ShellCopyFile(const QString &source, const QString &destination, ShellPrompts &prompts,
                           Source sourceAfter = Source::Stays);

/// Moves a file to the trash after asking, or deletes it after asking once more where there is no trash. A link goes,
/// the file it leads to stays. Folders are refused. For a file that is gone already nothing is shown.
ShellOutcome ShellDeleteFile(const QString &path, ShellPrompts &prompts);

/// Removes what players that were killed left behind in a folder, or in the trash for its files; nothing else.
void tidyFolder(const QString &folder);
void tidyTrash(const QString &folder);

/// Gives a file another name in its folder; in place of another file after asking.
ShellOutcome ShellRenameFile(const QString &oldPath, const QString &newPath, ShellPrompts &prompts);

/// Moves a file to a path that may be on another file system. Failed: the prompts have shown why; both files are as
/// they were. An empty file is never moved. Declined: both are as they were, and the user knows.
ShellOutcome moveFile(const QString &source, const QString &destination, ShellPrompts &prompts);
