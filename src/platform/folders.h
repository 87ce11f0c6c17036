// SPDX-License-Identifier: GPL-3.0-or-later
// Folders and their entries, and the few questions about files that need no opening. Paths are the program's.
#pragma once

#include "base/name_list.h"

#include <QString>
#include <QStringList>

#include <optional>

/// False for ""; for a path that ends in a backslash: does the folder hold at least one normal file; else: is there a
/// normal file (not a folder) of that name. Errors count as False.
bool FileExists(const QString &path);

/// Is there a folder of that name?
bool folderExists(const QString &path);

/// Do both paths lead to one folder, through links too? Not when it is missing.
bool isSameFolder(const QString &first, const QString &second);

/// The length in bytes of a normal file; nothing when there is none.
std::optional<qint64> fileLength(const QString &path);

/// Names of the normal files in a folder whose extension is one of the given ones, whatever its case ({} takes all);
/// hidden ones are left out. Unsorted. Empty for a folder that cannot be read. What a player that was killed has left
/// in the folder goes on the way.
NameList filesIn(const QString &folder, const QStringList &extensions = {});

/// Is there at least one such file? Stops reading at the first.
bool holdsFile(const QString &folder, const QStringList &extensions = {});

/// Names of the folders in a folder, hidden ones left out, unsorted. Empty for a folder that cannot be read.
NameList foldersIn(const QString &folder);

/// Creates one missing folder level; a folder that exists or cannot be made changes nothing.
void MakeFolder(const QString &path);

/// "Read Only" for a normal file its owner may not write; "Normal" for all else, a missing file too.
QString FileAttributeText(const QString &path);
