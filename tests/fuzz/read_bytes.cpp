// SPDX-License-Identifier: GPL-3.0-or-later
// Promises that hold for any bytes: results within their ranges, and a tag that comes out as it went in. The fuzzer and
// the corpus test both feed it.
#include "mp3info/frame_header.h"
#include "mp3info/id3v1_tag.h"
#include "mp3info/quick_header.h"

#include <cstdint>
#include <initializer_list>
#include <limits>

namespace
{
void promise(bool kept)
{
    if (!kept)
        __builtin_trap();
}

void readAsStart(QByteArrayView bytes, qint64 length)
{
    const FrameHeader header = readFrameHeader(bytes, length);
    promise(header.kbits >= 0 && header.kbits <= 448 && header.frames >= 0 && header.hz <= 48000);
    promise(header.channels == 1 || header.channels == 2);
    promise(header.isComplete == !header.crcs.isEmpty());
    promise(infoString(header).count(u'\n') == 9);

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

// Reads the bytes as the start of files of several lengths and their end as a tag. Ends the program at a broken
// promise.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArrayView bytes(data, static_cast<qsizetype>(size));
    for (const qint64 length : {bytes.size(), qsizetype(268'435'456), std::numeric_limits<qsizetype>::max()})
        readAsStart(bytes, length);
    readAsTag(bytes);
    return 0;
}
