// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/song_match.h"

#include "base/texts.h"
#include "playlist/byte_finder.h"

#include <algorithm>

namespace
{
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

// The letters a name holds, a bit for each; what has no bit of its own has the last one.
constexpr int sharedBit = 63;

constexpr int bitOf(char byte)
{
    constexpr int firstLetterBit = 32; // After the blank, the digits and what stands between them.
    const bool isLetter = byte >= 'a' && byte <= 'z';
    return isLetter ? byte - 'a' + firstLetterBit : byte >= ' ' && byte < '@' ? byte - ' ' : sharedBit;
}

quint64 lettersOf(QByteArrayView bytes)
{
    quint64 letters = 0;
    for (const char byte : bytes)
        letters |= quint64(1) << bitOf(byte);
    return letters;
}

QString capitalised(QString name, qsizetype position, qsizetype length)
{
    const qsizetype end = std::min(position + length, name.size());
    for (qsizetype i = position; i < end;)
        i = changeLetter(name, i, end, capital);
    return name;
}
} // namespace

SongNames::SongNames(NameList names)
    : m_names(std::move(names)), m_lowered(m_names.inForm([](const QString &name) { return lowered(name); }))
{
    m_letters.reserve(static_cast<std::size_t>(m_lowered.size()));
    for (qsizetype row = 0; row < m_lowered.size(); ++row)
        m_letters.push_back(lettersOf(m_lowered.bytes(row)));
}

void SongNames::search(const QString &text, std::vector<SongMatch> &matches)
{
    const QByteArray wanted = NameList::bytesOf(lowered(text));
    if (wanted != m_wanted && !(m_wanted && wanted.contains(*m_wanted) && narrow(wanted, matches)))
        searchAll(wanted, matches);
    m_wanted = wanted;
}

// Looks for a longer text where the shorter one was found. Gives up when too many names would have to be looked
// through, which a few of them show: one walk over all of them is faster then.
bool SongNames::narrow(const QByteArray &wanted, std::vector<SongMatch> &matches) const
{
    constexpr std::size_t share = 16; // Of all names: more are too many.
    constexpr std::size_t step = 64;
    const QByteArrayView more = QByteArrayView(wanted).sliced(wanted.startsWith(*m_wanted) ? m_wanted->size() : 0);
    const qsizetype before = wanted.size() - more.size();
    const auto isWhereItWas = [&](const SongMatch &match, QByteArrayView name) {
        return match.place >= 0 && match.place + wanted.size() <= name.size() &&
               std::mismatch(more.begin(), more.end(), name.begin() + match.place + before).first == more.end();
    };
    std::size_t looks = 0;
    for (std::size_t i = 0; i < matches.size(); i += step)
        looks += isWhereItWas(matches[i], m_lowered.bytes(matches[i].row)) ? 0 : step;
    if (looks > std::max(m_letters.size() / share, step))
        return false;
    const ByteFinder finder(wanted);
    std::size_t taken = 0;
    for (const SongMatch match : matches) {
        const QByteArrayView name = m_lowered.bytes(match.row);
        const char *place = isWhereItWas(match, name)
                                ? name.begin() + match.place
                                : finder.find(name.begin(), name.end(), m_lowered.allBytes().end());
        if (place)
            matches[taken++] = {match.row, static_cast<int>(place - name.begin())};
    }
    matches.resize(taken);
    return true;
}

void SongNames::searchAll(const QByteArray &wanted, std::vector<SongMatch> &matches) const
{
    const bool isOneLetter = wanted.size() == 1 && bitOf(wanted.front()) != sharedBit;
    if (wanted.isEmpty() || isOneLetter)
        takeByLetters(lettersOf(wanted), matches);
    else
        takeByText(wanted, matches);
}

// Without a branch, as nobody can foresee which way it goes.
void SongNames::takeByLetters(quint64 letters, std::vector<SongMatch> &matches) const
{
    std::size_t taken = 0;
    matches.resize(m_letters.size());
    for (std::size_t row = 0; row < m_letters.size(); ++row) {
        matches[taken] = {static_cast<int>(row), -1};
        taken += (m_letters[row] & letters) == letters ? 1 : 0;
    }
    matches.resize(taken);
}

// One walk over all names. What begins in a name and ends in the next is in none of them.
void SongNames::takeByText(const QByteArray &wanted, std::vector<SongMatch> &matches) const
{
    const ByteFinder finder(wanted);
    const QByteArrayView all = m_lowered.allBytes();
    std::size_t taken = 0;
    int row = 0;
    matches.resize(m_letters.size());
    for (const char *at = finder.find(all.begin(), all.end(), all.end()); at;
         at = finder.find(at, all.end(), all.end())) {
        while (m_lowered.bytes(row).end() <= at)
            ++row;
        const QByteArrayView name = m_lowered.bytes(row);
        const bool isWithin = name.end() - at >= wanted.size();
        if (isWithin)
            matches[taken++] = {row++, static_cast<int>(at - name.begin())};
        at = isWithin ? name.end() : at + 1;
    }
    matches.resize(taken);
}

QString shownResult(const QString &name, const QString &text)
{
    return capitalised(name, lowered(name).indexOf(lowered(text)), text.size());
}
