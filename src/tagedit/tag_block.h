// SPDX-License-Identifier: GPL-3.0-or-later
// The tag at the end of a song as the tag editor reads, adds, saves and removes it. The block itself is mp3info's.
// No step puts the song at risk: what is on the disk is never without its audio, whenever the program ends. A step that
// returns false has changed nothing, unless the disk itself failed to keep what it had taken.
#pragma once

#include "mp3info/id3v1_tag.h"

#include <QString>

#include <optional>

struct TagReading {
    bool isDone = false;         // The file is there and could be read.
    std::optional<Id3v1Tag> tag; // Without blanks around its texts.
};

/// What the song holds. Of a file that could not be read nothing is known, not even whether it has a tag.
TagReading readTag(const QString &path);

/// What the editor offers for a song that has just got its tag: artist and title parted at the first hyphen of the
/// song's name, and no genre.
Id3v1Tag tagFromName(const QString &songName);

/// Appends an empty tag without a genre. The file grows by 128 bytes and its former last byte becomes 0; an empty
/// file has no such byte.
bool addTag(const QString &path);

/// Writes the tag over the last 128 bytes, whatever they are. False for a shorter file too.
bool saveTag(const QString &path, const Id3v1Tag &tag);

/// Cuts off the last 128 bytes, whatever they are; permissions stay. False for a shorter file too.
bool removeTag(const QString &path);
