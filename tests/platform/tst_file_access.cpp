// SPDX-License-Identifier: GPL-3.0-or-later
// Files and folders as they turn up: short, hidden, linked, forbidden, full, no files at all.
#include "platform/files.h"
#include "platform/folders.h"
#include "support/crash_points.h"
#include "support/test_files.h"

#include <QFile>
#include <QTest>

#include <algorithm>
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;
using Access = ByteFile::Access;

namespace
{
QStringList sorted(QStringList names)
{
    names.sort();
    return names;
}

bool setMode(const TestFolder &folder, const QString &name, mode_t mode)
{
    return ::chmod(QFile::encodeName(folder.hostPath() + u'/' + name).constData(), mode) == 0;
}
} // namespace

class FileAccessTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsWhatIsThere()
    {
        const TestFolder folder;
        auto file = ByteFile::open(folder.makeFile(u"a"_s, "0123456789"), Access::ReadWrite);
        QVERIFY(file);
        QCOMPARE(*file->readAt(8, 128), "89");
        QCOMPARE(*file->readAt(10, 1), "");
        QCOMPARE(*file->readAt(-1, 4), "");
        QCOMPARE(*file->readAt(0, -1), "");
        QVERIFY(!file->writeAt(-1, "x"));
        QVERIFY(file->writeAt(12, "x"));
        QCOMPARE(file->length(), 13);
        QCOMPARE(*file->readAt(9, 99), QByteArray("9\0\0x", 4));
    }

    void opensNormalFilesAlone()
    {
        const TestFolder folder;
        folder.makeFolder(u"folder"_s);
        QCOMPARE(::mkfifo(QFile::encodeName(folder.hostPath() + u"/pipe"_s).constData(), 0600), 0);
        for (const auto &name : {u"folder"_s, u"folder\\"_s, u"pipe"_s, u"missing"_s, u""_s}) { // A pipe never waits.
            QVERIFY2(!ByteFile::open(folder.path(name), Access::Read), qPrintable(name));
            QVERIFY2(!ByteFile::open(folder.path(name), Access::ReadWrite), qPrintable(name));
            QVERIFY2(!FileExists(folder.path(name)) || name.isEmpty(), qPrintable(name));
        }
        QVERIFY(!ByteFile::open({}, Access::Read));
        QVERIFY(!ByteFile::open(u"d:\\a"_s, Access::Read));
        QVERIFY(!folderExists(folder.path(u"missing"_s)));
    }

    void aWriteThatFailsIsPutBack()
    {
        const TestFolder folder;
        const QString path = folder.makeFile(u"a"_s, "0123456789");
        auto readOnly = ByteFile::open(path, Access::Read);
        QVERIFY(readOnly && !readOnly->writeAt(0, "x") && !readOnly->resize(2));
        const Fate fate = runWithFault(Fault::DiskFull, 99, [&] {
            const rlimit room = {15, 15}; // The write from 8 on ends in its middle.
            std::signal(SIGXFSZ, SIG_IGN);
            auto file = ByteFile::open(path, Access::ReadWrite);
            const bool kept = file && ::setrlimit(RLIMIT_FSIZE, &room) == 0 && !file->writeAt(8, "abcdefghij");
            if (!kept || file->length() != 10)
                std::abort();
        });
        QCOMPARE(fate, Fate::Spared);
        QCOMPARE(folder.bytesOf(u"a"_s), "0123456789");
    }

    void aFolderExistsForItsFiles()
    {
        const TestFolder folder;
        folder.makeFolder(u"in"_s);
        for (const auto &file : {u"in/deep.mp3"_s, u".hidden.mp3"_s, u"any.txt"_s}) {
            folder.makeFile(file);
            QCOMPARE(FileExists(folder.path() + u'\\'), file == u"any.txt"_s);
        }
        QVERIFY(!FileExists(folder.path()) && folderExists(folder.path()));
        MakeFolder(folder.path(u"a\\b"_s)); // One level at a time.
        QCOMPARE(foldersIn(folder.path()), NameList(QStringList(u"in"_s)));
        MakeFolder(folder.path(u"IN"_s));
        QCOMPARE(foldersIn(folder.path()), NameList(QStringList(u"in"_s)));
    }

    void listsWhatFits()
    {
        const TestFolder folder;
        folder.makeFolder(u"Folder.mp3"_s);
        folder.makeFolder(u".hidden folder"_s);
        for (const auto &name : {u"a.MP3"_s, u"b.wav"_s, u"mp3"_s, u".c.mp3"_s, u"d.mp3.txt"_s, u"e.xmp3"_s})
            folder.makeFile(name);
        const auto link = [&](const QString &to, const QString &name) {
            return QFile::link(folder.hostPath() + u'/' + to, folder.hostPath() + u'/' + name);
        };
        QVERIFY(link(u"b.wav"_s, u"l.mp3"_s) && link(u"Folder.mp3"_s, u"m.mp3"_s) && link(u"missing"_s, u"n.mp3"_s));
        QCOMPARE(sorted(filesIn(folder.path(), {u"mp3"_s, u"wav"_s}).toStringList()),
                 QStringList({u"a.MP3"_s, u"b.wav"_s, u"l.mp3"_s}));
        QCOMPARE(sorted(foldersIn(folder.path()).toStringList()), QStringList({u"Folder.mp3"_s, u"m.mp3"_s}));
        QCOMPARE(filesIn(folder.path(u"missing"_s)), NameList(QStringList()));
        QCOMPARE(filesIn(u"d:\\"_s), NameList(QStringList()));
        QVERIFY(!fileLength(folder.path(u"n.mp3"_s)));
    }

    void aSaveSucceedsOrLeavesTheOldFile()
    {
        const TestFolder folder;
        folder.makeFile(u"a"_s, "old");
        const QString path = folder.path(u"A"_s);
        bool metOne = false;
        for (const Fault fault : {Fault::Death, Fault::DiskFull}) {
            Fate fate = Fate::Met;
            for (int step = 1; fate == Fate::Met; ++step) {
                fate = runWithFault(fault, step, [&] { saveFile(path, "new bytes"); });
                metOne = metOne || fate == Fate::Met;
                const QByteArray now = folder.bytesOf(u"a"_s);
                QVERIFY2(now == "old" || now == "new bytes", QByteArray::number(step) + now);
            }
            QCOMPARE(fate, Fate::Spared);
            QCOMPARE(folder.bytesOf(u"a"_s), "new bytes");
            QVERIFY(saveFile(path, "old"));
        }
        QVERIFY(metOne);
        QVERIFY(!saveFile(folder.path(u"missing\\a"_s), "new"));
    }

    void forbiddenThingsFailQuietly()
    {
        const TestFolder folder;
        folder.makeFolder(u"locked"_s);
        folder.makeFile(u"locked/a"_s, "old");
        folder.makeFile(u"secret"_s, "song");
        QVERIFY(setMode(folder, u"."_s, 0755) && setMode(folder, u"secret"_s, 0));
        QVERIFY(setMode(folder, u"locked/a"_s, 0444) && setMode(folder, u"locked"_s, 0555));
        QVERIFY(holdsForOrdinaryUser([&] {
            return !saveFile(folder.path(u"locked\\a"_s), "new") &&
                   loadFile(folder.path(u"secret"_s)).reading == Reading::Failed &&
                   fileLength(folder.path(u"secret"_s)) == 4;
        }));
        QVERIFY(setMode(folder, u"locked"_s, 0755));
        QCOMPARE(folder.bytesOf(u"locked/a"_s), "old");
        QVERIFY(setMode(folder, u"locked"_s, 0));
        QVERIFY(holdsForOrdinaryUser([&] { return filesIn(folder.path(u"locked"_s)).isEmpty(); }));
        QVERIFY(setMode(folder, u"locked"_s, 0755)); // Else it cannot be cleared away.
    }
};

QTEST_GUILESS_MAIN(FileAccessTest)
#include "tst_file_access.moc"
