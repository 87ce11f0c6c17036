// SPDX-License-Identifier: GPL-3.0-or-later
// Finds a text in bytes at the memory's speed: sixteen places at a time are asked for its first and its last byte.
#pragma once

#include <QByteArrayView>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

class ByteFinder
{
public:
    /// text is not empty, and stays where it is.
    explicit ByteFinder(QByteArrayView text)
        : m_text(text), m_first(filledWith(text.front())), m_last(filledWith(text.back()))
    {
        const auto length = std::min(sizeof m_start, static_cast<std::size_t>(text.size()));
        std::memcpy(&m_start, text.data(), length);
        std::memset(&m_startMask, 0xFF, length);
    }

    /// The first place from at on, null without one. at is within the bytes, or their end. What lies between end and
    /// readable is not looked for, but may be looked at, which is quicker where end is near.
    const char *find(const char *at, const char *end, const char *readable) const
    {
        const qsizetype length = m_text.size();
        const qsizetype lookedAt = blockSize + std::max<qsizetype>(length - 1, sizeof m_start);
        for (; end - at >= length && readable - at >= lookedAt; at += blockSize) {
            const Block found = Block((blockAt(at) == m_first) & (blockAt(at + length - 1) == m_last));
            if (const char *place = firstWhole(at, found))
                return end - place >= length ? place : nullptr;
        }
        const qsizetype place = end - at >= length ? QByteArrayView(at, end).indexOf(m_text) : -1;
        return place < 0 ? nullptr : at + place;
    }

private:
    using Block = unsigned char __attribute__((vector_size(16)));
    static constexpr qsizetype blockSize = sizeof(Block);
    static constexpr quint64 oneOfEach = 0x8080808080808080; // A bit of each byte.

    static Block filledWith(char byte) { return Block{} + static_cast<unsigned char>(byte); }

    template<class Value>
    static Value valueAt(const char *at)
    {
        Value value;
        std::memcpy(&value, at, sizeof value);
        return value;
    }

    static Block blockAt(const char *at) { return valueAt<Block>(at); }

    // The first of the places found where the whole text stands.
    const char *firstWhole(const char *at, const Block &found) const
    {
        std::array<quint64, 2> halves;
        std::memcpy(halves.data(), &found, sizeof found);
        if ((halves[0] | halves[1]) == 0)
            return nullptr;
        for (const quint64 half : halves) {
            for (quint64 places = qFromLittleEndian(half) & oneOfEach; places != 0; places &= places - 1)
                if (const char *place = at + std::countr_zero(places) / 8; isWholeAt(place))
                    return place;
            at += sizeof half;
        }
        return nullptr;
    }

    bool isWholeAt(const char *at) const
    {
        constexpr std::size_t compared = sizeof m_start;
        const auto length = static_cast<std::size_t>(m_text.size());
        return ((valueAt<quint64>(at) ^ m_start) & m_startMask) == 0 &&
               (length <= compared || std::memcmp(at + compared, m_text.data() + compared, length - compared) == 0);
    }

    QByteArrayView m_text;
    quint64 m_start = 0; // Its first eight bytes, compared without a call.
    quint64 m_startMask = 0;
    Block m_first;
    Block m_last;
};
