// SPDX-License-Identifier: GPL-3.0-or-later
// The library takes no picture from a tag of version 2.2, and in versions before 2.4 trips over stuffed bytes: both are
// seen to here.
#include "playback/id3v2_tag.h"

#include "base/texts.h"
#include "mp3info/file_start.h"
#include "platform/ansi_text.h"
#include "playback/mpg123_library.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <span>

namespace
{
// The tag's head: "ID3", version, revision, flags, length.
constexpr qsizetype versionAt = 3;
constexpr qsizetype flagsAt = 5;
constexpr qsizetype lengthAt = 6;
constexpr int stuffedFlag = 0x80;
constexpr int frontCover = 3;

// A zero byte was put after each 255, so that nothing in the tag looks like the start of sound.
QByteArray withoutStuffing(QByteArrayView bytes)
{
    QByteArray plain;
    plain.reserve(bytes.size());
    for (qsizetype at = 0; at < bytes.size(); ++at)
        if (at == 0 || bytes[at] != 0 || byteAt(bytes, at - 1) != 0xFF)
            plain += bytes[at];
    return plain;
}

// The tag as the library takes it: as long as its head says.
QByteArray prepared(const QByteArray &tag)
{
    QByteArray head = tag.first(id3v2HeadLength);
    QByteArray frames = tag.mid(id3v2HeadLength, std::min<qint64>(id3v2TagLength(tag), tag.size()) - id3v2HeadLength);
    if (head[versionAt] < 4 && byteAt(head, flagsAt) & stuffedFlag) {
        head[flagsAt] = static_cast<char>(head[flagsAt] & ~stuffedFlag);
        frames = withoutStuffing(frames);
    }
    for (int place = 0; place < 4; ++place)
        head[lengthAt + place] = static_cast<char>(frames.size() >> (21 - 7 * place) & 127);
    return head + frames;
}

// What the library reads from.
struct Source {
    QByteArrayView bytes;
    qsizetype place = 0;
};

mpg123_ssize_t readSource(void *handle, void *bytes, std::size_t size)
{
    auto &source = *static_cast<Source *>(handle);
    const qsizetype count = std::min(static_cast<qsizetype>(size), source.bytes.size() - source.place);
    std::memcpy(bytes, source.bytes.data() + source.place, static_cast<std::size_t>(count));
    source.place += count;
    return count;
}

off_t seekSource(void *handle, off_t place, int from)
{
    auto &source = *static_cast<Source *>(handle);
    const off_t start = from == SEEK_SET ? 0 : from == SEEK_CUR ? source.place : source.bytes.size();
    source.place = std::clamp<qsizetype>(start + place, 0, source.bytes.size());
    return source.place;
}

// Texts said to be Latin 1 are in truth Windows-1252, which has letters and signs where Latin 1 has none.
QString readable(QString text)
{
    for (QChar &character : text)
        if (character >= QChar(0x80) && character < QChar(0xA0))
            character = fromAnsi(QByteArray(1, static_cast<char>(character.unicode()))).front();
    return text.remove(QChar::ByteOrderMark).trimmed();
}

QStringList values(const mpg123_string &text)
{
    QStringList all;
    const QByteArrayView bytes(text.p, text.p ? static_cast<qsizetype>(text.fill) : 0);
    for (const QString &value : QString::fromUtf8(bytes).split(QChar(u'\0')))
        if (const QString shown = readable(value); !shown.isEmpty())
            all += shown;
    return all;
}

QByteArray chosenPicture(std::span<const mpg123_picture> pictures)
{
    constexpr QByteArrayView linkType = "-->"; // Not the picture itself but where it is found.
    const auto isThere = [&](const mpg123_picture &picture) {
        return picture.size > 0 && (!picture.mime_type.p || picture.mime_type.p != linkType);
    };
    auto chosen = std::find_if(pictures.begin(), pictures.end(), [&](const mpg123_picture &picture) {
        return picture.type == frontCover && isThere(picture);
    });
    if (chosen == pictures.end())
        chosen = std::find_if(pictures.begin(), pictures.end(), isThere);
    if (chosen == pictures.end())
        return {};
    return {reinterpret_cast<const char *>(chosen->data), static_cast<qsizetype>(chosen->size)};
}

// The picture of a "PIC" frame: encoding, three letters for the kind, use, a description up to its NUL, the file.
QByteArrayView pictureIn(QByteArrayView frame)
{
    constexpr qsizetype textAt = 5;
    const qsizetype unit = byteAt(frame, 0) == 1 || byteAt(frame, 0) == 2 ? 2 : 1;
    for (qsizetype at = textAt; at + unit <= frame.size(); at += unit)
        if (byteAt(frame, at) == 0 && (unit == 1 || byteAt(frame, at + 1) == 0))
            return frame.sliced(at + unit);
    return {};
}

// The same choice in a tag of version 2.2, whose frames begin with three letters and three bytes of length.
QByteArray chosenPictureOf22(QByteArrayView frames)
{
    constexpr qsizetype headLength = 6;
    QByteArrayView chosen;
    while (frames.size() > headLength && frames[0] != 0) {
        const qsizetype length = byteAt(frames, 3) << 16 | byteAt(frames, 4) << 8 | byteAt(frames, 5);
        if (length > frames.size() - headLength)
            break;
        const QByteArrayView frame = frames.sliced(headLength, length);
        const bool isFront = byteAt(frame, 4) == frontCover;
        if (frames.startsWith("PIC") && (chosen.isEmpty() || isFront))
            chosen = pictureIn(frame);
        if (frames.startsWith("PIC") && isFront && !chosen.isEmpty())
            break;
        frames = frames.sliced(headLength + length);
    }
    return chosen.toByteArray();
}

Id3v2Tag tagOf(const mpg123_id3v2 &read)
{
    Id3v2Tag tag;
    for (const mpg123_text &text : std::span(read.text, read.texts)) {
        QStringList &known = tag.texts[QByteArray(text.id, sizeof text.id)];
        if (known.isEmpty())
            known = values(text.text);
    }
    tag.texts.removeIf([](const auto &text) { return text.value().isEmpty(); });
    if (read.comment)
        tag.comment = values(*read.comment).value(0);
    tag.picture = chosenPicture(std::span(read.picture, read.pictures));
    return tag;
}
} // namespace

Id3v2Tag readId3v2Tag(const QByteArray &tag)
{
    if (id3v2TagLength(tag) == 0 || !mpg123().isComplete())
        return {};
    const QByteArray bytes = prepared(tag);
    Source source{bytes};
    const Mpg123Handle handle(mpg123().create(nullptr, nullptr));
    if (!handle)
        return {};
    mpg123().param(handle.get(), MPG123_ADD_FLAGS, MPG123_QUIET | MPG123_PICTURE, 0);
    mpg123().replace_reader_handle(handle.get(), readSource, seekSource, nullptr);
    if (mpg123().open_handle(handle.get(), &source) != MPG123_OK)
        return {};
    mpg123().framebyframe_next(handle.get()); // Finds no sound, and the tag on its way there.
    mpg123_id3v1 *ignored = nullptr;
    mpg123_id3v2 *read = nullptr;
    if (mpg123().id3(handle.get(), &ignored, &read) != MPG123_OK || !read)
        return {};
    Id3v2Tag found = tagOf(*read);
    if (bytes[versionAt] == 2)
        found.picture = chosenPictureOf22(QByteArrayView(bytes).sliced(id3v2HeadLength));
    return found;
}
