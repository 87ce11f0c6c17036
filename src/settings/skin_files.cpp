// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/skin_files.h"

#include "base/names.h"
#include "controls/pictures.h"
#include "platform/drives.h"
#include "platform/entries.h"
#include "platform/file_names.h"
#include "platform/files.h"
#include "platform/folders.h"
#include "settings/skin_store.h"
#include "settings/zip_archive.h"

#include <algorithm>
#include <functional>
#include <optional>

using namespace Qt::StringLiterals;

namespace
{
const QString archiveEnding = u".zip"_s;
const QString macFolder = u"__MACOSX"_s; // What macOS puts beside the files of an archive.

constexpr qint64 longestSkin = qint64(1) << 26; // An archive, and what comes out of it.

// The bytes of a file, else what is wrong with it: "is damaged".
struct Part {
    QByteArray bytes;
    QString fault;
};

using ReadPart = std::function<Part(qsizetype at, qint64 longest)>;

Part tooLong(qint64 longest)
{
    const qint64 kb = longest >> 10;
    return {{}, kb < 1024 ? u"is larger than %1 KB"_s.arg(kb) : u"is larger than %1 MB"_s.arg(kb >> 10)};
}

bool isNamed(const QString &name, const QString &wanted)
{
    return name.compare(wanted, Qt::CaseInsensitive) == 0;
}

// The very spelling goes before another one, and then the first.
qsizetype findName(const QString &wanted, const QStringList &names)
{
    const qsizetype exact = names.indexOf(wanted);
    const auto found = std::find_if(names.begin(), names.end(), [&](const QString &n) { return isNamed(n, wanted); });
    return exact >= 0 ? exact : found == names.end() ? -1 : found - names.begin();
}

// Takes what a skin can have of the files there are: read(i) gives the one that has the name i of names.
void take(SkinFiles &skin, const QString &source, const QStringList &names, const ReadPart &read)
{
    if (findName(skinFileName, names) < 0) {
        skin.fault = u"%1 holds no skin: there is no skin.ini in it."_s.arg(source);
        return;
    }
    qint64 length = 0;
    for (const QString &name : skinFileNames()) {
        const qsizetype at = findName(name, names);
        if (at < 0)
            continue;
        const Part part = read(at, name == skinFileName ? longestSkinText : longestPicture);
        length += part.bytes.size();
        if (!part.fault.isEmpty())
            skin.fault = u"%1 in %2 %3."_s.arg(name, source, part.fault);
        else if (length > longestSkin)
            skin.fault = u"%1 holds pictures of more than 64 MB, which no skin has."_s.arg(source);
        if (!skin.fault.isEmpty())
            return skin.files.clear();
        skin.files.insert(name, part.bytes);
    }
}

Part readEntry(const QByteArray &path, qint64 longest)
{
    const auto file = ByteFile::openEntry(path);
    if (file && file->length() > longest)
        return tooLong(longest);
    const auto bytes = file ? file->readAt(0, file->length()) : std::nullopt;
    return bytes ? Part{*bytes, {}} : Part{{}, u"cannot be read: %1"_s.arg(hostErrorText())};
}

SkinFiles skinInFolder(const QString &path)
{
    const QByteArray folder = hostPath(path) + '/';
    SkinFiles skin{FileNameFromPath(path), path, {}, {}};
    const auto entries = hostEntries(folder);
    if (!entries) {
        skin.fault = u"%1 cannot be read: %2."_s.arg(skin.name, hostErrorText());
        return skin;
    }
    const QStringList known = skinFileNames();
    QStringList names;
    for (const QByteArray &entry : *entries) {
        const QString name = nameFromHost(entry);
        if (known.contains(name, Qt::CaseInsensitive) && isNormalEntry(folder + entry))
            names += name;
    }
    names.sort();
    take(skin, skin.name, names,
         [&](qsizetype at, qint64 longest) { return readEntry(folder + nameToHost(names[at]), longest); });
    return skin;
}

// The entries of the folder that has a skin.ini nearest to the top, none where there is no such file; nothing where two
// folders have one that is as near.
std::optional<QList<ZipEntry>> entriesOfSkin(const QList<ZipEntry> &all)
{
    QList<ZipEntry> texts; // All as near.
    for (const ZipEntry &entry : all) {
        if (!isNamed(entry.name, skinFileName) || entry.folder.startsWith(macFolder))
            continue;
        if (!texts.isEmpty() && entry.depth() < texts.first().depth())
            texts.clear();
        if (texts.isEmpty() || entry.depth() == texts.first().depth())
            texts += entry;
    }
    QList<ZipEntry> found;
    if (texts.isEmpty())
        return found;
    const auto isBeside = [&](const ZipEntry &entry) { return entry.folder == texts.first().folder; };
    if (!std::all_of(texts.begin(), texts.end(), isBeside))
        return std::nullopt;
    std::copy_if(all.begin(), all.end(), std::back_inserter(found), isBeside);
    return found;
}

Part readEntry(const ZipArchive &archive, const ZipEntry &entry, qint64 longest)
{
    const ZipContents contents = archive.read(entry, longest);
    switch (contents.result) {
    case ZipContents::Whole:
        return {contents.bytes, {}};
    case ZipContents::TooLong:
        return tooLong(longest);
    case ZipContents::Encrypted:
        return {{}, u"is encrypted"_s};
    case ZipContents::Damaged:
        break;
    }
    return {{}, u"is damaged, or packed in a way that is not known"_s};
}

QString faultOf(ZipArchive::State state, const QString &source)
{
    switch (state) {
    case ZipArchive::State::Open:
        return {};
    case ZipArchive::State::NoLibrary:
        return u"Archives need the library libzip (package libzip4); a folder can be dropped without it."_s;
    case ZipArchive::State::TooManyEntries:
        return u"%1 holds more than %2 files, which no skin has."_s.arg(source).arg(ZipArchive::mostEntries);
    case ZipArchive::State::Unreadable:
        break;
    }
    return u"%1 is damaged, or is no zip archive."_s.arg(source);
}

Part archiveBytes(const QString &path)
{
    const auto file = ByteFile::open(path, ByteFile::Access::Read);
    if (file && file->length() > longestSkin)
        return {{}, u"is larger than 64 MB, which no skin is"_s};
    const auto bytes = file ? file->readAt(0, file->length()) : std::nullopt;
    return bytes ? Part{*bytes, {}} : Part{{}, u"cannot be read"_s};
}

SkinFiles skinInArchive(const QString &path)
{
    const QString source = FileNameFromPath(path);
    SkinFiles skin{withoutExtension(source), {}, {}, {}};
    const Part bytes = archiveBytes(path);
    if (!bytes.fault.isEmpty()) {
        skin.fault = u"%1 %2."_s.arg(source, bytes.fault);
        return skin;
    }
    const ZipArchive archive(bytes.bytes);
    const auto entries = entriesOfSkin(archive.entries());
    skin.fault = entries ? faultOf(archive.state(), source)
                         : u"%1 holds more than one skin: unpack it, and drop the folder of one."_s.arg(source);
    if (!skin.fault.isEmpty())
        return skin;
    if (!entries->isEmpty() && !entries->first().folder.isEmpty())
        skin.name = entries->first().folder.section(u'/', -1);
    QStringList names;
    for (const ZipEntry &entry : *entries)
        names += entry.name;
    take(skin, source, names,
         [&](qsizetype at, qint64 longest) { return readEntry(archive, entries->at(at), longest); });
    return skin;
}
} // namespace

QStringList skinFileNames()
{
    return QStringList(skinFileName) + pictureFileNames();
}

bool isMeantAsSkin(const QString &path)
{
    if (path.endsWith(archiveEnding, Qt::CaseInsensitive))
        return fileLength(path).has_value();
    return hostEntryExists(hostPath(path) + '/' + skinFileName.toUtf8());
}

SkinFiles skinIn(const QString &path)
{
    const QString itself = path.endsWith(u'\\') ? path.chopped(1) : path;
    return isHostFolder(hostPath(itself)) ? skinInFolder(itself) : skinInArchive(itself);
}
