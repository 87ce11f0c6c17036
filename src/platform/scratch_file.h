// SPDX-License-Identifier: GPL-3.0-or-later
// A new file under a hidden name, until it is complete and takes its real one. Paths are the host's.
#pragma once

#include "platform/entries.h"
#include "platform/handle_unix.h"

#include <QByteArrayView>

#include <optional>
#include <sys/types.h>

/// It vanishes unless it takes a name. A lock tells that its program lives: what a program left that was killed is
/// removed by the next one that works in the folder.
class ScratchFile
{
public:
    /// An empty file in the folder. Nothing when it could not be made; errno tells why.
    static std::optional<ScratchFile> make(const QByteArray &folder, mode_t permissions);

    ScratchFile(ScratchFile &&other) noexcept;
    ScratchFile &operator=(ScratchFile &&) = delete;
    ScratchFile(const ScratchFile &) = delete;
    ScratchFile &operator=(const ScratchFile &) = delete;
    ~ScratchFile();

    /// Open for reading and writing.
    int handle() const { return m_file.get(); }

    /// Waits until all that was written is on the disk. False: it is not.
    bool finish();

    /// Puts the file in place. After OtherExists it may be called again. What it replaces with Existing::SetAside is
    /// gone for good when this object goes.
    RenameResult commit(const QByteArray &destination, Existing existing);

    /// Takes the name away again and gives it back to the file that was set aside. False: it stays.
    bool undo();

private:
    ScratchFile(Handle file, const QByteArray &hiddenName);

    Handle m_file;
    QByteArray m_hiddenName; // Of the file itself, later of the one it has set aside; empty when there is neither.
    QByteArray m_name;       // Once it is in place.
};

/// Writes all bytes at the place where the file stands. False when it failed.
bool writeAll(int handle, QByteArrayView bytes);

/// Removes what programs that were killed have left in the folder; nothing else, and nothing of a living one.
void removeScratchFiles(const QByteArray &folder);

/// The same for one entry, for somebody who goes through the folder anyway.
void removeIfScratchFile(const QByteArray &folder, const QByteArray &name);
