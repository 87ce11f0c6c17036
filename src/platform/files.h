// SPDX-License-Identifier: GPL-3.0-or-later
// Normal files: read and written by position, or small ones as a whole.
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// An open file. Offsets count from 0.
class ByteFile
{
public:
    enum class Access { Read, ReadWrite };

    /// Opens an existing normal file; never creates one, never waits. Nothing for a folder, a pipe, a missing file or
    /// a missing permission.
    static std::optional<ByteFile> open(const QString &path, Access access);

    ByteFile(ByteFile &&other) noexcept;
    ByteFile &operator=(ByteFile &&other) noexcept;
    ByteFile(const ByteFile &) = delete;
    ByteFile &operator=(const ByteFile &) = delete;
    ~ByteFile();

    /// The length in bytes at the time of opening.
    qint64 length() const { return m_length; }

    /// Reads up to size bytes into buffer; the number read: fewer at the end of the file, 0 beyond it or on failure.
    qint64 readAt(qint64 offset, char *buffer, qint64 size) const;

    /// The same into an array of its own.
    QByteArray readAt(qint64 offset, qint64 size) const;

    /// Writes all bytes at offset. False when it failed; what a short write has changed is put back where it can be.
    bool writeAt(qint64 offset, QByteArrayView bytes);

    /// Cuts or grows the file with zeros.
    bool resize(qint64 length);

    /// Waits until all that was written is on the disk.
    bool flush();

private:
    explicit ByteFile(int handle, qint64 length);
    qint64 writeSome(qint64 offset, QByteArrayView bytes);

    int m_handle;
    qint64 m_length;
};

/// The bytes of a normal file; nothing when it is missing or cannot be read.
std::optional<QByteArray> loadFile(const QString &path);

/// Replaces the file, or leaves the old one as it was: the new bytes are complete on the disk before they take its
/// name. Creates no folder. False when nothing was written.
bool saveFile(const QString &path, QByteArrayView bytes);
