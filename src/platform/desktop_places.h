// SPDX-License-Identifier: GPL-3.0-or-later
// Where this desktop keeps things. Host paths in and out unless said otherwise.
#pragma once

#include <QString>

/// The folder for the locks and sockets of this user's session; one below the temporary folder where there is none.
QString runtimeFolder();

/// The folder that holds the skins: $KIV_MP3_SKINS, beside the program's data when installed, else the source tree's.
QString skinsFolder();

/// The folder of the songs that come with the player, found like the skins; "" when they are not there.
QString demoSongsFolder();

/// The user's music folder and desktop folder.
QString musicFolder();
QString desktopFolder();

/// Where a first start looks for songs, as a program path: the process's folder if it holds songs of the extensions,
/// else the user's music folder if that does, else the songs that come with the player, else the music folder, empty.
QString firstMusicFolder(const QStringList &extensions);
