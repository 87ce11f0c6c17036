// SPDX-License-Identifier: GPL-3.0-or-later
#include "remote/cover_files.h"

#include "base/names.h"
#include "platform/desktop.h"
#include "platform/drives.h"
#include "platform/entries.h"
#include "platform/scratch_file.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QFile>
#include <QImageReader>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
constexpr qsizetype mostFiles = 4; // Listeners may still look at the one before.
constexpr int largestSide = 8192;  // Larger ones would be a burden for whoever shows them.
constexpr int ownersOnly = 0600;
const QByteArray nameStart = "cover-";
const QByteArrayList kinds = {"jpeg", "png", "gif", "webp", "bmp"};

// The kind of the picture, "jpeg" or the like; empty for what is none or is too large. Looks at its first bytes only.
QByteArray kindOf(QByteArray &picture)
{
    QBuffer buffer(&picture);
    QImageReader reader(&buffer);
    const QByteArray kind = reader.format();
    const QSize size = kinds.contains(kind) ? reader.size() : QSize();
    const bool isShown = size.isValid() && std::max(size.width(), size.height()) <= largestSide;
    return isShown ? kind : QByteArray();
}

bool isFile(const QByteArray &path)
{
    return hostEntryExists(path) && !isHostFolder(path);
}

bool writeFile(const QByteArray &path, QByteArrayView bytes)
{
    std::optional<ScratchFile> file = ScratchFile::make(hostFolderOf(path), ownersOnly);
    return file && writeAll(file->handle(), bytes) && file->commit(path, Existing::Replace) == RenameResult::Done;
}

QString uriOfHost(const QByteArray &path)
{
    return fileUri(programPath(QFile::decodeName(path)));
}
} // namespace

CoverFiles::~CoverFiles()
{
    for (const QByteArray &file : m_files)
        removeEntry(file);
}

void CoverFiles::tidy()
{
    const QByteArray folder = QFile::encodeName(cacheFolder()) + '/';
    for (const QByteArray &name : hostEntries(folder, nameStart).value_or(QList<QByteArray>()))
        removeEntry(folder + name);
}

QString CoverFiles::uriOf(QByteArray picture)
{
    const QByteArray kind = picture.isEmpty() ? QByteArray() : kindOf(picture);
    if (kind.isEmpty())
        return {};
    const QByteArray hash = QCryptographicHash::hash(picture, QCryptographicHash::Sha1).toHex();
    makeCacheFolder();
    const QByteArray file = QFile::encodeName(cacheFolder()) + '/' + nameStart + hash + '.' + kind;
    if (!isFile(file) && !writeFile(file, picture))
        return {};
    m_files.removeOne(file);
    m_files += file;
    if (m_files.size() > mostFiles)
        removeEntry(m_files.takeFirst());
    return uriOfHost(file);
}

// A few spellings rather than any: a folder of a hundred thousand songs is not looked through for each of them.
QString folderCoverUri(const QString &song)
{
    for (const auto &name : {u"cover.jpg"_s, u"Cover.jpg"_s, u"folder.jpg"_s, u"Folder.jpg"_s})
        if (const QString path = tidyPathIn(FolderFromPath(song), name); isFile(hostPath(path)))
            return fileUri(path);
    return {};
}
