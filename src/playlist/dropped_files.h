// SPDX-License-Identifier: GPL-3.0-or-later
// What files and folders mean that come from outside. Paths are the program's.
#pragma once

#include <QString>
#include <QStringList>

/// For the player: a song to play, a folder to be the music folder, a skin to wear, or nothing; never two of them.
struct ForPlayer {
    QString song;
    QString folder;
    QString skin;

    bool isNothing() const { return song.isEmpty() && folder.isEmpty() && skin.isEmpty(); }
};

/// The first path that is a skin, a song (a file with one of the endings) or another folder.
ForPlayer meantForPlayer(const QStringList &paths, const QStringList &endings);

/// For the play list: the file names of the songs among them, each as spelled on the disk; of the music folder itself
/// all its songs, sorted. Its entries are bare names that are looked for as .mp3 in the music folder: what lies
/// elsewhere or ends otherwise is none for it.
QStringList meantForPlayList(const QStringList &paths, const QString &musicFolder);

/// Would there be any?
bool isAnyForPlayList(const QStringList &paths, const QString &musicFolder);
