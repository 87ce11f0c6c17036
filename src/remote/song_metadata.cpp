// SPDX-License-Identifier: GPL-3.0-or-later
#include "remote/song_metadata.h"

#include "base/texts.h"
#include "mp3info/file_start.h"
#include "mp3info/mp3_info.h"
#include "platform/drives.h"
#include "platform/files.h"
#include "playback/id3v2_tag.h"
#include "remote/cover_files.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
constexpr qint64 mostTagBytes = 4 << 20; // Texts come first; what lies behind that is a picture too large for a widget.

// A tag's field as people read it.
QString readable(const QString &field)
{
    return untilNul(field).trimmed().toString();
}

QStringList asList(const QString &text)
{
    return text.isEmpty() ? QStringList() : QStringList(text);
}

QString nameWithoutEnding(const QString &path)
{
    const QString name = displayPath(path).section(u'/', -1);
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot > 0 ? name.left(dot) : name;
}

// "2004-05-06T07:08:09" or a part of it from the left, at least the year; "" for anything else.
QString dateOf(const QString &text)
{
    static const QRegularExpression date(uR"(^\d{4}(-\d\d(-\d\d(T\d\d(:\d\d(:\d\d)?)?)?)?)?)"_s);
    return date.match(text).captured();
}

// The fields of an ID3v1 tag. A comment whose last byte follows a NUL ends in the track's number.
QVariantMap oldTagData(const Mp3Info &info)
{
    const QByteArray comment = tagField(info.Comments(), tagTextWidth);
    const bool hasTrack = comment[tagTextWidth - 2] == 0;
    return {{u"xesam:title"_s, readable(info.Title())},
            {u"xesam:album"_s, readable(info.Album())},
            {u"xesam:artist"_s, asList(readable(info.Artist()))},
            {u"xesam:comment"_s, asList(readable(info.Comments()))},
            {u"xesam:genre"_s, asList(Mp3Info::GenreText(genrePosition(info.Genre())))},
            {u"xesam:contentCreated"_s, dateOf(readable(info.Year()))},
            {u"xesam:trackNumber"_s, hasTrack ? static_cast<int>(static_cast<uchar>(comment.back())) : 0}};
}

// Older tags have the year and, as day and month, "0605".
QString dateOf(const Id3v2Tag &tag)
{
    if (const QString date = dateOf(tag.texts.value("TDRC").value(0)); !date.isEmpty())
        return date;
    const QString year = dateOf(tag.texts.value("TYER").value(0));
    static const QRegularExpression dayAndMonth(u"^(\\d\\d)(\\d\\d)$"_s);
    const QRegularExpressionMatch day = dayAndMonth.match(tag.texts.value("TDAT").value(0));
    return year.size() == 4 && day.hasMatch() ? year + u'-' + day.captured(2) + u'-' + day.captured(1) : year;
}

QVariantMap newTagData(const Id3v2Tag &tag)
{
    QStringList genres;
    for (const QString &text : tag.texts.value("TCON"))
        genres += genresOf(text);
    return {{u"xesam:title"_s, tag.texts.value("TIT2").value(0)},
            {u"xesam:album"_s, tag.texts.value("TALB").value(0)},
            {u"xesam:artist"_s, tag.texts.value("TPE1")},
            {u"xesam:albumArtist"_s, tag.texts.value("TPE2")},
            {u"xesam:genre"_s, genres},
            {u"xesam:comment"_s, asList(tag.comment)},
            {u"xesam:contentCreated"_s, dateOf(tag)},
            {u"xesam:trackNumber"_s, tag.texts.value("TRCK").value(0).section(u'/', 0, 0).toInt()}};
}

// The tag at the file's start; of a huge one what comes first, which is its texts.
Id3v2Tag newTagOf(const QString &path)
{
    const std::optional<ByteFile> file = ByteFile::open(path, ByteFile::Access::Read);
    const auto start = [&file](qint64 size) {
        return file ? file->readAt(0, size).value_or(QByteArray()) : QByteArray();
    };
    const qint64 length = id3v2TagLength(start(id3v2HeadLength));
    return length > 0 ? readId3v2Tag(start(std::min(length, mostTagBytes))) : Id3v2Tag();
}

// Texts that are empty and numbers that are 0 say nothing.
void addKnown(QVariantMap &song, const QVariantMap &data)
{
    for (auto field = data.cbegin(); field != data.cend(); ++field)
        if (field.value().toInt() > 0 || !field.value().toStringList().join(QString()).isEmpty())
            song[field.key()] = field.value();
}
} // namespace

QVariantMap songMetadata(const QString &path, CoverFiles &covers)
{
    QVariantMap song{{u"xesam:title"_s, nameWithoutEnding(path)}};
    Mp3Info info;
    info.setFileName(path);
    if (info.HasTag())
        addKnown(song, oldTagData(info));
    const Id3v2Tag tag = newTagOf(path);
    addKnown(song, newTagData(tag));
    QString cover = covers.uriOf(tag.picture);
    if (cover.isEmpty())
        cover = folderCoverUri(path);
    addKnown(song, {{u"xesam:url"_s, fileUri(path)}, {u"mpris:artUrl"_s, cover}});
    return song;
}

QStringList genresOf(const QString &text)
{
    static const QRegularExpression start(uR"(^\((\d+|RX|CR)\))"_s);
    static const QRegularExpression number(u"^\\d+$"_s);
    const auto byNumber = [](const QString &digits) {
        bool isNumber = false;
        const int genre = digits.toInt(&isNumber);
        return isNumber ? genreText(genrePosition(genre)) : digits == u"RX" ? u"Remix"_s : u"Cover"_s;
    };
    QStringList genres;
    QString rest = text;
    for (auto match = start.match(rest); match.hasMatch(); match = start.match(rest)) {
        genres += byNumber(match.captured(1));
        rest = rest.mid(match.capturedLength());
    }
    if (rest.startsWith(u"(("))
        rest.remove(0, 1);
    genres += number.match(rest).hasMatch() ? byNumber(rest) : rest;
    genres.removeAll(QString());
    genres.removeDuplicates();
    return genres;
}
