// SPDX-License-Identifier: GPL-3.0-or-later
#include "filetools/move_file.h"

#include "platform/folders.h"

ShellOutcome moveFile(const QString &source, const QString &destination, ShellPrompts &prompts)
{
    // The length at the destination alone says nothing: it may be the source itself, or a file the user kept.
    const ShellOutcome copied = ShellCopyFile(source, destination, prompts);
    if (copied != ShellOutcome::Done)
        return copied;
    if (fileLength(destination).value_or(0) < 1) {
        removeFile(destination);
        return ShellOutcome::Failed;
    }
    removeFile(source); // Where it cannot be deleted there are two songs, and none is lost.
    return ShellOutcome::Done;
}
