// SPDX-License-Identifier: GPL-3.0-or-later
// What the session bus learns of a song.
#pragma once

#include <QString>
#include <QVariantMap>

/// A song's data by their names on the bus: its URI and title, and what else its tag has. The title is the tag's,
/// or the file name without its ending. Reads the file; a missing one has a title all the same.
QVariantMap songMetadata(const QString &path);
