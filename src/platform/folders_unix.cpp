// SPDX-License-Identifier: GPL-3.0-or-later
// Folders and their entries on Unix hosts. Reads the folder itself, not each file: a million songs are normal.
#include "platform/drives.h"
#include "platform/file_names.h"
#include "platform/folders.h"
#include "platform/scratch_file.h"

#include <algorithm>
#include <dirent.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{
enum class Kind { File, Folder };

using OpenFolder = std::unique_ptr<DIR, int (*)(DIR *)>;

OpenFolder openFolder(const QByteArray &hostFolder)
{
    return {::opendir(hostFolder.constData()), ::closedir};
}

std::optional<struct stat> statusOf(const QByteArray &hostPath)
{
    struct stat status = {};
    if (hostPath.isEmpty() || ::stat(hostPath.constData(), &status) != 0)
        return std::nullopt;
    return status;
}

bool isKind(const QByteArray &hostFolder, const dirent &entry, Kind kind)
{
    if (entry.d_type == DT_REG || entry.d_type == DT_DIR)
        return (entry.d_type == DT_REG) == (kind == Kind::File);
    const auto status = statusOf(hostFolder + '/' + entry.d_name); // A link, or a file system that does not say.
    return status && (kind == Kind::File ? S_ISREG(status->st_mode) : S_ISDIR(status->st_mode));
}

bool endsWithOneOf(QByteArrayView name, const QList<QByteArray> &endings)
{
    return endings.isEmpty() || std::any_of(endings.begin(), endings.end(), [&](const QByteArray &ending) {
               return name.size() > ending.size() && name.last(ending.size()).compare(ending, Qt::CaseInsensitive) == 0;
           });
}

void passOver(const QByteArray &, const QByteArray &) {}

// Calls visit(name) for each entry of the kind until it returns false, and visitHidden(folder, name) for hidden ones.
template<class Visitor>
void visitEntries(const QByteArray &hostFolder, Kind kind, const QList<QByteArray> &endings, Visitor visit,
                  void (*visitHidden)(const QByteArray &, const QByteArray &) = passOver)
{
    const OpenFolder folder = openFolder(hostFolder);
    while (const dirent *entry = folder ? ::readdir(folder.get()) : nullptr) {
        const QByteArrayView name(entry->d_name);
        if (name.startsWith('.'))
            visitHidden(hostFolder + '/', name.toByteArray());
        else if (endsWithOneOf(name, endings) && isKind(hostFolder, *entry, kind) && !visit(name))
            return;
    }
}

QList<QByteArray> endingsOf(const QStringList &extensions)
{
    QList<QByteArray> endings;
    for (const QString &extension : extensions)
        endings += '.' + nameToHost(extension);
    return endings;
}

// Tidies the folder on the way: going through a million songs once more takes long.
NameList namesIn(const QString &folder, Kind kind, const QStringList &extensions)
{
    NameList names;
    const auto append = [&names](QByteArrayView name) {
        appendNameFromHost(names, name);
        return true;
    };
    visitEntries(hostPathOnDisk(folder), kind, endingsOf(extensions), append, removeIfScratchFile);
    names.squeeze();
    return names;
}
} // namespace

bool FileExists(const QString &path)
{
    if (path.isEmpty())
        return false;
    return path.endsWith(u'\\') ? holdsFile(path) : fileLength(path).has_value();
}

bool folderExists(const QString &path)
{
    const auto status = statusOf(hostPathOnDisk(path));
    return status && S_ISDIR(status->st_mode);
}

bool isSameFolder(const QString &first, const QString &second)
{
    return isSameFile(hostPathOnDisk(first), hostPathOnDisk(second));
}

std::optional<qint64> fileLength(const QString &path)
{
    const auto status = statusOf(hostPathOnDisk(path));
    return status && S_ISREG(status->st_mode) ? std::optional<qint64>(status->st_size) : std::nullopt;
}

NameList filesIn(const QString &folder, const QStringList &extensions)
{
    return namesIn(folder, Kind::File, extensions);
}

bool holdsFile(const QString &folder, const QStringList &extensions)
{
    bool found = false;
    visitEntries(hostPathOnDisk(folder), Kind::File, endingsOf(extensions), [&](QByteArrayView) {
        found = true;
        return false;
    });
    return found;
}

NameList foldersIn(const QString &folder)
{
    return namesIn(folder, Kind::Folder, {});
}

void MakeFolder(const QString &path)
{
    if (!folderExists(path))
        ::mkdir(hostPathOnDisk(path).constData(), 0777);
}

QString FileAttributeText(const QString &path)
{
    const auto status = statusOf(hostPathOnDisk(path));
    const bool isReadOnly = status && S_ISREG(status->st_mode) && (status->st_mode & S_IWUSR) == 0;
    return isReadOnly ? u"Read Only"_s : u"Normal"_s;
}
