// SPDX-License-Identifier: GPL-3.0-or-later
#include "mp3info/id3v1_tag.h"

#include "platform/ansi_text.h"

bool beginsTag(QByteArrayView bytes)
{
    return bytes.size() >= tagMarkerSize && bytes.first(tagMarkerSize).compare("TAG", Qt::CaseInsensitive) == 0;
}

std::optional<Id3v1Tag> parseTagBlock(QByteArrayView block)
{
    if (block.size() < tagBlockSize || !beginsTag(block))
        return std::nullopt;
    qsizetype offset = tagMarkerSize;
    const auto next = [&](qsizetype width) {
        offset += width;
        return fromAnsi(block.sliced(offset - width, width));
    };
    Id3v1Tag tag;
    tag.title = next(tagTextWidth);
    tag.artist = next(tagTextWidth);
    tag.album = next(tagTextWidth);
    tag.year = next(tagYearWidth);
    tag.comment = next(tagTextWidth);
    tag.genre = static_cast<std::uint8_t>(block[offset]);
    return tag;
}

QByteArray buildTagBlock(const Id3v1Tag &tag)
{
    QByteArray block = "TAG";
    block += tagField(tag.title, tagTextWidth);
    block += tagField(tag.artist, tagTextWidth);
    block += tagField(tag.album, tagTextWidth);
    block += tagField(tag.year, tagYearWidth);
    block += tagField(tag.comment, tagTextWidth);
    block += static_cast<char>(tag.genre);
    return block;
}

QByteArray tagField(QStringView text, qsizetype width)
{
    return toAnsi(text).leftJustified(width, ' ', true);
}
