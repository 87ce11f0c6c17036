// SPDX-License-Identifier: GPL-3.0-or-later
// The desktop by the conventions of freedesktop.org.
#include "platform/desktop.h"
#include "platform/drives.h"
#include "platform/entries.h"
#include "platform/files.h"
#include "platform/folders.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QStringDecoder>

#include <string_view>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{
constexpr qsizetype longestAppPath = 127;

bool isUtf8(const QByteArray &bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder(bytes);
    return !text.isNull() && !decoder.hasError();
}

// The escapes that every value of the file knows.
QByteArray asValue(const QByteArray &text)
{
    QByteArray value = text;
    return value.replace('\\', "\\\\").replace('\n', "\\n").replace('\r', "\\r").replace('\t', "\\t");
}

// A command in quotation marks: a backslash before what is special between them, a doubled percent sign.
QByteArray quoted(const QByteArray &command)
{
    constexpr std::string_view special = "\"`$\\";
    QByteArray text = "\"";
    for (const char character : command) {
        if (special.find(character) != std::string_view::npos)
            text += '\\';
        text += character;
        if (character == '%')
            text += '%';
    }
    return text + '"';
}

QByteArray iconFile()
{
    const QString file = firstSkinFolder() + u"/icon-128.png"_s;
    return QFile::exists(file) ? QFile::encodeName(file) : QByteArray();
}

// A folder of the player's own files: beside an installed program, else in the tree it was built from.
QString ownFolder(const QString &name)
{
    const QString program = QCoreApplication::applicationDirPath();
    for (const QString &place : {u"/" KIV_DATA_FROM_PROGRAM "/kiv-mp3/"_s, u"/../../../../"_s}) {
        const QString folder = QDir::cleanPath(program + place + name);
        if (QDir(folder).exists())
            return folder;
    }
    return {};
}
} // namespace

QString runtimeFolder()
{
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!runtime.isEmpty() && QDir(runtime).exists())
        return runtime;
    const QString own = QDir::tempPath() + u"/kiv-mp3-"_s + QString::number(::geteuid());
    const bool isOwn = haveOwnFolder(QFile::encodeName(own), Others::MayNotChange);
    return isOwn ? own : QString(); // Else anybody could have put something there.
}

QString cacheFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) + u"/kiv-mp3"_s;
}

void makeCacheFolder()
{
    QDir().mkpath(cacheFolder());
}

QString skinsFolder()
{
    return ownFolder(u"skins"_s);
}

QString firstSkinFolder()
{
    const QString chosen = qEnvironmentVariable("KIV_MP3_SKINS");
    return chosen.isEmpty() ? skinsFolder() + u"/graphite"_s : chosen;
}

QString demoSongsFolder()
{
    return ownFolder(u"demo/music"_s);
}

QString musicFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::MusicLocation);
}

QString desktopFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
}

QString firstMusicFolder(const QStringList &extensions)
{
    for (const QString &folder : {QDir::currentPath(), musicFolder(), demoSongsFolder()}) {
        const QString path = programPath(folder);
        if (!path.isEmpty() && holdsFile(path, extensions))
            return path;
    }
    return programPath(musicFolder());
}

QString AppFilePath()
{
    return QCoreApplication::applicationFilePath().left(longestAppPath);
}

QString DesktopFolderPath()
{
    return programPath(desktopFolder());
}

QByteArray shortcutText(const QString &name, const QByteArray &target, const QByteArray &icon)
{
    if (!isUtf8(target))
        return {};
    QByteArray text = "[Desktop Entry]\nType=Application\nName=" + asValue(name.toUtf8()) +
                      "\nComment=Play the songs of a folder\nExec=" + asValue(quoted(target)) + '\n';
    if (!icon.isEmpty() && isUtf8(icon))
        text += "Icon=" + asValue(icon) + '\n';
    return text + "Terminal=false\nCategories=AudioVideo;Audio;Player;\n";
}

bool createDesktopShortcut(const QString &folder, const QString &name, const QString &target)
{
    const QString file = folder + u'\\' + name + u".desktop"_s;
    const QByteArray text = shortcutText(name, hostPath(target), iconFile());
    if (text.isEmpty() || !saveFile(file, text))
        return false;
    QFile made(QFile::decodeName(hostPathOnDisk(file)));
    return made.setPermissions(made.permissions() | QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther);
}
