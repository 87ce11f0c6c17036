// SPDX-License-Identifier: GPL-3.0-or-later
// A zip archive in memory, from anybody: what normal files it holds, and the bytes of one of them, never more than the
// caller has room for. Nothing is written, and no path of an archive leads anywhere.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <memory>

struct ZipEntry {
    QString folder; // In the archive, its levels between slashes; "" for the top.
    QString name;
    quint64 index;

    qsizetype depth() const { return folder.isEmpty() ? 0 : folder.count(u'/') + 1; }
};

struct ZipContents {
    enum Result { Whole, TooLong, Encrypted, Damaged };

    Result result = Damaged;
    QByteArray bytes;
};

class ZipArchive
{
public:
    enum class State { Open, NoLibrary, TooManyEntries, Unreadable };

    static constexpr qint64 mostEntries = 4096;

    explicit ZipArchive(const QByteArray &bytes);
    ZipArchive(const ZipArchive &) = delete;
    ZipArchive &operator=(const ZipArchive &) = delete;
    ~ZipArchive();

    State state() const { return m_state; }

    /// The normal files in the archive's own order; what is a link, a device, or lies outside its top is passed over.
    QList<ZipEntry> entries() const;

    /// What an entry holds. Its length, as the archive tells it, is not relied on.
    ZipContents read(const ZipEntry &entry, qint64 longest) const;

private:
    struct Library;
    static const Library &library();
    void open();
    bool isNormalFile(quint64 index) const;

    QByteArray m_bytes; // What is open reads from here.
    void *m_archive = nullptr;
    State m_state = State::Unreadable;
};
