// SPDX-License-Identifier: GPL-3.0-or-later
// What the readers do with the first bytes of a file. Offsets count from 0; beyond the bytes at hand a file
// reads as zeros.
#pragma once

#include <QByteArrayView>

#include <algorithm>
#include <cstdint>
#include <cstring>

inline std::uint8_t byteAt(QByteArrayView bytes, qsizetype offset)
{
    return offset >= 0 && offset < bytes.size() ? static_cast<std::uint8_t>(bytes[offset]) : std::uint8_t(0);
}

/// The lowest offset below limit of a byte 0xFF whose successor is accepted; -1 when there is none.
template<class Accepts>
qsizetype findSync(QByteArrayView bytes, qsizetype limit, Accepts acceptsSecond)
{
    const char *const end = bytes.data() + std::min(limit, bytes.size());
    for (const char *at = bytes.data(); at < end; ++at) {
        at = static_cast<const char *>(std::memchr(at, 0xFF, static_cast<std::size_t>(end - at)));
        if (!at)
            return -1;
        if (acceptsSecond(byteAt(bytes, at - bytes.data() + 1)))
            return at - bytes.data();
    }
    return -1;
}

/// Does a variable-bit-rate header stand where a full stereo MPEG-1 frame has it? Its frame count is at offsets 44 to
/// 47 from the frame's first byte. The place is the same for every frame kind, so other kinds are missed.
inline bool hasXingHeader(QByteArrayView bytes, qsizetype frameOffset)
{
    constexpr qsizetype tagOffset = 36;
    constexpr QByteArrayView tag = "Xing";
    const qsizetype start = frameOffset + tagOffset;
    return start + tag.size() <= bytes.size() && bytes.sliced(start, tag.size()) == tag;
}

constexpr qint64 id3v2HeadLength = 10;

/// The bytes that an ID3v2 tag takes, its head and footer included (id3.org, ID3v2.4 structure, 3.1): the head holds
/// the length of the rest, seven bits a byte. 0 without a tag.
inline qint64 id3v2TagLength(QByteArrayView firstBytes)
{
    constexpr int hasFooter = 0x10;
    if (firstBytes.size() < id3v2HeadLength || !firstBytes.startsWith("ID3"))
        return 0;
    qint64 length = 0;
    for (qsizetype at = 6; at < id3v2HeadLength; ++at)
        length = length * 128 + byteAt(firstBytes, at) % 128;
    return length + id3v2HeadLength * (byteAt(firstBytes, 5) & hasFooter ? 2 : 1);
}
