// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/names.h"

#include <algorithm>

namespace
{
constexpr QChar backslash = u'\\';
}

QString FileNameFromPath(const QString &path)
{
    return path.mid(path.lastIndexOf(backslash) + 1);
}

QString FolderFromPath(const QString &path)
{
    return path.left(path.lastIndexOf(backslash) + 1);
}

QString withoutExtension(const QString &fileName)
{
    return fileName.left(std::max<qsizetype>(fileName.size() - 4, 0));
}

QString pathIn(const QString &folder, const QString &name)
{
    return folder + backslash + name;
}

QString tidyPathIn(const QString &folder, const QString &name)
{
    return folder.endsWith(backslash) ? folder + name : pathIn(folder, name);
}
