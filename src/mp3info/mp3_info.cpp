// SPDX-License-Identifier: GPL-3.0-or-later
// Reads a file with one system read, two when its end lies beyond the first.
#include "mp3info/mp3_info.h"

#include "base/texts.h"
#include "platform/ansi_text.h"
#include "platform/files.h"
#include "platform/folders.h"

#include <QLocale>

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace
{
QString asStored(const QString &text, qsizetype width)
{
    return fromAnsi(tagField(text, width));
}

std::optional<Id3v1Tag> tagOf(const ByteFile &file, QByteArrayView firstBytes)
{
    if (file.length() < tagBlockSize)
        return std::nullopt;
    if (firstBytes.size() == file.length())
        return parseTagBlock(firstBytes.last(tagBlockSize));
    std::array<char, tagBlockSize> block;
    return parseTagBlock(file.readAt(file.length() - tagBlockSize, block).value_or(QByteArrayView()));
}

// Halves are rounded up, as people expect of a size; sizes divided by powers of two are exact until here.
QString inUnit(double size, double unit, int places, QLatin1StringView name)
{
    const double scale = places == 1 ? 10 : 100;
    QString text = QString::number(std::round(size / unit * scale) / scale, 'f', places);
    if (places == 2 && text.endsWith(u'0'))
        text.chop(1);
    return text + name;
}

QString plainNumber(double number)
{
    const QString text = QString::number(number + 0.0, 'g', 15); // Adding 0 makes a negative zero a plain one.
    return text.contains(u'e') ? QString::number(text.toDouble(), 'f', QLocale::FloatingPointShortest) : text;
}
} // namespace

void Mp3Info::setFileName(const QString &path)
{
    ClearInfo();
    const std::optional<ByteFile> file = ByteFile::open(path, ByteFile::Access::Read);
    const bool exists = file || fileLength(path);
    m_fileName = exists ? path : QString();
    if (file)
        ReadFileInfo(*file);
    else if (exists)
        takeHeader(readFrameHeader({}, 0));
}

void Mp3Info::ClearInfo()
{
    m_header = {};
    m_tag = {};
}

void Mp3Info::ReadFileInfo(const ByteFile &file)
{
    std::array<char, frameHeaderReach> start;
    const QByteArrayView firstBytes = file.readAt(0, start).value_or(QByteArrayView());
    m_tag = tagOf(file, firstBytes).value_or(Id3v1Tag());
    takeHeader(readFrameHeader(firstBytes, file.length()));
}

void Mp3Info::takeHeader(const FrameHeader &header)
{
    m_header = header;
    if (header.isComplete)
        m_infoString = infoString(header);
}

QString Mp3Info::Comments() const
{
    return withoutBlanksAfter(m_tag.comment).toString();
}

QString Mp3Info::Year() const
{
    return withoutBlanksAfter(m_tag.year).toString();
}

QString Mp3Info::Album() const
{
    return withoutBlanksAfter(m_tag.album).toString();
}

QString Mp3Info::Artist() const
{
    return withoutBlanksAfter(m_tag.artist).toString();
}

QString Mp3Info::Title() const
{
    return withoutBlanksAfter(m_tag.title).toString();
}

void Mp3Info::setComments(const QString &text)
{
    m_tag.comment = asStored(text, tagTextWidth);
}

void Mp3Info::setYear(const QString &text)
{
    m_tag.year = asStored(text, tagYearWidth);
}

void Mp3Info::setAlbum(const QString &text)
{
    m_tag.album = asStored(text, tagTextWidth);
}

void Mp3Info::setArtist(const QString &text)
{
    m_tag.artist = asStored(text, tagTextWidth);
}

void Mp3Info::setTitle(const QString &text)
{
    m_tag.title = asStored(text, tagTextWidth);
}

bool Mp3Info::ClearTag()
{
    return overwriteTag(QByteArray(tagBlockSize - 1, '\0'));
}

bool Mp3Info::HasTag() const
{
    const std::optional<ByteFile> file = ByteFile::open(m_fileName, ByteFile::Access::Read);
    std::array<char, tagMarkerSize> marker;
    const auto got = file ? file->readAt(file->length() - tagBlockSize, marker) : std::nullopt;
    return got && beginsTag(*got);
}

bool Mp3Info::WriteTag()
{
    return overwriteTag(buildTagBlock(m_tag));
}

bool Mp3Info::overwriteTag(QByteArrayView bytes) const
{
    std::optional<ByteFile> file = ByteFile::open(m_fileName, ByteFile::Access::ReadWrite);
    return file && file->writeAt(file->length() - tagBlockSize, bytes);
}

QString Mp3Info::FormatFileSize(double size)
{
    constexpr double kilobyte = 1024;
    constexpr double megabyte = kilobyte * 1024;
    constexpr double gigabyte = megabyte * 1024;
    if (size >= 0 && size <= 999)
        return plainNumber(size) + " bytes"_L1;
    if (size >= 1000 && size <= 1'023'999)
        return inUnit(size, kilobyte, 1, " KB"_L1);
    if (size >= 1'024'000 && size <= 1'023'999'999)
        return inUnit(size, megabyte, 2, " MB"_L1);
    if (size > 1'024'000'000)
        return inUnit(size, gigabyte, 2, " GB"_L1);
    return {};
}
