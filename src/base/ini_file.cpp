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

// The key before the sign of equality; nothing for a comment, a heading and a line without one.
std::optional<QStringView> keyIn(QStringView line)
{
    const QStringView content = trimmed(line);
    const qsizetype equals = content.indexOf(u'=');
    if (equals < 0 || content.startsWith(u';') || nameInBrackets(content))
        return std::nullopt;
    return trimmed(content.first(equals));
}

QStringView textOf(QStringView text, const Line &line)
{
    return text.sliced(line.start, line.end - line.start);
}

// Visits the lines of the first section of that name, its heading first and blank ones left out, for as long as visit
// says true. A second section of the name is never looked at.
void visitSection(QStringView text, QStringView section, auto visit)
{
    bool isInside = false;
    for (Line line; line.start < text.size(); line.start = line.next) {
        line = lineAt(text, line.start);
        const QStringView content = trimmed(textOf(text, line));
        const auto name = nameInBrackets(content);
        if (name && isInside)
            return;
        isInside = isInside || (name && name->compare(section, Qt::CaseInsensitive) == 0);
        if (isInside && !content.isEmpty() && !visit(line))
            return;
    }
}

Place findPlace(QStringView text, QStringView section, QStringView key)
{
    Place place;
    visitSection(text, section, [&](const Line &line) {
        place.sectionEnd = line.next;
        const auto found = keyIn(textOf(text, line));
        if (found && found->compare(key, Qt::CaseInsensitive) == 0)
            place.keyLine = line;
        return !place.keyLine;
    });
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
    const QStringView content = textOf(text, *line);
    const QStringView value = trimmed(content.sliced(content.indexOf(u'=') + 1));
    return withoutQuotes(untilNul(value)).left(longestIniValue).toString();
}

QStringList iniKeys(QStringView text, QStringView section)
{
    QStringList keys;
    visitSection(text, section, [&](const Line &line) {
        if (const auto key = keyIn(textOf(text, line)); key && !key->isEmpty())
            keys += key->toString();
        return true;
    });
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
