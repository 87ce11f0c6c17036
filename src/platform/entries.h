// SPDX-License-Identifier: GPL-3.0-or-later
// Entries of the host's folders, whatever they are: listing them, telling them apart, renaming, removing. Paths are the
// host's.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

enum class Existing { Keep, Replace, SetAside };       // What happens to a file that has the name already.
enum class Presence { There, Missing, Unknown };       // Unknown: the host failed to tell.
enum class RenameResult { Done, OtherExists, Failed }; // How taking a name ended.

/// The path up to its last slash, that one too; empty for a bare name.
QByteArray hostFolderOf(const QByteArray &path);

/// Is there such an entry? A link counts, wherever it leads.
Presence hostEntry(const QByteArray &path);
bool hostEntryExists(const QByteArray &path);

/// Is it a normal file? A link is none.
bool isNormalEntry(const QByteArray &path);

/// The names of all entries of a folder that begin so, "." and ".." too, unsorted; none of a missing folder, nothing
/// when it cannot be read.
std::optional<QList<QByteArray>> hostEntries(const QByteArray &folder, QByteArrayView beginning = {});

/// Which file it is, whatever it is called.
struct FileIdentity {
    quint64 device;
    quint64 number;

    bool operator==(const FileIdentity &) const = default;
};

/// The file that a path leads to, through links too; nothing when there is none.
std::optional<FileIdentity> fileIdentity(const QByteArray &path);

/// Do both paths lead to one file, through links too?
bool isSameFile(const QByteArray &first, const QByteArray &second);

/// Are both paths the very same entry or hard links of one file? Symbolic links are not followed.
bool isSameEntry(const QByteArray &first, const QByteArray &second);

enum class Others { MayChange, MayNotChange };

/// Makes a folder for the user alone where it is missing. False, and errno tells why, when what is there is no folder
/// of the user's own, or is one that others may change and may not.
bool haveOwnFolder(const QByteArray &path, Others others);

/// Does the path lead to a folder?
bool isHostFolder(const QByteArray &path);

/// The path with all links followed; empty when there is no such entry.
QByteArray realPath(const QByteArray &path);

/// Why the last work on entries failed, as people say it.
QString hostErrorText();

/// May entries of the folder be made, renamed and removed? When not, hostErrorText() tells why.
bool mayChangeEntries(const QByteArray &folder);

/// Gives an entry another name in the same file system. With Existing::Keep nothing is ever replaced, not even a file
/// that appears at the same moment; else what has the name goes.
RenameResult renameEntry(const QByteArray &from, const QByteArray &to, Existing existing);

/// Gives two entries each other's name. False, and nothing has changed, where the file system cannot.
bool exchangeEntries(const QByteArray &first, const QByteArray &second);

/// Removes an entry for good: a link, not the file it leads to; never a folder.
bool removeEntry(const QByteArray &path);
