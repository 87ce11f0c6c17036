// SPDX-License-Identifier: GPL-3.0-or-later
// A new folder under a hidden name, until it is complete and takes its real one. Paths are the host's.
#pragma once

#include "platform/entries.h"
#include "platform/handle_unix.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QList>

#include <optional>
#include <vector>

/// It vanishes unless it takes a name. A lock tells that its program lives: what a program left that was killed is
/// removed by the next one that makes such a folder there.
class ScratchFolder
{
public:
    /// An empty folder in a parent (with its slash), which is made where it is missing. These are the names that files
    /// in it can have. Nothing when it could not be made; errno tells why.
    static std::optional<ScratchFolder> make(const QByteArray &parent, const QList<QByteArray> &names);

    ScratchFolder(ScratchFolder &&other) noexcept;
    ScratchFolder &operator=(ScratchFolder &&) = delete;
    ScratchFolder(const ScratchFolder &) = delete;
    ScratchFolder &operator=(const ScratchFolder &) = delete;
    ~ScratchFolder();

    /// Puts a file of one of the names into it. False when it failed; errno tells why.
    bool write(const QByteArray &name, QByteArrayView bytes);

    /// Puts the folder in place, once all of it is on the disk. What it replaces with Existing::Replace goes to the
    /// trash, whatever it is; where that fails all is as it was, and errno tells why.
    RenameResult commit(const QByteArray &destination, Existing existing);

private:
    ScratchFolder(Handle folder, const QByteArray &path, const QList<QByteArray> &names);
    bool flush();
    bool replace(const QByteArray &destination);

    Handle m_folder;
    QByteArray m_path; // Empty once it is in place.
    QList<QByteArray> m_names;
    std::vector<Handle> m_files; // Those that are not known to be on the disk.
};
