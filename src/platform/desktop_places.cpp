// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop_places.h"

#include "platform/drives.h"
#include "platform/folders.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace
{
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
    const QString own = QDir::tempPath() + u"/kiv-mp3-"_s + qEnvironmentVariable("USER", u"user"_s);
    QDir().mkpath(own);
    return own;
}

QString skinsFolder()
{
    const QString chosen = qEnvironmentVariable("KIV_MP3_SKINS");
    return chosen.isEmpty() ? ownFolder(u"skins"_s) : chosen;
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
