// SPDX-License-Identifier: GPL-3.0-or-later
// Small files as a whole: read at once, written at once or not at all.
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// The bytes of a normal file; nothing when it is missing or cannot be read.
std::optional<QByteArray> loadFile(const QString &path);

/// Replaces the file, or leaves the old one as it was: the new bytes are complete on the disk before they take its
/// name. Creates no folder. False when nothing was written.
bool saveFile(const QString &path, QByteArrayView bytes);
