// SPDX-License-Identifier: GPL-3.0-or-later
#include "filetools/clean_name.h"

#include "base/texts.h"
#include "platform/ansi_text.h"

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
