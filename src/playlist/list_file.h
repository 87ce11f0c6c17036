// SPDX-License-Identifier: GPL-3.0-or-later
// The play list's two text files: plain lines when written, comma-separated fields when read. So a name with a comma
// comes back as two items.
#pragma once

#include <QString>
#include <QStringList>

/// The fields of a list file's text. Blanks and line breaks before a field are skipped; a field that starts with a
/// double quote runs to the next one (or to the end), both dropped; any other ends at the next comma or line end. The
/// end-of-file characters (0x1A) that some editors put at the end are no field.
QStringList fieldsOf(QStringView text);

/// One line an item, each ended by carriage return and line feed; nothing is quoted.
QString linesOf(const QStringList &items);

/// The fields of a file; none when it is missing or cannot be read.
QStringList LoadListFile(const QString &path);

/// Replaces the file by the items. Without the folder, on a full disk, or when the file could not be read, the old
/// state stays.
void SaveListFile(const QString &path, const QStringList &items);
