// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/dropped_files.h"

#include "base/names.h"
#include "platform/drives.h"
#include "platform/folders.h"
#include "settings/skin_files.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
const QStringList listedEndings = {u"mp3"_s};

bool isSong(const QString &path, const QStringList &endings)
{
    const auto isItsEnding = [&](const QString &ending) { return path.endsWith(u'.' + ending, Qt::CaseInsensitive); };
    return std::any_of(endings.begin(), endings.end(), isItsEnding) && fileLength(path);
}

bool isListed(const QString &path, const QString &musicFolder)
{
    return isSong(path, listedEndings) && isSameFolder(FolderFromPath(path), musicFolder);
}

bool isItself(const QString &path, const QString &musicFolder)
{
    return folderExists(path) && isSameFolder(path, musicFolder);
}
} // namespace

ForPlayer meantForPlayer(const QStringList &paths, const QStringList &endings)
{
    for (const QString &path : paths) {
        if (isMeantAsSkin(path))
            return {{}, {}, path};
        if (folderExists(path))
            return {{}, path, {}};
        if (isSong(path, endings))
            return {path, {}, {}};
    }
    return {};
}

QStringList meantForPlayList(const QStringList &paths, const QString &musicFolder)
{
    QStringList names;
    for (const QString &path : paths) {
        if (isListed(path, musicFolder)) {
            names += FileNameFromPath(spelledAsOnDisk(path));
        } else if (isItself(path, musicFolder)) {
            NameList all = filesIn(path, listedEndings);
            all.sort();
            names += all.toStringList();
        }
    }
    return names;
}

bool isAnyForPlayList(const QStringList &paths, const QString &musicFolder)
{
    return std::any_of(paths.begin(), paths.end(), [&](const QString &path) {
        return isListed(path, musicFolder) || (isItself(path, musicFolder) && holdsFile(path, listedEndings));
    });
}
