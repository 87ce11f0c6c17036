// SPDX-License-Identifier: GPL-3.0-or-later
// A zip archive: no entry leads out of it, and none costs more than its bound.
#include "fuzz/targets.h"
#include "settings/zip_archive.h"

using namespace Qt::StringLiterals;

namespace
{
void checkEntry(const ZipArchive &archive, const ZipEntry &entry)
{
    constexpr qint64 longest = 4096;
    const QString path = u'/' + entry.folder + u'/' + entry.name + u'/';
    promise(!entry.name.isEmpty() && !entry.name.contains(u'/') && !path.contains(u'\\'));
    promise(!path.contains(u"/../"_s) && !path.contains(u"/./"_s) && !entry.folder.startsWith(u'/'));
    const ZipContents contents = archive.read(entry, longest);
    promise(contents.bytes.size() <= longest);
    promise(contents.result == ZipContents::Whole || contents.bytes.isEmpty());
}
} // namespace

void fuzz::archive(QByteArrayView bytes)
{
    const ZipArchive archive(bytes.toByteArray());
    const QList<ZipEntry> entries = archive.entries();
    promise(entries.isEmpty() || archive.state() == ZipArchive::State::Open);
    promise(entries.size() <= ZipArchive::mostEntries);
    for (const ZipEntry &entry : entries)
        checkEntry(archive, entry);
}
