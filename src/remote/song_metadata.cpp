// SPDX-License-Identifier: GPL-3.0-or-later
#include "remote/song_metadata.h"

#include "base/texts.h"
#include "mp3info/mp3_info.h"
#include "platform/drives.h"

using namespace Qt::StringLiterals;

namespace
{
// A tag's field as people read it.
QString readable(const QString &field)
{
    return untilNul(field).trimmed().toString();
}

QString nameWithoutEnding(const QString &path)
{
    const QString name = displayPath(path).section(u'/', -1);
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot > 0 ? name.left(dot) : name;
}

QVariantMap tagData(const Mp3Info &info)
{
    const QString genre = Mp3Info::GenreText(genrePosition(info.Genre()));
    QVariantMap data;
    for (const auto &[name, text] : {std::pair(u"xesam:title"_s, info.Title()), {u"xesam:album"_s, info.Album()}})
        if (!readable(text).isEmpty())
            data[name] = readable(text);
    // A song may have several of these, so they are lists.
    for (const auto &[name, text] : {std::pair(u"xesam:artist"_s, info.Artist()),
                                     {u"xesam:genre"_s, genre},
                                     {u"xesam:comment"_s, info.Comments()}})
        if (!readable(text).isEmpty())
            data[name] = QStringList(readable(text));
    return data;
}
} // namespace

QVariantMap songMetadata(const QString &path)
{
    QVariantMap song{{u"xesam:title"_s, nameWithoutEnding(path)}};
    if (const QString uri = fileUri(path); !uri.isEmpty())
        song[u"xesam:url"_s] = uri;
    Mp3Info info;
    info.setFileName(path);
    if (info.HasTag())
        song.insert(tagData(info));
    return song;
}
