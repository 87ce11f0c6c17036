// SPDX-License-Identifier: GPL-3.0-or-later
// The first MPEG audio frame header of a file (ISO/IEC 11172-3, section 2.4.1.3) and the frame count of a Xing header.
// Narrow on purpose: only MPEG-1 Layer III frames are looked for, tags in front are not skipped, and the length follows
// from the whole file and the first frame's bit rate. A file without a frame is decoded from its first bytes.
#pragma once

#include <QByteArray>
#include <QString>

#include <array>
#include <cstdint>
#include <optional>

struct FrameHeader {
    std::int32_t fileBytes = 0;    // Length of the whole file, tags included; wraps from 2 GiB on.
    std::int16_t seconds = 0;      // Play length; 0 where it is unknown or does not fit.
    std::int16_t mpegVersion = 0;  // 1, 2, 25 (for 2.5) or 0 (reserved).
    std::int16_t layerVersion = 0; // 1, 2, 3 or 0 (reserved).
    std::int16_t kbits = 0;        // kbit/s; 0 for the free and the bad index, 1 for an MPEG-1 header without a layer.
    std::int32_t frames = 0;       // From the Xing header; 0 without one.
    std::int32_t hz = 0;           // Sampling rate; 0 for the reserved index and for everything but MPEG-1.
    std::int16_t channels = 0;     // 1 or 2.
    QString mode;                  // "Stereo", "Joint Stereo", "Dual Channel", "Single Channel".
    QString emphasis;              // "None", "50/15", "Reserved", "CCITT J 17".
    QString original;              // "Yes" or "No", as the next three.
    QString copyrighted;
    QString privateBit;
    QString crcs;            // Do the frames carry a check sum?
    bool isComplete = false; // False when decoding stopped at the sampling rate or the layer; the rest is then empty.
};

/// So many first bytes of a file can matter to readFrameHeader().
constexpr qsizetype frameHeaderReach = 5047;

/// Decodes the header found in the first bytes of a file of that length (in bytes). Any bytes have a result; what is
/// out of a table's range is left 0 or empty.
FrameHeader readFrameHeader(QByteArrayView firstBytes, qint64 fileLength);

/// The summary of a complete header: ten lines, parted by carriage return and line feed.
QString infoString(const FrameHeader &header);

/// The bits of four bytes as "1" and "0", highest first, without the leading zeros.
QByteArray BytesToBits(std::array<std::uint8_t, 4> bytes);

/// The number that up to 32 such characters mean ("" is 0); nothing from 2^31 on.
std::optional<std::int32_t> BitsToNumber(QByteArrayView bits);
