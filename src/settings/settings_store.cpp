// SPDX-License-Identifier: GPL-3.0-or-later
// The settings file through the INI rules; the whole file is read and replaced at each call, it is a few lines long.
#include "settings/settings_store.h"

#include "base/ini_file.h"
#include "platform/ansi_text.h"
#include "platform/drives.h"
#include "platform/files.h"
#include "platform/folders.h"

#include <array>

using namespace Qt::StringLiterals;

namespace
{
const QString sectionName = u"ZelkMp3"_s;

constexpr std::array<const char *, 6> keyNames = {"AlphaBlending", "ToolTipData", "Browse4Dialog",
                                                  "Mp3Path",       "Volume",      "ShortCut"};
static_assert(keyNames.size() == static_cast<std::size_t>(Setting::ShortCut) + 1);

// Settings that could not be read when they were asked for: what the program took instead is no reason to lose them.
std::array<bool, keyNames.size()> unread = {};

// What is longer is no settings file, and would hold up the start.
FileContents loadSettings(const QString &file)
{
    constexpr qint64 longestSettings = 1 << 20;
    return loadFile(file, longestSettings);
}

std::size_t indexOf(Setting setting)
{
    return static_cast<std::size_t>(setting);
}
} // namespace

QString ReadIniKey(const QString &section, QString &key, const QString &file)
{
    key = key.toLower();
    return iniValue(decodeTextFile(loadSettings(file).bytes), section, key);
}

void WriteIniKey(const QString &section, const QString &key, const QString &value, const QString &file)
{
    const FileContents contents = loadSettings(file);
    if (contents.reading == Reading::Failed)
        return;
    const QString text = decodeTextFile(contents.bytes);
    saveFile(file, encodeTextFile(withIniValue(text, section, key.toUpper(), value)));
}

QString settingKey(Setting setting)
{
    return QString::fromLatin1(keyNames.at(indexOf(setting)));
}

bool settingsAreMissing()
{
    return loadSettings(paths::settingsFile).reading == Reading::Missing;
}

QString readSetting(Setting setting)
{
    QString key = settingKey(setting);
    const QString value = ReadIniKey(sectionName, key, paths::settingsFile);
    unread.at(indexOf(setting)) = !mayReplace(paths::settingsFile);
    return value;
}

void writeSetting(Setting setting, const QString &value)
{
    if (!unread.at(indexOf(setting)))
        WriteIniKey(sectionName, settingKey(setting), value, paths::settingsFile);
}

void writeSideSetting(Setting setting, const QString &value)
{
    WriteIniKey(sectionName, settingKey(setting), value, paths::sideFile);
}

void ensureSettingsFolder()
{
    makeDataFolder();
    MakeFolder(paths::programFolder);
    MakeFolder(paths::settingsFolder);
}
