// SPDX-License-Identifier: GPL-3.0-or-later
// Finds and decodes the frame header. Fields are cut out of the header's bit text by character position: dropped
// leading zeros shift them, which is what a file without a frame is read by.
#include "mp3info/frame_header.h"

#include "base/numbers.h"
#include "mp3info/file_start.h"

#include <QStringBuilder>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace
{
constexpr qsizetype searchedBytes = 5000;

constexpr std::array<std::int16_t, 4> versions = {25, 0, 2, 1};
constexpr std::array<std::int16_t, 4> layers = {0, 3, 2, 1};
constexpr std::array<std::int32_t, 3> samplingRates = {44100, 48000, 32000};
constexpr std::array<std::array<std::int16_t, 15>, 3> bitRates = {{
    {0, 32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448},
    {0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384},
    {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320},
}};

QString modeName(int index)
{
    switch (index) {
    case 0:
        return u"Stereo"_s;
    case 1:
        return u"Joint Stereo"_s;
    case 2:
        return u"Dual Channel"_s;
    default:
        return u"Single Channel"_s;
    }
}

QString emphasisName(int index)
{
    switch (index) {
    case 0:
        return u"None"_s;
    case 1:
        return u"50/15"_s;
    case 2:
        return u"Reserved"_s;
    default:
        return u"CCITT J 17"_s;
    }
}

QString yesOrNo(bool yes)
{
    return yes ? u"Yes"_s : u"No"_s;
}

// An index beyond the table leaves the target as it is.
template<class Number, std::size_t size>
void assignFrom(const std::array<Number, size> &table, int index, Number &target)
{
    const auto row = static_cast<std::size_t>(index);
    if (row < size)
        target = table[row];
}

// The number in count characters from position first, counted from 1; a text that ends early gives what it has.
int field(QByteArrayView bits, qsizetype first, qsizetype count)
{
    const qsizetype start = std::min(first - 1, bits.size());
    return BitsToNumber(bits.sliced(start, std::min(count, bits.size() - start))).value_or(0);
}

void decodeKind(QByteArrayView bits, FrameHeader &header)
{
    assignFrom(versions, field(bits, 12, 2), header.mpegVersion);
    assignFrom(layers, field(bits, 14, 2), header.layerVersion);
    const int mode = field(bits, 25, 2);
    header.mode = modeName(mode);
    header.channels = mode == 3 ? 1 : 2;
    header.emphasis = emphasisName(field(bits, 31, 2));
}

// False where decoding ends: a version or a layer without a table of its own.
bool decodeRates(QByteArrayView bits, FrameHeader &header)
{
    if (header.mpegVersion != 1)
        return false;
    assignFrom(samplingRates, field(bits, 21, 2), header.hz);
    if (header.layerVersion == 0) {
        header.kbits = 1;
        return false;
    }
    assignFrom(bitRates[static_cast<std::size_t>(header.layerVersion - 1)], field(bits, 17, 4), header.kbits);
    return true;
}

void decodeFlags(QByteArrayView bits, FrameHeader &header)
{
    header.original = yesOrNo(field(bits, 30, 1));
    header.copyrighted = yesOrNo(field(bits, 29, 1));
    header.privateBit = yesOrNo(field(bits, 24, 1));
    header.crcs = yesOrNo(!field(bits, 16, 1)); // Bit 0 announces a check sum.
}

// The product of length and 8 wraps at 32 bits; a length in seconds beyond 16 bits is given up.
std::int16_t playSeconds(std::int32_t fileBytes, std::int16_t kbits)
{
    if (kbits == 0)
        return 0;
    const double bitCount = wrapToInt32(std::int64_t(fileBytes) * 8);
    const double seconds = std::floor(bitCount / kbits / 1000);
    using Limits = std::numeric_limits<std::int16_t>;
    const bool fits = seconds >= Limits::min() && seconds <= Limits::max();
    return fits ? static_cast<std::int16_t>(seconds) : std::int16_t(0);
}

std::array<std::uint8_t, 4> fourBytesAt(QByteArrayView bytes, qsizetype offset)
{
    return {byteAt(bytes, offset), byteAt(bytes, offset + 1), byteAt(bytes, offset + 2), byteAt(bytes, offset + 3)};
}
} // namespace

FrameHeader readFrameHeader(QByteArrayView firstBytes, qint64 fileLength)
{
    FrameHeader header;
    header.fileBytes = wrapToInt32(fileLength);
    // Without a frame the offset is -1: a zero stands before the file's first byte, and the file is read from there.
    const qsizetype offset =
        findSync(firstBytes, searchedBytes, [](std::uint8_t second) { return second == 0xFA || second == 0xFB; });
    if (hasXingHeader(firstBytes, offset))
        header.frames = BitsToNumber(BytesToBits(fourBytesAt(firstBytes, offset + 44))).value_or(0);

    const QByteArray bits = BytesToBits(fourBytesAt(firstBytes, offset));
    decodeKind(bits, header);
    if (!decodeRates(bits, header))
        return header;
    decodeFlags(bits, header);
    header.seconds = playSeconds(header.fileBytes, header.kbits);
    header.isComplete = true;
    return header;
}

QString infoString(const FrameHeader &header)
{
    const auto text = [](std::int32_t number) { return QString::number(number); };
    return u"Size: "_s % text(header.fileBytes) % u" bytes\r\nLength: "_s % text(header.seconds) %
           u" seconds\r\nMPEG "_s % text(header.mpegVersion) % u".0 layer "_s % text(header.layerVersion) % u"\r\n"_s %
           text(header.kbits) % u"kbit, "_s % text(header.frames) % u" frames\r\n"_s % text(header.hz) % u"hz "_s %
           header.mode % u"\r\nPrivate: "_s % header.privateBit % u"\r\nCRCs: "_s % header.crcs %
           u"\r\nCopyrighted: "_s % header.copyrighted % u"\r\nOriginal: "_s % header.original % u"\r\nEmphasis: "_s %
           header.emphasis;
}

QByteArray BytesToBits(std::array<std::uint8_t, 4> bytes)
{
    QByteArray bits;
    bits.reserve(32);
    for (const std::uint8_t byte : bytes) {
        for (int weight = 0x80; weight > 0; weight /= 2) {
            if (byte & weight)
                bits += '1';
            else if (!bits.isEmpty())
                bits += '0';
        }
    }
    return bits;
}

std::optional<std::int32_t> BitsToNumber(QByteArrayView bits)
{
    std::int64_t number = 0;
    for (const char bit : bits)
        number = std::min<std::int64_t>(number * 2 + (bit == '1'), std::int64_t(1) << 31);
    if (number > std::numeric_limits<std::int32_t>::max())
        return std::nullopt;
    return static_cast<std::int32_t>(number);
}
