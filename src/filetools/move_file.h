// SPDX-License-Identifier: GPL-3.0-or-later
// Moving a song to another folder: a copy, then the deletion of the source. At no moment is the song only in memory.
#pragma once

#include "platform/shell_files.h"

#include <QString>

/// Moves a file to a path that may be on another file system. Failed: the prompts were told why; both files are as they
/// were. An empty file is never moved. Declined: both are as they were, and the user knows.
ShellOutcome moveFile(const QString &source, const QString &destination, ShellPrompts &prompts);
