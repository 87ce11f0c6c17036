// SPDX-License-Identifier: GPL-3.0-or-later
// INI texts, read line by line without copying: a line ends with CR LF, LF or CR alone.
#include "base/ini_file.h"

#include "base/texts.h"

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace
{
// One line of the text: where it starts, where its text ends, where the next one starts.
struct Line {
    qsizetype start = 0;
    qsizetype end = 0;
    qsizetype next = 0;
};

// Where a key is, or where it would go.
struct Place {
    std::optional<Line> keyLine;
    std::optional<qsizetype> sectionEnd; // After the last line of the section that is not blank.
};

bool endsLine(QChar character)
{
    return character == u'\r' || character == u'\n';
}

// Blanks are everything up to the space, zero bytes of a torn file too, but no character that a name may hold.
bool isPadding(QChar character)
{
    return character <= u' ';
}

QStringView trimmed(QStringView text)
{
    return withoutBlanks(text, isPadding);
}

QStringView withoutQuotes(QStringView text)
{
    const bool quoted = text.size() >= 2 && text.front() == text.back() && (text[0] == u'"' || text[0] == u'\'');
    return quoted ? text.sliced(1, text.size() - 2) : text;
}

Line lineAt(QStringView text, qsizetype start)
{
    const auto from = text.begin() + start;
    const qsizetype end = std::find_if(from, text.end(), endsLine) - text.begin();
    if (end == text.size())
        return {start, end, end};
    const bool pair = text[end] == u'\r' && end + 1 < text.size() && text[end + 1] == u'\n';
    return {start, end, end + (pair ? 2 : 1)};
}

// The name in square brackets; nothing for a line that heads no section.
std::optional<QStringView> nameInBrackets(QStringView line)
{
    const QStringView header = trimmed(line);
    const qsizetype close = header.indexOf(u']');
    if (!header.startsWith(u'[') || close < 0)
        return std::nullopt;
    return trimmed(header.sliced(1, close - 1));
}

bool isKey(QStringView line, QStringView key)
{
    const qsizetype equals = line.indexOf(u'=');
    return equals >= 0 && trimmed(line.first(equals)).compare(key, Qt::CaseInsensitive) == 0;
}

Place findPlace(QStringView text, QStringView section, QStringView key)
{
    Place place;
    for (Line line; line.start < text.size(); line.start = line.next) {
        line = lineAt(text, line.start);
        const QStringView content = trimmed(text.sliced(line.start, line.end - line.start));
        const auto name = nameInBrackets(content);
        if (name && place.sectionEnd)
            return place; // A second section of the name is never looked at.
        if (name && name->compare(section, Qt::CaseInsensitive) == 0)
            place.sectionEnd = line.next;
        if (name || !place.sectionEnd || content.isEmpty())
            continue;
        place.sectionEnd = line.next;
        if (!content.startsWith(u';') && isKey(content, key)) {
            place.keyLine = line;
            return place;
        }
    }
    return place;
}

// The line end the text uses, seen at its first line.
QString lineEndOf(QStringView text)
{
    const Line first = lineAt(text, 0);
    return first.next == first.end ? u"\r\n"_s : text.sliced(first.end, first.next - first.end).toString();
}

QString onOneLine(QString value)
{
    std::replace_if(
        value.begin(), value.end(), [](QChar c) { return endsLine(c) || c.isNull(); }, u' ');
    return value;
}

// What a line of the value comes back as: without its blanks, or without its own quotation marks.
QStringView asRead(QStringView value)
{
    return withoutQuotes(trimmed(value));
}

// In quotation marks where the value would not come back as it is.
QString asWritten(const QString &value)
{
    return asRead(value) == value ? value : u'"' + value + u'"';
}
} // namespace

QString iniValue(QStringView text, QStringView section, QStringView key)
{
    const auto line = findPlace(text, section, key).keyLine;
    if (!line)
        return {};
    const QStringView content = text.sliced(line->start, line->end - line->start);
    const QStringView value = trimmed(content.sliced(content.indexOf(u'=') + 1));
    return withoutQuotes(untilNul(value)).left(longestIniValue).toString();
}

QStringList iniKeys(QStringView text, QStringView section)
{
    QStringList keys;
    bool isInside = false;
    bool isOver = false;
    for (Line line; line.start < text.size() && !isOver; line.start = line.next) {
        line = lineAt(text, line.start);
        const QStringView content = trimmed(text.sliced(line.start, line.end - line.start));
        const qsizetype equals = content.indexOf(u'=');
        if (const auto name = nameInBrackets(content)) {
            isOver = isInside;
            isInside = name->compare(section, Qt::CaseInsensitive) == 0;
        } else if (isInside && equals > 0 && !content.startsWith(u';')) {
            keys += trimmed(content.first(equals)).toString();
        }
    }
    return keys;
}

QString withIniValue(const QString &text, QStringView section, QStringView key, const QString &value)
{
    const QString keyLine = key.toString() + u'=' + asWritten(onOneLine(value));
    const Place place = findPlace(text, section, key);
    QString changed = text;
    if (place.keyLine)
        return changed.replace(place.keyLine->start, place.keyLine->end - place.keyLine->start, keyLine);
    const QString lineEnd = lineEndOf(text);
    const qsizetype at = place.sectionEnd.value_or(text.size());
    const QString closing = at > 0 && !endsLine(text[at - 1]) ? lineEnd : QString();
    const QString header = place.sectionEnd ? QString() : u'[' + section.toString() + u']' + lineEnd;
    return changed.insert(at, closing + header + keyLine + lineEnd);
}
