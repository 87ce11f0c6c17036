// SPDX-License-Identifier: GPL-3.0-or-later
// The ID3v1 tag: the last 128 bytes of a file. "TAG", then title, artist, album (30 bytes each), year (4), comment (30)
// in Windows-1252, then the genre's number. Knows the block and the names of the genres; finding the block in a file is
// left to the caller.
#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <optional>

/// The fields of a tag. Read fields have their full width: padding, be it blanks or NULs, is part of the text.
struct Id3v1Tag {
    QString title;
    QString artist;
    QString album;
    QString year;
    QString comment;
    std::uint8_t genre = 12; // "Other".
};

constexpr qsizetype tagBlockSize = 128;
constexpr qsizetype tagMarkerSize = 3;
constexpr qsizetype tagTextWidth = 30; // Title, artist, album and comment.
constexpr qsizetype tagYearWidth = 4;

/// Do the bytes begin with "TAG", in any case of letters?
bool beginsTag(QByteArrayView bytes);

/// The fields of a block of 128 bytes; nothing when it is shorter or no tag.
std::optional<Id3v1Tag> parseTagBlock(QByteArrayView block);

/// The 128 bytes of a tag. Texts are cut to their width and padded with blanks; a character that Windows-1252 lacks
/// becomes "?".
QByteArray buildTagBlock(const Id3v1Tag &tag);

/// A text as a field of that width holds it, in bytes: cut or padded with blanks.
QByteArray tagField(QStringView text, qsizetype width);

/// The list of genres: an empty entry for "no genre", then the names. The tag editor has a list of its own.
constexpr int genreEntryCount = 149;

/// The list's entry at a position: 0 is the empty text, n + 1 the name of genre n (0 to 147); "" beyond the list.
QString genreText(int position);

/// The position of a genre number in the list: 0, the empty entry, for numbers without a name.
int genrePosition(int genre);
