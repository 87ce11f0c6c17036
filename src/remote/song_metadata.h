// SPDX-License-Identifier: GPL-3.0-or-later
// What the session bus learns of a song.
#pragma once

#include <QString>
#include <QVariantMap>

class CoverFiles;

/// A song's data by their names on the bus: its URI, and what its ID3v2 tag says, else its ID3v1 tag, else its title by
/// the file name without its ending; the cover of the tag, else the folder's. Reads the file, of a huge tag only the
/// start. A missing one has a title all the same.
QVariantMap songMetadata(const QString &path, CoverFiles &covers);

/// The names of the genres in a tag's genre text: "(17)" and "17" are numbers of a list, "(4)Own" says both
/// ways, "((" begins a plain name with a parenthesis.
QStringList genresOf(const QString &text);
