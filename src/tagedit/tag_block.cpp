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
} // namespace

std::optional<Id3v1Tag> readTag(const QString &path)
{
    const auto file = ByteFile::open(path, ByteFile::Access::Read);
    if (!file)
        return std::nullopt;
    auto tag = parseTagBlock(file->readAt(file->length() - tagBlockSize, tagBlockSize));
    if (tag) {
        for (QString *text : {&tag->title, &tag->artist, &tag->album, &tag->year, &tag->comment})
            *text = withoutBlanks(*text).toString();
    }
    return tag;
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
    return file->flush();
}

bool saveTag(const QString &path, const Id3v1Tag &tag)
{
    auto file = ByteFile::open(path, ByteFile::Access::ReadWrite);
    return file && file->length() >= tagBlockSize && file->writeAt(file->length() - tagBlockSize, buildTagBlock(tag)) &&
           file->flush();
}

bool removeTag(const QString &path)
{
    const qint64 length = fileLength(path).value_or(0);
    return length >= tagBlockSize && shortenFile(path, length - tagBlockSize);
}
