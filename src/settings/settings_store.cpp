// SPDX-License-Identifier: GPL-3.0-or-later
// The settings file through the INI rules; the whole file is read and replaced at each call, it is a few lines long.
#include "settings/settings_store.h"

#include "platform/ansi_text.h"
#include "platform/drives.h"
#include "platform/files.h"
#include "platform/folders.h"
#include "settings/ini_file.h"

#include <array>

using namespace Qt::StringLiterals;

namespace
{
const QString sectionName = u"ZelkMp3"_s;

constexpr std::array<const char *, 6> keyNames = {"AlphaBlending", "ToolTipData", "Browse4Dialog",
                                                  "Mp3Path",       "Volume",      "ShortCut"};
static_assert(keyNames.size() == static_cast<std::size_t>(Setting::ShortCut) + 1);
} // namespace

QString ReadIniKey(const QString &section, QString &key, const QString &file)
{
    key = key.toLower();
    const auto bytes = loadFile(file);
    return bytes ? iniValue(decodeTextFile(*bytes), section, key) : QString();
}

void WriteIniKey(const QString &section, const QString &key, const QString &value, const QString &file)
{
    const auto bytes = loadFile(file);
    if (!bytes && FileExists(file))
        return; // There, but unreadable: replacing it would lose what it holds.
    const QString text = decodeTextFile(bytes.value_or(QByteArray()));
    saveFile(file, encodeTextFile(withIniValue(text, section, key.toUpper(), value)));
}

QString settingKey(Setting setting)
{
    return QString::fromLatin1(keyNames.at(static_cast<std::size_t>(setting)));
}

QString readSetting(Setting setting)
{
    QString key = settingKey(setting);
    return ReadIniKey(sectionName, key, paths::settingsFile);
}

void writeSetting(Setting setting, const QString &value)
{
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
