// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/name_list.h"

#include "base/texts.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

namespace
{
constexpr char16_t twoByteStart = 0x80;
constexpr char16_t threeByteStart = 0x800;

char lowerAscii(char letter)
{
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + ('a' - 'A')) : letter;
}

QString textOf(QByteArrayView bytes)
{
    if (isAscii(bytes))
        return QString::fromLatin1(bytes);
    QString text;
    text.reserve(bytes.size());
    const auto bitsAt = [&](qsizetype at, int mask) { return static_cast<unsigned char>(bytes[at]) & mask; };
    for (qsizetype i = 0; i < bytes.size();) {
        const int lead = bitsAt(i, 0xFF);
        const qsizetype length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : 3;
        const int unit = length == 1   ? lead
                         : length == 2 ? (lead & 0x1F) << 6 | bitsAt(i + 1, 0x3F)
                                       : (lead & 0x0F) << 12 | bitsAt(i + 1, 0x3F) << 6 | bitsAt(i + 2, 0x3F);
        text += QChar(static_cast<char16_t>(unit));
        i += length;
    }
    return text;
}

// Sorting: the next eight bytes of each name are compared as one number; names that are alike in them are sorted by the
// eight after these. So a name is looked at a few times only, however many there are.
struct SortKey {
    quint64 letters;
    qsizetype index;
};
using Keys = std::vector<SortKey>::iterator;

class Sorter
{
public:
    Sorter(const NameList &names, const NameList &folded) : m_names(names), m_folded(folded) {}

    void sort(Keys first, Keys last, qsizetype from) const
    {
        for (auto key = first; key != last; ++key)
            key->letters = lettersAt(m_folded.bytes(key->index), from);
        std::sort(first, last, [](const SortKey &one, const SortKey &other) { return one.letters < other.letters; });
        for (auto run = first; run != last;) {
            const auto end = std::find_if(run, last, [&](const SortKey &key) { return key.letters != run->letters; });
            if (std::distance(run, end) > 1)
                sortRun(run, end, from);
            run = end;
        }
    }

private:
    static quint64 lettersAt(QByteArrayView bytes, qsizetype from)
    {
        std::array<char, sizeof(quint64)> next = {};
        const qsizetype count = std::clamp<qsizetype>(bytes.size() - from, 0, std::ssize(next));
        std::memcpy(next.data(), bytes.data() + from, static_cast<std::size_t>(count));
        return qFromBigEndian<quint64>(next.data());
    }

    // Names that are alike up to here and in the eight bytes after it.
    void sortRun(Keys first, Keys last, qsizetype from) const
    {
        const bool goOn = (first->letters & 0xFF) != 0;
        if (goOn)
            return sort(first, last, from + qsizetype(sizeof(quint64)));
        std::sort(first, last, [this](const SortKey &one, const SortKey &other) { return isBefore(one, other); });
    }

    bool isBefore(const SortKey &one, const SortKey &other) const
    {
        const int folded = m_folded.bytes(one.index).compare(m_folded.bytes(other.index));
        return folded != 0 ? folded < 0 : m_names.bytes(one.index).compare(m_names.bytes(other.index)) < 0;
    }

    const NameList &m_names;
    const NameList &m_folded;
};
} // namespace

NameList::NameList(const QStringList &names)
{
    for (const QString &name : names)
        *this += name;
}

QByteArray NameList::bytesOf(QStringView text)
{
    QByteArray bytes;
    bytes.reserve(text.size());
    for (const QChar c : text) {
        const char16_t unit = c.unicode();
        if (unit < twoByteStart) {
            bytes += static_cast<char>(unit);
            continue;
        }
        if (unit < threeByteStart) {
            bytes += static_cast<char>(0xC0 | unit >> 6);
        } else {
            bytes += static_cast<char>(0xE0 | unit >> 12);
            bytes += static_cast<char>(0x80 | (unit >> 6 & 0x3F));
        }
        bytes += static_cast<char>(0x80 | (unit & 0x3F));
    }
    return bytes;
}

QString NameList::operator[](qsizetype index) const
{
    return textOf(bytes(index));
}

QString NameList::value(qsizetype index) const
{
    return index >= 0 && index < size() ? textOf(bytes(index)) : QString();
}

qsizetype NameList::indexOf(QStringView name) const
{
    const QByteArray wanted = bytesOf(name);
    for (qsizetype i = 0; i < size(); ++i)
        if (bytes(i) == wanted)
            return i;
    return -1;
}

QStringList NameList::toStringList() const
{
    QStringList names;
    names.reserve(size());
    for (qsizetype i = 0; i < size(); ++i)
        names += textOf(bytes(i));
    return names;
}

NameList &NameList::appendBytes(QByteArrayView bytes)
{
    m_bytes.append(bytes);
    m_ends += m_bytes.size();
    return *this;
}

void NameList::removeAt(qsizetype index)
{
    const qsizetype length = bytes(index).size();
    m_bytes.remove(startOf(index), length);
    m_ends.removeAt(index);
    std::for_each(m_ends.begin() + index, m_ends.end(), [&](qsizetype &end) { end -= length; });
}

void NameList::insert(qsizetype index, const NameList &names)
{
    const qsizetype start = startOf(index);
    const qsizetype length = names.m_bytes.size();
    m_bytes.insert(start, names.m_bytes);
    std::for_each(m_ends.begin() + index, m_ends.end(), [&](qsizetype &end) { end += length; });
    m_ends.insert(index, names.size(), start);
    for (qsizetype name = 0; name < names.size(); ++name)
        m_ends[index + name] += names.m_ends[name];
}

void NameList::squeeze()
{
    m_bytes.squeeze();
    m_ends.squeeze();
}

void NameList::sort()
{
    QList<qsizetype> order;
    {
        const NameList folded = inForm([](const QString &name) { return name.toCaseFolded(); });
        std::vector<SortKey> keys(static_cast<std::size_t>(size()));
        for (qsizetype i = 0; i < size(); ++i)
            keys[static_cast<std::size_t>(i)].index = i;
        Sorter(*this, folded).sort(keys.begin(), keys.end(), 0);
        order.reserve(size());
        for (const SortKey &key : keys)
            order += key.index;
    }
    *this = inOrder(order);
}

NameList NameList::inOrder(const QList<qsizetype> &order) const
{
    NameList names;
    names.m_bytes.reserve(m_bytes.size());
    names.m_ends.reserve(size());
    for (const qsizetype index : order)
        names.appendBytes(bytes(index));
    return names;
}

NameList NameList::inForm(QString (*form)(const QString &name)) const
{
    NameList names;
    names.m_bytes.reserve(m_bytes.size());
    names.m_ends.reserve(size());
    for (qsizetype i = 0; i < size(); ++i) {
        const QByteArrayView name = bytes(i);
        if (!isAscii(name)) {
            names += form(textOf(name));
            continue;
        }
        const qsizetype start = names.m_bytes.size();
        names.appendBytes(name);
        char *letters = names.m_bytes.data() + start;
        std::transform(letters, letters + name.size(), letters, lowerAscii);
    }
    return names;
}
