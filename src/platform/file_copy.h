// SPDX-License-Identifier: GPL-3.0-or-later
// Files that appear or shrink at once or not at all, so that neither a crash nor a full disk leaves half a song under a
// song's name. Paths are the host's unless said otherwise; nothing is asked here (see shell_files).
#pragma once

#include "platform/entries.h"
#include "platform/scratch_file.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <optional>

enum class FileTimes { Kept, Fresh }; // Does the copy carry the times of its source?

/// Called with the bytes done and all bytes, at most ten times a second; false stops the copy.
using CopyWatcher = std::function<bool(qint64 done, qint64 total)>;

/// The copy of a file, complete and on the disk under a hidden name beside its destination. It vanishes again unless
/// it takes the destination's name.
class PendingCopy
{
public:
    /// Copies the first length bytes (all of them without a length), permissions and, as far as allowed, owner and
    /// extended attributes. Nothing when it failed (hostErrorText() tells why) or was stopped; then no trace is left.
    static std::optional<PendingCopy> make(const QByteArray &source, const QByteArray &destination, FileTimes times,
                                           std::optional<qint64> length = {}, const CopyWatcher &watcher = {});

    /// Puts the copy in place. After OtherExists it may be called again.
    RenameResult commit(Existing existing) { return m_file.commit(m_destination, existing); }

    /// Undoes that; what was set aside has the name again.
    bool undo() { return m_file.undo(); }

private:
    PendingCopy(ScratchFile file, const QByteArray &destination);

    ScratchFile m_file;
    QByteArray m_destination;
};

/// Cuts a file of the program's paths to its first length bytes: the shortened copy is complete on the disk before
/// the old file goes. A link stays, the file it leads to is shortened; permissions stay. False: nothing has changed.
bool shortenFile(const QString &path, qint64 length);
