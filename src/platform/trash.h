// SPDX-License-Identifier: GPL-3.0-or-later
// The trash of the desktop, as freedesktop.org describes it: one in the user's home, one on each other file system.
// Paths are the host's.
#pragma once

#include <QByteArray>

/// Moves a file, or a link itself, to the trash of its file system, from where the desktop can restore it. False, and
/// nothing has changed, when there is none that takes it; errno tells why. Never copies, never tries without end.
bool moveToTrash(const QByteArray &path);

/// Removes the notes of files that never came, from the trash for files of the folder: what a program left that was
/// killed in the middle of moveToTrash().
void removeTrashLeftovers(const QByteArray &folder);
