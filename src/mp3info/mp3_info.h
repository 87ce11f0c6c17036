// SPDX-License-Identifier: GPL-3.0-or-later
// Mp3Info: the data of one file, its ID3v1 tag and its first frame header. Setting the file name reads both; the
// members then stay as they are until the next name. No operation shows or throws anything.
#pragma once

#include "mp3info/frame_header.h"
#include "mp3info/id3v1_tag.h"

#include <QString>

#include <cstdint>

class ByteFile;

class Mp3Info
{
public:
    /// The summary of the last file that had a complete header. Outlives files without one.
    QString InfoString() const { return m_infoString; }

    // What the frame header says; units and ranges as in FrameHeader.
    std::int32_t FileBytes() const { return m_header.fileBytes; }
    std::int16_t Seconds() const { return m_header.seconds; }
    std::int16_t MpegVersion() const { return m_header.mpegVersion; }
    std::int16_t LayerVersion() const { return m_header.layerVersion; }
    std::int16_t kbits() const { return m_header.kbits; }
    std::int32_t Frames() const { return m_header.frames; }
    std::int32_t Hz() const { return m_header.hz; }
    QString Mode() const { return m_header.mode; }
    QString PrivateBit() const { return m_header.privateBit; }
    QString CrCs() const { return m_header.crcs; }
    QString Copyrighted() const { return m_header.copyrighted; }
    QString Original() const { return m_header.original; }
    QString EMPHASIS() const { return m_header.emphasis; }
    std::int16_t CHANNELS() const { return m_header.channels; }

    /// The file last read; "" when it did not exist.
    QString FileName() const { return m_fileName; }

    /// Reads a file. A missing one, or a folder, leaves every member but InfoString cleared and the name empty. One
    /// that may not be read keeps its name and counts as an empty file.
    void setFileName(const QString &path);

    // The tag's texts without the blanks at their end, NULs kept. Set texts are cut to the field's width and made
    // Windows-1252; WriteTag() puts them into the file. Without a tag they are empty.
    QString Comments() const;
    QString Year() const;
    QString Album() const;
    QString Artist() const;
    QString Title() const;
    void setComments(const QString &text);
    void setYear(const QString &text);
    void setAlbum(const QString &text);
    void setArtist(const QString &text);
    void setTitle(const QString &text);

    /// The genre's number, 0 to 255; 12 without a tag.
    std::uint8_t Genre() const { return m_tag.genre; }
    void setGenre(std::uint8_t genre) { m_tag.genre = genre; }

    /// Blanks the tag in the file with 127 NULs; length and genre byte stay. False when there is no such file, it is
    /// shorter than a tag or cannot be written; it is then as it was.
    bool ClearTag();

    /// Does the file end with a tag? Asks the file, not the members.
    bool HasTag() const;

    /// Writes the tag over the file's last 128 bytes, be they a tag or not: the file never grows. False as ClearTag().
    bool WriteTag();

    /// The genre list's entry at a position: "" at 0, the name of genre n at n + 1, "" beyond.
    static QString GenreText(int index) { return genreText(index); }

    /// Fills a list control with the genre list and selects the entry of a genre number, the empty one for a number
    /// without a name. The control has clear(), addItem(QString) and setCurrentIndex(int).
    template<class ListControl>
    static void FillComboGenre(ListControl &combo, int index)
    {
        combo.clear();
        for (int position = 0; position < genreEntryCount; ++position)
            combo.addItem(genreText(position));
        combo.setCurrentIndex(genrePosition(index));
    }

    /// A size in bytes for people: "999 bytes", "1.0 KB", "1.46 MB", "2.0 GB". Empty for a negative size and for those
    /// few that lie between two ranges (999 to 1000; 1,023,999 to 1,024,000; 1,023,999,999 up to 1,024,000,000).
    static QString FormatFileSize(double size);

private:
    void ClearInfo();
    void ReadFileInfo(const ByteFile &file);
    void takeHeader(const FrameHeader &header);
    bool overwriteTag(QByteArrayView bytes) const;

    QString m_fileName;
    QString m_infoString;
    FrameHeader m_header;
    Id3v1Tag m_tag;
};
