// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/song_match.h"

#include "base/texts.h"

#include <QStringMatcher>

#include <algorithm>

namespace
{
constexpr QChar betweenNames(u'\0');

// Letter by letter, so that positions are the same in both forms: the one letter whose lower-case form is longer gets a
// short one.
char32_t lowered(char32_t letter)
{
    constexpr char32_t dottedCapital = 0x0130;
    return letter == dottedCapital ? U'i' : QChar::toLower(letter);
}

// Puts another letter in the place of the one at a position, which is as long; end cuts a pair that it divides.
// Returns the position after it.
qsizetype changeLetter(QString &text, qsizetype at, qsizetype end, char32_t (*changed)(char32_t))
{
    const QStringView letters = QStringView(text).first(end);
    if (characterLength(letters, at) == 1) {
        text[at] = QChar(static_cast<char16_t>(changed(letters[at].unicode())));
        return at + 1;
    }
    const char32_t letter = changed(QChar::surrogateToUcs4(letters[at], letters[at + 1]));
    text[at] = QChar(QChar::highSurrogate(letter));
    text[at + 1] = QChar(QChar::lowSurrogate(letter));
    return at + 2;
}

QString lowered(QString text)
{
    constexpr char16_t firstBeyondAscii = 0x80;
    for (QChar &c : text) {
        if (c >= u'A' && c <= u'Z')
            c = QChar(static_cast<char16_t>(c.unicode() + (u'a' - u'A')));
    }
    for (qsizetype i = 0; i < text.size();) {
        const bool isAscii = std::as_const(text)[i] < firstBeyondAscii;
        i = isAscii ? i + 1 : changeLetter(text, i, text.size(), lowered);
    }
    return text;
}

char32_t capital(char32_t letter)
{
    const char32_t upper = QChar::toUpper(letter);
    const bool sameName = QChar::toCaseFolded(upper) == QChar::toCaseFolded(letter);
    return sameName && QChar::requiresSurrogates(upper) == QChar::requiresSurrogates(letter) ? upper : letter;
}

qsizetype lengthOf(const QStringList &names)
{
    qsizetype length = 0;
    for (const QString &name : names)
        length += name.size() + 1;
    return length;
}
} // namespace

SongNames::SongNames(QStringList names) : m_names(std::move(names))
{
    QString all;
    all.reserve(lengthOf(m_names));
    m_starts.reserve(static_cast<std::size_t>(m_names.size()) + 1);
    for (const QString &name : std::as_const(m_names)) {
        m_starts.push_back(all.size());
        all += name;
        all += betweenNames;
    }
    m_starts.push_back(all.size());
    m_lowered = lowered(std::move(all));
}

std::vector<SongMatch> SongNames::search(const QString &text) const
{
    std::vector<SongMatch> matches;
    if (text.contains(betweenNames))
        return matches;
    const QStringMatcher matcher(lowered(text));
    auto name = m_starts.begin();
    for (qsizetype from = 0; from < m_lowered.size(); from = *std::next(name)) {
        const qsizetype hit = text.isEmpty() ? from : matcher.indexIn(m_lowered, from);
        if (hit < 0)
            break;
        while (*std::next(name) <= hit)
            ++name;
        matches.push_back({std::distance(m_starts.begin(), name), hit - *name});
    }
    return matches;
}

QString capitalised(QString name, qsizetype position, qsizetype length)
{
    const qsizetype end = std::min(position + length, name.size());
    for (qsizetype i = position; i < end;)
        i = changeLetter(name, i, end, capital);
    return name;
}
