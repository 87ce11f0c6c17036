// SPDX-License-Identifier: GPL-3.0-or-later
// Normal files: read and written by position, or small ones as a whole.
#pragma once

#include "platform/entries.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <span>

/// An open file. Offsets count from 0.
class ByteFile
{
public:
    enum class Access { Read, ReadWrite };

    /// Opens an existing normal file; never creates one, never waits. To be written, its name must be spelled exactly.
    /// Nothing for a folder, a pipe, a missing file or a missing permission.
    static std::optional<ByteFile> open(const QString &path, Access access);

    /// The same to read an entry of a folder: just this one, and not where it leads if it is a link.
    static std::optional<ByteFile> openEntry(const QByteArray &hostPath);

    ByteFile(ByteFile &&other) noexcept;
    ByteFile &operator=(ByteFile &&other) noexcept;
    ByteFile(const ByteFile &) = delete;
    ByteFile &operator=(const ByteFile &) = delete;
    ~ByteFile();

    /// The length in bytes at the time of opening.
    qint64 length() const { return m_length; }

    /// Fills buffer from offset on and gives what was read: less at the end of the file, nothing beyond it. No value
    /// when the file could not be read or has ended before its length.
    std::optional<QByteArrayView> readAt(qint64 offset, std::span<char> buffer) const;

    /// The same into an array of its own.
    std::optional<QByteArray> readAt(qint64 offset, qint64 size) const;

    /// Writes all bytes at offset. False when it failed; what a short write has changed is put back where it can be.
    bool writeAt(qint64 offset, QByteArrayView bytes);

    /// Cuts or grows the file with zeros.
    bool resize(qint64 length);

    /// Waits until all that was written is on the disk.
    bool flush();

private:
    explicit ByteFile(int handle, qint64 length);
    static std::optional<ByteFile> ofNormalFile(int handle);
    qint64 writeSome(qint64 offset, QByteArrayView bytes);

    int m_handle;
    qint64 m_length;
};

/// Missing and unreadable are two things: only what is known to be missing may be made anew.
enum class Reading { Done, Missing, Failed };

struct FileContents {
    Reading reading = Reading::Failed;
    QByteArray bytes;
};

/// A play list of a million songs is shorter.
constexpr qint64 longestFile = qint64(1) << 26;

/// A small file as a whole. One that is longer than what can be meant counts as unreadable.
FileContents loadFile(const QString &path, qint64 longest = longestFile);

/// False while loadFile() could not read what is there.
bool mayReplace(const QString &path);

/// Replaces the file, or leaves the old one as it was: the new bytes are complete on the disk before they take its
/// name. Creates no folder. False when nothing was written, as for a file that may not be replaced.
bool saveFile(const QString &path, QByteArrayView bytes, Existing existing = Existing::Replace);

/// Makes the file, empty, where it is known to be missing.
void createIfMissing(const QString &path);
