// SPDX-License-Identifier: GPL-3.0-or-later
// Windows-1252: the one codec for tag bytes and for the player's own text files.
#pragma once

#include <QByteArray>
#include <QString>

/// One byte a character; "?" for what Windows-1252 lacks.
QByteArray toAnsi(QStringView text);

/// Can every character of text be written in Windows-1252?
bool fitsAnsi(QStringView text);

/// The text of Windows-1252 bytes; every byte has a character, so that toAnsi() gives the same bytes back.
QString fromAnsi(QByteArrayView bytes);

/// A whole text file: Windows-1252 where it can hold the text and is not taken for UTF-8, else UTF-8 with a byte-order
/// mark; bytes of file names that are no UTF-8 stay as they are.
QByteArray encodeTextFile(const QString &text);

/// The text of such a file. Without a mark it is UTF-8 if it is valid as such and has more than ASCII, as people's
/// editors write it; else Windows-1252.
QString decodeTextFile(QByteArrayView bytes);
