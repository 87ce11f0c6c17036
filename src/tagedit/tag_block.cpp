// SPDX-License-Identifier: GPL-3.0-or-later
#include "tagedit/tag_block.h"

#include "base/names.h"
#include "base/texts.h"
#include "platform/file_copy.h"
#include "platform/files.h"
#include "platform/folders.h"
#include "tagedit/editor_genres.h"

using namespace Qt::StringLiterals;

namespace
{
QByteArray emptyBlock()
{
    return "TAG" + QByteArray(tagBlockSize - tagMarkerSize - 1, '\0') + static_cast<char>(noGenreNumber);
}

// Is what was written on the disk? Where the disk will not say, the file itself is asked: an answer that the next look
// at the file would contradict helps nobody.
bool isKept(ByteFile &file, qint64 offset, const QByteArray &bytes)
{
    return file.flush() || file.readAt(offset, bytes.size()) == bytes;
}
} // namespace

TagReading readTag(const QString &path)
{
    const auto file = ByteFile::open(path, ByteFile::Access::Read);
    if (!file)
        return {};
    const auto block = file->readAt(file->length() - tagBlockSize, tagBlockSize);
    if (!block)
        return {};
    auto tag = parseTagBlock(*block);
    if (tag) {
        for (QString *text : {&tag->title, &tag->artist, &tag->album, &tag->year, &tag->comment})
            *text = withoutBlanks(*text).toString();
    }
    return {true, tag};
}

Id3v1Tag tagFromName(const QString &songName)
{
    Id3v1Tag tag;
    tag.comment = u"Tagged With KIV Mp3"_s;
    tag.genre = noGenreNumber;
    const qsizetype hyphen = songName.indexOf(u'-');
    if (hyphen < 0) {
        tag.title = withoutExtension(songName);
        return tag;
    }
    tag.artist = withoutBlanksAfter(songName.first(hyphen)).toString();
    tag.title = withoutExtension(withoutBlanksBefore(QStringView(songName).sliced(hyphen + 1)).toString());
    return tag;
}

bool addTag(const QString &path)
{
    auto file = ByteFile::open(path, ByteFile::Access::ReadWrite);
    if (!file)
        return false;
    const qint64 length = file->length();
    if (!file->writeAt(length, emptyBlock()))
        return false;
    // The byte goes last: before it, the song is whole with or without its tag.
    if (length > 0 && !(file->flush() && file->writeAt(length - 1, QByteArrayView("\0", 1)))) {
        file->resize(length);
        return false;
    }
    return isKept(*file, std::max<qint64>(length - 1, 0), length > 0 ? '\0' + emptyBlock() : emptyBlock());
}

bool saveTag(const QString &path, const Id3v1Tag &tag)
{
    auto file = ByteFile::open(path, ByteFile::Access::ReadWrite);
    const qint64 place = file ? file->length() - tagBlockSize : -1;
    const QByteArray block = buildTagBlock(tag);
    return place >= 0 && file->writeAt(place, block) && isKept(*file, place, block);
}

bool removeTag(const QString &path)
{
    const qint64 length = fileLength(path).value_or(0);
    return length >= tagBlockSize && shortenFile(path, length - tagBlockSize);
}
