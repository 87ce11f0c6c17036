// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/names.h"

#include <algorithm>
#include <vector>

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

void sortNames(QStringList &names)
{
    // The folded form of each name is made once: comparing 100,000 names without it folds every one seventeen times.
    std::vector<std::pair<QString, QString>> keyed;
    keyed.reserve(static_cast<std::size_t>(names.size()));
    for (QString &name : names) {
        QString key = name.toCaseFolded();
        keyed.emplace_back(std::move(key), std::move(name));
    }
    std::sort(keyed.begin(), keyed.end());
    std::transform(keyed.begin(), keyed.end(), names.begin(), [](auto &pair) { return std::move(pair.second); });
}
