// SPDX-License-Identifier: GPL-3.0-or-later
// The settings: which keys there are, where they lie, and the two operations through which every one of them is read
// and written. Nothing is kept in memory here; the check boxes of the options window are the flags' home.
#pragma once

#include <QString>

/// The fixed places of the player's own files, as paths of the program.
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

enum class Setting {
    AlphaBlending, // "1": the windows are translucent.
    ToolTipData,   // "1": pointing at a song shows its data.
    Browse4Dialog, // "1": the desktop's folder picker instead of the player's own.
    Mp3Path,       // The music folder.
    Volume,        // In hundredths of a decibel; "0": take the engine's.
    ShortCut,      // Written at the first start, never read.
};

/// The value of a key; "" for a missing file, section or key. key itself is changed to lower case. At most 749
/// characters come back.
QString ReadIniKey(const QString &section, QString &key, const QString &file);

/// Writes the key in upper case. A write that fails (a missing folder, a full disk) is lost silently; the old file
/// stays.
void WriteIniKey(const QString &section, const QString &key, const QString &value, const QString &file);

/// The stored name of a setting, in mixed case.
QString settingKey(Setting setting);

/// Is there no settings file, as before the first start?
bool settingsAreMissing();

/// The setting as it stands in the settings file. One that was there but could not be read stays as it is: writing it
/// does nothing until it has been read.
QString readSetting(Setting setting);
void writeSetting(Setting setting, const QString &value);

/// Writes into the side file, which is never read back.
void writeSideSetting(Setting setting, const QString &value);

/// Makes the program's folder and the settings folder in it where they are missing.
void ensureSettingsFolder();
