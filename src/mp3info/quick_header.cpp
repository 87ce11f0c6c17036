// SPDX-License-Identifier: GPL-3.0-or-later
// Decodes by formula rather than table, for every layer alike: only Layer III bit rates are right.
#include "mp3info/quick_header.h"

#include "base/numbers.h"
#include "mp3info/file_start.h"
#include "platform/files.h"
#include "platform/folders.h"

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace
{
constexpr qsizetype quickSearchedBytes = 4092;
constexpr qsizetype xingHeaderEnd = 48; // From the frame's first byte.

std::int32_t quickSeconds = 0;

bool InByteRange(int value, int low, int high)
{
    return value >= low && value <= high;
}

// How many seconds a number of frames lasts: the first second has 57 frames and does not count, the next ones have 38,
// 38 and 39 by turns. A second begun counts.
int secondsOf(int frames)
{
    constexpr int framesInThree = 38 + 38 + 39;
    const int counted = std::max(frames - 57, 0);
    return counted / framesInThree * 3 + (counted % framesInThree + 37) / 38;
}

// The header's second byte: 1111 for MPEG-1 or 0010 for MPEG-2, two layer bits, the check sum bit.
bool isMpeg2(int second)
{
    return InByteRange(second, 242, 247);
}

QString layerText(int second)
{
    if (InByteRange(second, 250, 251) || InByteRange(second, 242, 243))
        return u"Layer 3"_s;
    if (InByteRange(second, 252, 253) || InByteRange(second, 244, 245))
        return u"Layer 2"_s;
    return u"Layer 1"_s;
}

// The third byte: bit rate index, then two bits of sampling rate; the reserved rate reads as the third.
QString frequencyText(int third, bool mpeg2)
{
    constexpr std::array<int, 4> mpeg2Rates = {22050, 24000, 16000, 16000};
    const int hz = mpeg2Rates[static_cast<std::size_t>(third % 16 / 4)] * (mpeg2 ? 1 : 2);
    return QString::number(hz) + " Hz"_L1;
}

int kbitRate(int index, bool mpeg2)
{
    if (mpeg2)
        return index < 8 ? index * 8 : (index - 4) * 16;
    if (index < 6)
        return index * 8 + 24;
    if (index < 10)
        return index * 16 - 16;
    return index < 14 ? (index - 5) * 32 : 320;
}

// The fourth byte: two mode bits, two unused here, copyright, original, two emphasis bits.
QString channelModeText(int fourth)
{
    switch (fourth / 64) {
    case 0:
        return u" Stereo"_s;
    case 1:
        return u" Joint Stereo"_s;
    case 2:
        return u" 2 Channel"_s;
    default:
        return u" Mono"_s;
    }
}

QString emphasisText(int fourth)
{
    switch (fourth % 4) {
    case 0:
        return u" None"_s;
    case 1:
        return u" 50/15 microsec"_s;
    case 2:
        return u" invalid"_s;
    default:
        return u" CITT j. 17"_s;
    }
}

QString spacedYesOrNo(bool yes)
{
    return yes ? u" Yes"_s : u" No"_s;
}

// False when the frames last no second; the bit rate then stays. The product of file length and 8 wraps at 32 bits.
bool VbrLength(QuickHeader &header, qint64 fileLength, int frames)
{
    const int seconds = secondsOf(frames);
    header.length = QString::number(seconds) + " seconds"_L1;
    if (seconds == 0)
        return false;
    const double bitCount = wrapToInt32(std::int64_t(wrapToInt32(fileLength)) * 8);
    const auto kbits = static_cast<std::int32_t>(std::floor(bitCount / (seconds * 1000.0)));
    header.bitRate = QString::number(kbits) + " Kbit (VBR)"_L1;
    return true;
}

// Only the low three bytes of the frame count are taken.
int xingFrames(QByteArrayView bytes, qsizetype frame)
{
    return byteAt(bytes, frame + 45) * 65536 + byteAt(bytes, frame + 46) * 256 + byteAt(bytes, frame + 47);
}

// Fills bit rate and length; false when the length cannot be known.
bool readLength(QByteArrayView bytes, qsizetype frame, qint64 fileLength, int kbit, QuickReading &reading)
{
    reading.header.bitRate = QString::number(kbit);
    if (kbit == 0)
        return false;
    reading.cbrSeconds = wrapToInt32(fileLength / (kbit / 8) / 1000);
    const bool xingInReach = frame + xingHeaderEnd <= quickHeaderReach;
    if (xingInReach && hasXingHeader(bytes, frame))
        return VbrLength(reading.header, fileLength, xingFrames(bytes, frame));
    reading.header.bitRate += "Kbit"_L1;
    reading.header.length = QString::number(*reading.cbrSeconds) + " seconds"_L1;
    return true;
}

enum class Search { FileStart, BehindTagToo };

QuickHeader readFile(const QString &path, Search search)
{
    const std::optional<ByteFile> file = ByteFile::open(path, ByteFile::Access::Read);
    std::array<char, quickHeaderReach> buffer;
    const auto readAt = [&](qint64 place) {
        return file ? file->readAt(place, buffer).value_or(QByteArrayView()) : QByteArrayView();
    };
    const QByteArrayView start = readAt(0);
    const std::optional<qint64> length = file ? file->length() : fileLength(path);
    if (!length)
        return {};
    QuickReading reading = quickHeader(start, *length);
    const qint64 tagLength = id3v2TagLength(start);
    if (search == Search::BehindTagToo && reading.header.layer.isEmpty() && tagLength > 0 && tagLength < *length) {
        const QString wholeSize = reading.header.size;
        reading = quickHeader(readAt(tagLength), *length - tagLength);
        reading.header.size = wholeSize;
    }
    quickSeconds = reading.cbrSeconds.value_or(quickSeconds);
    return reading.header;
}
} // namespace

QuickReading quickHeader(QByteArrayView firstBytes, qint64 fileLength)
{
    QuickReading reading;
    QuickHeader &header = reading.header;
    header.size = QString::number(fileLength) + " bytes"_L1;
    const QByteArrayView bytes = firstBytes.first(std::min(firstBytes.size(), quickHeaderReach));
    const qsizetype frame =
        findSync(bytes, quickSearchedBytes, [](int second) { return second >= 250 || isMpeg2(second); });
    if (frame < 0)
        return reading;

    const int second = byteAt(bytes, frame + 1);
    const int third = byteAt(bytes, frame + 2);
    const int fourth = byteAt(bytes, frame + 3);
    const bool mpeg2 = isMpeg2(second);
    header.crc = second % 2 == 0 ? u"Yes"_s : u"No"_s;
    header.mpegVersion = mpeg2 ? u"MPEG 2.0"_s : u"MPEG 1.0"_s;
    header.layer = layerText(second);
    header.frequency = frequencyText(third, mpeg2);
    if (!readLength(bytes, frame, fileLength, kbitRate(third / 16, mpeg2), reading))
        return reading;
    header.copyrighted = spacedYesOrNo(fourth & 8);
    header.original = spacedYesOrNo(fourth & 4);
    header.emphasis = emphasisText(fourth);
    header.channelMode = channelModeText(fourth);
    return reading;
}

QuickHeader QuickMp3Header(const QString &path)
{
    return readFile(path, Search::FileStart);
}

QuickHeader songHeader(const QString &path)
{
    return readFile(path, Search::BehindTagToo);
}

std::int32_t QuickSeconds()
{
    return quickSeconds;
}
