// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/zip_archive.h"

#include "platform/loaded_library.h"

#include <QStringList>

#include <algorithm>
#include <optional>
#include <zip.h>

using namespace Qt::StringLiterals;

namespace
{
// The kind of an entry that comes from Unix is in the upper half of its attributes; 0 where it is not told.
constexpr quint32 kindBits = 0170000;
constexpr quint32 normalKind = 0100000;
constexpr int kindShift = 16;

constexpr qint64 pieceLength = qint64(1) << 16;

// Each entry has such a mark in the archive's directory. One that lies about their number is known by them before a
// directory of a million is read.
constexpr QByteArrayView entryMark("PK\x01\x02");

// The levels of a path; some programs write backslashes. Nothing for one that leaves the archive.
std::optional<QStringList> levelsOf(QString path)
{
    QStringList levels = path.replace(u'\\', u'/').split(u'/');
    levels.removeAll(u"."_s);
    if (levels.isEmpty() || levels.contains(QString()) || levels.contains(u".."_s))
        return std::nullopt;
    return levels;
}
} // namespace

struct ZipArchive::Library : LoadedLibrary {
    explicit Library(int version) : LoadedLibrary(u"zip"_s, version) {}
    Function<decltype(::zip_source_buffer_create)> source_buffer_create{*this, "zip_source_buffer_create"};
    Function<decltype(::zip_source_free)> source_free{*this, "zip_source_free"};
    Function<decltype(::zip_open_from_source)> open_from_source{*this, "zip_open_from_source"};
    Function<decltype(::zip_discard)> discard{*this, "zip_discard"};
    Function<decltype(::zip_get_num_entries)> get_num_entries{*this, "zip_get_num_entries"};
    Function<decltype(::zip_get_name)> get_name{*this, "zip_get_name"};
    Function<decltype(::zip_file_get_external_attributes)> external_attributes{*this,
                                                                               "zip_file_get_external_attributes"};
    Function<decltype(::zip_stat_index)> stat_index{*this, "zip_stat_index"};
    Function<decltype(::zip_fopen_index)> fopen_index{*this, "zip_fopen_index"};
    Function<decltype(::zip_fread)> fread{*this, "zip_fread"};
    Function<decltype(::zip_fclose)> fclose{*this, "zip_fclose"};
};

// Debian has a number of its own for the same functions.
const ZipArchive::Library &ZipArchive::library()
{
    static std::optional<Library> only;
    for (const int version : {4, 5}) {
        if (!only || !only->isComplete())
            only.emplace(version); // The one before must be gone: it is known by its name alone.
    }
    return *only;
}

ZipArchive::ZipArchive(const QByteArray &bytes) : m_bytes(bytes)
{
    if (!library().isComplete())
        m_state = State::NoLibrary;
    else if (bytes.count(entryMark) > mostEntries)
        m_state = State::TooManyEntries;
    else
        open();
}

ZipArchive::~ZipArchive()
{
    if (m_archive)
        library().discard(static_cast<zip_t *>(m_archive));
}

void ZipArchive::open()
{
    zip_source_t *source =
        library().source_buffer_create(m_bytes.constData(), static_cast<zip_uint64_t>(m_bytes.size()), 0, nullptr);
    m_archive = source ? library().open_from_source(source, ZIP_RDONLY, nullptr) : nullptr;
    if (m_archive)
        m_state = State::Open;
    else if (source)
        library().source_free(source);
}

bool ZipArchive::isNormalFile(quint64 index) const
{
    zip_uint8_t system = 0;
    zip_uint32_t attributes = 0;
    library().external_attributes(static_cast<zip_t *>(m_archive), index, 0, &system, &attributes);
    const quint32 kind = attributes >> kindShift & kindBits;
    return kind == 0 || kind == normalKind;
}

QList<ZipEntry> ZipArchive::entries() const
{
    QList<ZipEntry> found;
    auto *archive = static_cast<zip_t *>(m_archive);
    const zip_int64_t count = archive ? library().get_num_entries(archive, 0) : 0;
    for (zip_uint64_t i = 0; i < static_cast<zip_uint64_t>(count); ++i) {
        auto levels = levelsOf(QString::fromUtf8(library().get_name(archive, i, ZIP_FL_ENC_GUESS)));
        if (levels && isNormalFile(i)) {
            const QString name = levels->takeLast();
            found += {levels->join(u'/'), name, i};
        }
    }
    return found;
}

ZipContents ZipArchive::read(const ZipEntry &entry, qint64 longest) const
{
    auto *archive = static_cast<zip_t *>(m_archive);
    zip_stat_t told = {};
    if (library().stat_index(archive, entry.index, 0, &told) == 0 && told.encryption_method != ZIP_EM_NONE)
        return {ZipContents::Encrypted, {}};
    zip_file_t *file = library().fopen_index(archive, entry.index, 0);
    if (!file)
        return {};
    // The sum over the bytes is compared when the end has been met.
    QByteArray bytes;
    QByteArray piece(pieceLength, Qt::Uninitialized);
    zip_int64_t got = 1;
    while (got > 0 && bytes.size() <= longest) {
        got = library().fread(file, piece.data(), static_cast<zip_uint64_t>(piece.size()));
        bytes.append(piece.constData(), std::max<zip_int64_t>(got, 0));
    }
    library().fclose(file);
    if (bytes.size() > longest)
        return {ZipContents::TooLong, {}};
    return got < 0 ? ZipContents() : ZipContents{ZipContents::Whole, bytes};
}
