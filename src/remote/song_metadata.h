// SPDX-License-Identifier: GPL-3.0-or-later
// What is told of a song over the desktop's bus, and how files are named there.
#pragma once

#include <QString>
#include <QVariantMap>

/// A song's data by their names on the bus: its address and title, and what else its tag has. The title is the tag's,
/// or the file name without its ending. Reads the file; a missing one has a title all the same.
QVariantMap songMetadata(const QString &path);

/// "file://…" of a program path, byte by byte as the host names the file; "" where the host has no such path.
QString fileAddress(const QString &path);

/// The program path of a file's address, or of a plain path that begins with a slash; "" for everything else.
QString pathOfAddress(const QString &address);
