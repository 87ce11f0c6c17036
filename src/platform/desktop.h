// SPDX-License-Identifier: GPL-3.0-or-later
// Where this desktop keeps things, and the shortcut to the player on it. Host paths in and out unless said otherwise.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/// The folder for the locks and sockets of this user's session; one below the temporary folder where there is none. ""
/// when that is not the user's own.
QString runtimeFolder();

/// The folder for what may be lost, and making it where it is missing.
QString cacheFolder();
void makeCacheFolder();

/// The folder of the skins that come with the player, one folder each: beside the program's data when installed, else
/// the source tree's.
QString skinsFolder();

/// The folder of the pictures of the skin that all others are based on: $KIV_MP3_SKINS, else the one among those.
QString firstSkinFolder();

/// The folder of the songs that come with the player, found like the skins; "" when they are not there.
QString demoSongsFolder();

/// The user's music folder and desktop folder.
QString musicFolder();
QString desktopFolder();

/// Where a first start looks for songs, as a program path: the process's folder if it holds songs of the extensions,
/// else the user's music folder if that does, else the songs that come with the player, else the music folder, empty.
QString firstMusicFolder(const QStringList &extensions);

/// The program's own executable in host form, cut to 127 characters.
QString AppFilePath();

/// The user's desktop folder as a program path; "" when there is none.
QString DesktopFolderPath();

/// The text of a shortcut file that starts target (in host form). icon is a picture's host path or "". Empty when
/// target is no valid UTF-8: such a file could not name it.
QByteArray shortcutText(const QString &name, const QByteArray &target, const QByteArray &icon);

/// Makes an executable shortcut of that name in folder (a program path, with or without a backslash at its end), or
/// replaces it. False when it could not be made.
bool createDesktopShortcut(const QString &folder, const QString &name, const QString &target);
