// SPDX-License-Identifier: GPL-3.0-or-later
// The ID3v2 tag at a song's start, read by libmpg123.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

struct Id3v2Tag {
    QHash<QByteArray, QStringList>
        texts; // By the frames' names in versions 2.3 and 2.4: "TIT2", "TPE1". None is empty.
    QString comment;
    QByteArray picture; // The file of the front cover, else of the first picture; empty without one.
};

/// Reads a tag of version 2.2, 2.3 or 2.4 from its first byte on. What is missing at its end, or is damaged, is left
/// out; without libmpg123 all of it is.
Id3v2Tag readId3v2Tag(const QByteArray &tag);
