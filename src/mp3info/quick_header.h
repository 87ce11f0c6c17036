// SPDX-License-Identifier: GPL-3.0-or-later
// The quick reader: display texts of a file's first frame header, for tool tips and labels. Wider than
// readFrameHeader() in the frames it accepts (MPEG-1 and MPEG-2, all layers), narrower in its reach; its texts have
// spellings of their own.
#pragma once

#include <QByteArrayView>
#include <QString>

#include <cstdint>
#include <optional>

struct QuickHeader {
    QString bitRate;     // "128Kbit", "131 Kbit (VBR)"; a bare "128" where the length is unknown.
    QString channelMode; // " Stereo", " Joint Stereo", " 2 Channel", " Mono", with a blank in front.
    QString copyrighted; // " Yes" or " No".
    QString crc;         // "Yes" or "No".
    QString emphasis;    // " None", " 50/15 microsec", " invalid", " CITT j. 17".
    QString frequency;   // "44100 Hz".
    QString layer;       // "Layer 3".
    QString length;      // "250 seconds".
    QString mpegVersion; // "MPEG 1.0".
    QString original;    // " Yes" or " No".
    QString size;        // "4000000 bytes".
};

struct QuickReading {
    QuickHeader header;
    std::optional<std::int32_t> cbrSeconds; // The length at a constant bit rate; nothing where it is unknown.
};

/// So many first bytes of a file are looked at.
constexpr qsizetype quickHeaderReach = 4096;

/// Decodes the first frame header in the first bytes of a file of that length (in bytes). Without a frame only the size
/// is filled; where a length cannot be known (bit rate 0, a Xing header of 57 frames or fewer) decoding ends there.
QuickReading quickHeader(QByteArrayView firstBytes, qint64 fileLength);

/// The same for a file. Empty for a missing file or a folder; the size alone for one that may not be read.
QuickHeader QuickMp3Header(const QString &path);

/// As QuickMp3Header(); where that finds no frame, a second read looks for one behind the ID3v2 tag, whose pictures may
/// fill more than its reach. The tag then counts for the size alone, not for length and bit rate.
QuickHeader songHeader(const QString &path);

/// The length in seconds at a constant bit rate that the last QuickMp3Header() found; a file without one leaves it.
std::int32_t QuickSeconds();
