// SPDX-License-Identifier: GPL-3.0-or-later
// The fixed places of the player's own files, as paths of the program.
#pragma once

#include <QString>

namespace paths
{
inline const QString programFolder = QStringLiteral("c:\\KIV Mp3");
inline const QString settingsFolder = QStringLiteral("c:\\KIV Mp3\\Setting Files");
inline const QString settingsFolderTest = QStringLiteral("c:\\KIV Mp3\\Setting Files\\"); // For FileExists().
inline const QString settingsFile = QStringLiteral("C:\\KIV Mp3\\Setting Files\\Settings.KiV");
inline const QString playListFile = QStringLiteral("c:\\KIV Mp3\\Setting Files\\PlayList.kiv");
inline const QString playTimesFile = QStringLiteral("c:\\KIV Mp3\\Setting Files\\PlayTimes.kiv");
inline const QString sideFile = QStringLiteral("c:\\test.txt"); // Written by two windows, read by nobody.
inline const QString desktopLink = QStringLiteral("..\\..\\Desktop\\KiV Mp3.lnk");
} // namespace paths
