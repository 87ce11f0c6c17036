// SPDX-License-Identifier: GPL-3.0-or-later
// The trash of the desktop, as freedesktop.org describes it: one in the user's home, one on each other file system.
// Paths are the host's.
#pragma once

#include <QByteArray>

/// Moves a file, a folder, or a link itself, to the trash of its file system, from where the desktop can restore it.
/// False, and nothing has changed, when there is none that takes it; errno tells why. Never copies, never tries without
/// end. An entry that had another name in its folder is brought back under that.
bool moveToTrash(const QByteArray &path, const QByteArray &nameBefore = {});

/// Removes the notes of files that never came, from the trash for files of the folder: what a program left that was
/// killed in the middle of moveToTrash().
void removeTrashLeftovers(const QByteArray &folder);
