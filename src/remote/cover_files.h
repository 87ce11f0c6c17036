// SPDX-License-Identifier: GPL-3.0-or-later
// Covers of songs as files, for listeners on the session bus: they are handed URIs, not pictures. The files lie in
// the cache folder, named after what is in them; the last few are kept, and all go in the end.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

class CoverFiles
{
public:
    CoverFiles() = default;
    CoverFiles(const CoverFiles &) = delete;
    CoverFiles &operator=(const CoverFiles &) = delete;
    ~CoverFiles();

    /// Removes what a player that was killed has left.
    static void tidy();

    /// The URI of a file with this picture in it; "" for what is no picture, or one too large to be shown, or where
    /// no file could be made.
    QString uriOf(QByteArray picture);

private:
    QList<QByteArray> m_files; // Host paths, the one asked for last at the end.
};

/// The URI of the cover that lies in the folder of a song (a program path), "cover.jpg" or "folder.jpg"; "" without
/// one.
QString folderCoverUri(const QString &song);
