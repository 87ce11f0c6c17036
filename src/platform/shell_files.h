// SPDX-License-Identifier: GPL-3.0-or-later
// Copying, deleting and renaming songs as a desktop does it: it asks before a file is replaced or thrown away, never
// replaces silently, and leaves every file as it was when something fails. Paths are the program's.
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
};

enum class ShellOutcome {
    Done,
    Declined, // The user said no, or stopped it.
    Failed,
};

/// Can a file have this name? Not "", ".", "..", nor one that holds a slash, a backslash or NUL, or is too long.
bool isPossibleName(const QString &name);

/// Copies a file, times and permissions kept; onto another file after asking. The copy appears when it is complete and
/// on the disk. A file is never copied onto itself, and no folder is made for it.
ShellOutcome ShellCopyFile(const QString &source, const QString &destination, ShellPrompts &prompts);

/// Moves a file to the trash after asking, or deletes it after asking once more where there is no trash. A link goes,
/// the file it leads to stays. Folders are refused.
ShellOutcome ShellDeleteFile(const QString &path, ShellPrompts &prompts);

/// Gives a file another name in its folder; in place of another file after asking.
ShellOutcome ShellRenameFile(const QString &oldPath, const QString &newPath, ShellPrompts &prompts);
