// SPDX-License-Identifier: GPL-3.0-or-later
#include "filetools/tidy_names.h"

#include "base/texts.h"
#include "platform/ansi_text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
constexpr int capitalDistance = 32;

// Character by character, since as a whole the bytes of a name that are no text (lone surrogates) would be lost.
QString inLowerCase(const QString &text)
{
    QString lower;
    for (qsizetype i = 0; i < text.size(); i += characterLength(text, i)) {
        const QString character = text.sliced(i, characterLength(text, i));
        const bool isLoneSurrogate = character.size() == 1 && character.front().isSurrogate();
        lower += isLoneSurrogate ? character : character.toLower();
    }
    return lower;
}

bool isSmallLetter(QChar character)
{
    return character >= u'a' && character <= u'z';
}

// Codes are single bytes; a character that has none, or none 32 below it, stays as it is.
QChar moved32Down(QChar character)
{
    if (!fitsAnsi(QStringView(&character, 1)))
        return character;
    const auto code = static_cast<unsigned char>(toAnsi(QStringView(&character, 1)).front());
    if (code < capitalDistance)
        return character;
    const char lower = static_cast<char>(code - capitalDistance);
    return fromAnsi(QByteArrayView(&lower, 1)).front();
}

void capitalize(QString &text, qsizetype at)
{
    if (at < text.size() && isSmallLetter(text[at]))
        text[at] = QChar(static_cast<char16_t>(text[at].unicode() - capitalDistance));
}

bool staysSmall(QStringView word)
{
    return word.startsWith(u"and") || word.startsWith(u"of ");
}

// Gives the word at start its capital; returns where the search for the next blank goes on.
qsizetype capitalizeWord(QString &text, qsizetype start)
{
    const bool bracket = start < text.size() && text[start] == u'(';
    if (bracket && start + 1 < text.size())
        text[start + 1] = moved32Down(text[start + 1]);
    else if (!staysSmall(QStringView(text).sliced(start)))
        capitalize(text, start);
    return bracket ? start + 1 : start;
}

QString withSpacedAmpersand(const QString &text)
{
    const qsizetype at = text.indexOf(u'&');
    if (at < 0 || text.contains(u" & "_s))
        return text;
    return text.first(at) + u" & "_s + text.sliced(at + 1);
}

constexpr qsizetype longestExtension = 4;

QString joined(QStringView left, QStringView right, QStringView end = {})
{
    return left.toString() + u" - "_s + right.toString() + end.toString();
}

// Where the extension begins, its dot included; the end of the name when it has none.
qsizetype extensionStart(QStringView name)
{
    const qsizetype dot = name.lastIndexOf(u'.');
    if (dot < 0)
        return name.size();
    const QStringView extension = name.sliced(dot + 1);
    const bool plain = std::all_of(extension.begin(), extension.end(), [](QChar c) { return c.isLetterOrNumber(); });
    return plain && !extension.isEmpty() && extension.size() <= longestExtension ? dot : name.size();
}
} // namespace

QString CapitalizeWords(const QString &text)
{
    QString words = inLowerCase(text);
    capitalize(words, 0);
    qsizetype blank = words.indexOf(u' ');
    while (blank >= 0) {
        const qsizetype next = capitalizeWord(words, blank + 1);
        blank = next < words.size() ? words.indexOf(u' ', next) : -1;
    }
    return words;
}

QString CleanName(const QString &text)
{
    QString name = text;
    name = CapitalizeWords(name.replace(u'_', u' '));
    return withSpacedAmpersand(name.replace(u'~', u'-'));
}

NameProposal proposeName(const QString &fileName)
{
    const qsizetype first = fileName.indexOf(u'-');
    if (first < 0)
        return {CleanName(fileName), std::nullopt};
    const qsizetype second = fileName.indexOf(u'-', first + 1);
    const qsizetype split = second < 0 ? first : second;
    const QStringView name(fileName);
    const QStringView left = withoutBlanksAfter(name.first(split));
    const QStringView right = withoutBlanksBefore(name.sliced(split + 1));
    return {CleanName(joined(left, right)), withoutBlanksBefore(name.sliced(first + 1)).toString()};
}

std::optional<QString> withSidesSwapped(const QString &fileName)
{
    const QStringView extension = QStringView(fileName).sliced(extensionStart(fileName));
    const QStringView name = QStringView(fileName).chopped(extension.size());
    const qsizetype hyphen = name.indexOf(u'-');
    if (hyphen < 0)
        return std::nullopt;
    const QStringView left = withoutBlanks(name.first(hyphen));
    const QStringView right = withoutBlanks(name.sliced(hyphen + 1));
    return joined(right, left, extension);
}
