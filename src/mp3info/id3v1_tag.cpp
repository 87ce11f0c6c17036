// SPDX-License-Identifier: GPL-3.0-or-later
#include "mp3info/id3v1_tag.h"

#include "platform/ansi_text.h"

#include <array>

namespace
{
// clang-format off
constexpr std::array<const char *, genreEntryCount> entries = {
    "",
    "Blues", "Classic Rock", "Country", "Dance", "Disco", "Funk", "Grunge", "Hip-Hop", "Jazz", "Metal", "New Age",
    "Oldies", "Other", "Pop", "R&B", "Rap", "Reggae", "Rock", "Techno", "Industrial", "Alternative", "Ska",
    "Death Metal", "Pranks", "Soundtrack", "Euro-Techno", "Ambient", "Trip-Hop", "Vocal", "Jazz+Funk", "Fusion",
    "Trance", "Classical", "Instrumental", "Acid", "House", "Game", "Sound Clip", "Gospel", "Noise", "Alt. Rock",
    "Bass", "Soul", "Punk", "Space", "Meditative", "Instrumental Pop", "Instrumental Rock", "Ethnic", "Gothic",
    "Darkwave", "Techno-Industrial", "Electronic", "Pop-Folk", "Eurodance", "Dream", "Southern Rock", "Comedy",
    "Cult", "Gangsta", "Top 40", "Christian Rap", "Pop/Funk", "Jungle", "Native American", "Cabaret", "New Wave",
    "Psychadelic", "Rave", "Showtunes", "Trailer", "Lo-Fi", "Tribal", "Acid Punk", "Acid Jazz", "Polka", "Retro",
    "Musical", "Rock & Roll", "Hard Rock", "Folk", "Folk/Rock", "National Folk", "Swing", "Fast-Fusion", "Bebob",
    "Latin", "Revival", "Celtic", "Bluegrass", "Avantgarde", "Gothic Rock", "Progressive Rock", "Psychedelic Rock",
    "Symphonic Rock", "Slow Rock", "Big Band", "Chorus", "Easy Listening", "Acoustic", "Humour", "Speech",
    "Chanson", "Opera", "Chamber Music", "Sonata", "Symphony", "Booty Bass", "Primus", "Porn Groove", "Satire",
    "Slow Jam", "Club", "Tango", "Samba", "Folklore", "Ballad", "Power Ballad", "Rhythmic Soul", "Freestyle",
    "Duet", "Punk Rock", "Drum Solo", "ACappella", "Euro-House", "Dance Hall", "Goa", "Drum & Bass", "Club-House",
    "Hardcore", "Terror", "Indie", "BritPop", "Negerpunk", "Polsk Punk", "Beat", "Christian Gangsta Rap",
    "Heavy Metal", "Black Metal", "Crossover", "Contemporary Christian", "Christian Rock", "Merengue", "Salsa",
    "Thrash Metal", "Anime", "JPop", "Synthpop",
};
// clang-format on
} // namespace

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

QString genreText(int position)
{
    const bool inList = position >= 0 && position < genreEntryCount;
    return inList ? QString::fromLatin1(entries[static_cast<std::size_t>(position)]) : QString();
}

int genrePosition(int genre)
{
    const bool hasName = genre >= 0 && genre < genreEntryCount - 1;
    return hasName ? genre + 1 : 0;
}
