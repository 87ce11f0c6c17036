// Search in a list of song names.
#include "playlist/song_match.h"

#include <QStringMatcher>

#include <algorithm>

namespace
{
constexpr QChar betweenNames(u'\0');

// The one letter whose lower-case form is longer is given a short one: positions are then the same in both forms.
QString lowered(QString text)
{
    text.replace(QChar(0x0130), u'i');
    return std::move(text).toLower();
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
    for (qsizetype i = position; i < end; ++i) {
        const bool pair = name[i].isHighSurrogate() && i + 1 < end && name[i + 1].isLowSurrogate();
        const char32_t upper = capital(pair ? QChar::surrogateToUcs4(name[i], name[i + 1]) : name[i].unicode());
        name[i] = QChar(pair ? QChar::highSurrogate(upper) : static_cast<char16_t>(upper));
        if (pair)
            name[++i] = QChar(QChar::lowSurrogate(upper));
    }
    return name;
}
