// SPDX-License-Identifier: GPL-3.0-or-later
// Readers of headers and tags: results within their ranges, and a tag that comes out as it went in.
#include "fuzz/targets.h"
#include "mp3info/frame_header.h"
#include "mp3info/id3v1_tag.h"
#include "mp3info/quick_header.h"

#include <array>
#include <limits>

namespace
{
void readAsStart(QByteArrayView bytes, qint64 length)
{
    const FrameHeader header = readFrameHeader(bytes, length);
    promise(header.kbits >= 0 && header.kbits <= 448 && header.frames >= 0 && header.hz <= 48000);
    promise(header.channels == 1 || header.channels == 2);
    promise(header.isComplete == !header.crcs.isEmpty());
    promise(!header.isComplete || infoString(header).count(u'\n') == 9);

    const QuickReading quick = quickHeader(bytes, length);
    promise(quick.header.size.endsWith(QStringLiteral(" bytes")));
    promise(quick.header.channelMode.isEmpty() || (quick.cbrSeconds && !quick.header.length.isEmpty()));
}

void readAsTag(QByteArrayView bytes)
{
    const QByteArrayView block = bytes.last(std::min(bytes.size(), tagBlockSize));
    if (const std::optional<Id3v1Tag> tag = parseTagBlock(block))
        promise(buildTagBlock(*tag).sliced(tagMarkerSize) == block.sliced(tagMarkerSize));
}
} // namespace

// Reads the bytes as the start of a file of one of several lengths and their end as a tag.
void fuzz::song(QByteArrayView bytes)
{
    const std::array<qint64, 3> lengths = {bytes.size(), 268'435'456, std::numeric_limits<qint64>::max()};
    readAsStart(bytes, lengths[static_cast<std::size_t>(bytes.size()) % lengths.size()]);
    readAsTag(bytes);
}
