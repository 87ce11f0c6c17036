// SPDX-License-Identifier: GPL-3.0-or-later
#include "filetools/move_file.h"

#include "platform/drives.h"
#include "platform/folders.h"

using namespace Qt::StringLiterals;

ShellOutcome moveFile(const QString &source, const QString &destination, ShellPrompts &prompts)
{
    if (fileLength(source) != 0)
        return ShellCopyFile(source, destination, prompts, Source::Goes);
    prompts.tellFailure(u"%1 cannot be moved: it is empty."_s.arg(displayPath(source)));
    return ShellOutcome::Failed;
}
