// SPDX-License-Identifier: GPL-3.0-or-later
// What both header readers do with the first bytes of a file. Offsets count from 0; beyond the bytes at hand a file
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
