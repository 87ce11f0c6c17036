// SPDX-License-Identifier: GPL-3.0-or-later
// Texts: cutting them at blanks, NULs and whole characters, and play times as people read them.
#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringView>

#include <algorithm>
#include <cstdint>

/// The text before its first NUL: some programs pad with them, and what follows is none of the text.
QStringView untilNul(QStringView text);

/// Is every byte a character of ASCII?
inline bool isAscii(QByteArrayView bytes)
{
    return std::none_of(bytes.begin(), bytes.end(), [](char byte) { return byte & 0x80; });
}

using CharacterTest = bool (*)(QChar);

/// Is it the space? Tabs, NULs and the like are not blanks: they belong to a name or a tag.
constexpr bool isBlank(QChar character)
{
    return character == u' ';
}

/// The text without the blanks at its start, at its end, or both.
QStringView withoutBlanksBefore(QStringView text, CharacterTest blank = isBlank);
QStringView withoutBlanksAfter(QStringView text, CharacterTest blank = isBlank);
QStringView withoutBlanks(QStringView text, CharacterTest blank = isBlank);

/// How many code units the character at a position has: 2 for a surrogate pair, else 1, a lone surrogate too.
inline qsizetype characterLength(QStringView text, qsizetype at)
{
    const bool isPair = text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
    return isPair ? 2 : 1;
}

/// The start of a text, at most so many code units long; a surrogate pair is never cut in two.
QStringView wholeCharacters(QStringView text, qsizetype most);

/// The text as it may stand in a line: blanks in place of what would break the line, what a terminal would obey, and
/// the marks that turn the text around them.
QString inOneLine(QString text);

/// m:ss, or h:mm:ss from an hour on. Negative seconds divide toward zero and keep their sign in each place ("0:-5").
QString FormatPlayTime(std::int32_t seconds);
