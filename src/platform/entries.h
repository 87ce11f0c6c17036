// SPDX-License-Identifier: GPL-3.0-or-later
// Entries of the host's folders, whatever they are: listing them, telling them apart, renaming, removing. Paths are the
// host's.
#pragma once

#include <QByteArray>
#include <QList>

enum class Existing { Keep, Replace };                 // What happens to a file that has the name already.
enum class RenameResult { Done, OtherExists, Failed }; // How giving a name ended.

/// Is there such an entry? A link counts, wherever it leads.
bool hostEntryExists(const QByteArray &path);

/// The names of all entries of a folder, "." and ".." too, unsorted; empty for a folder that cannot be read.
QList<QByteArray> hostEntries(const QByteArray &folder);

/// Do both paths lead to one file, through links too?
bool isSameFile(const QByteArray &first, const QByteArray &second);

/// Are both paths the very same entry or hard links of one file? Symbolic links are not followed.
bool isSameEntry(const QByteArray &first, const QByteArray &second);

/// Does the path lead to a folder?
bool isHostFolder(const QByteArray &path);

/// Gives an entry another name in the same file system. With Existing::Keep nothing is ever replaced, not even a file
/// that appears at the same moment.
RenameResult renameEntry(const QByteArray &from, const QByteArray &to, Existing existing);

/// Removes an entry for good: a link, not the file it leads to; never a folder.
bool removeEntry(const QByteArray &path);
