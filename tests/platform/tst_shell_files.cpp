// SPDX-License-Identifier: GPL-3.0-or-later
// Copy, delete and rename as the desktop's shell does them: what is asked, and that no song is lost on the way.
#include "base/names.h"
#include "platform/drives.h"
#include "platform/file_copy.h"
#include "platform/file_names.h"
#include "platform/folders.h"
#include "platform/shell_files.h"
#include "support/crash_points.h"
#include "support/shell_answers.h"
#include "support/test_files.h"

#include <QDir>
#include <QTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{
const QByteArray oldBytes = "old song";
const QByteArray manyBytes = QByteArray(3'000'000, 'a') + "end";

QStringList entriesOf(const TestFolder &folder)
{
    return QDir(folder.hostPath()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}
} // namespace

class ShellFilesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void copyKeepsBytesTimesAndLabelsAcrossFileSystems()
    {
        const TestFolder folder;
        const QTemporaryDir memory(u"/dev/shm/kiv-test-XXXXXX"_s); // Mostly another file system.
        const QString source = folder.makeFile(u"a.mp3"_s, manyBytes);
        const timespec times[] = {{1'000'000'000, 5}, {1'100'000'000, 7}};
        QVERIFY(::utimensat(AT_FDCWD, hostPath(source), times, 0) == 0 && ::chmod(hostPath(source), 0640) == 0);
        const bool labelled = ::setxattr(hostPath(source), "user.rating", "5", 1, 0) == 0;
        const QString longName = QString(251, u'n') + u".mp3"_s;
        for (const QString &copy : {folder.path(u"b.mp3"_s), programPath(memory.path()) + u'\\' + longName}) {
            QCOMPARE(ShellCopyFile(source, copy, m_yes), ShellOutcome::Done);
            struct stat status = {};
            QVERIFY(::stat(hostPath(copy), &status) == 0 && status.st_size == manyBytes.size());
            QVERIFY(status.st_mtim.tv_sec == 1'100'000'000 && status.st_mtim.tv_nsec == 7);
            QCOMPARE(status.st_mode & 07777, 0640U);
        }
        char rating = 0;
        QVERIFY(!labelled || ::getxattr(hostPath(folder.path(u"b.mp3"_s)), "user.rating", &rating, 1) == 1);
        QCOMPARE(folder.bytesOf(u"b.mp3"_s), manyBytes);
        QCOMPARE(entriesOf(folder), QStringList({u"a.mp3"_s, u"b.mp3"_s}));
    }

    void impossibleChangesChangeNothing()
    {
        const TestFolder folder;
        const QString song = folder.makeFile(u"a.mp3"_s, oldBytes);
        folder.makeFolder(u"folder"_s);
        QVERIFY(::symlink("a.mp3", hostPath(folder.path(u"link.mp3"_s))) == 0);
        QVERIFY(::mkfifo(hostPath(folder.path(u"pipe"_s)), 0600) == 0);
        const QStringList before = entriesOf(folder);
        for (const QString &name : {u""_s, u"."_s, u"folder\\.."_s, u"folder/b.mp3"_s, u"folder"_s, u"a.mp3"_s,
                                    u"link.mp3"_s, u"nowhere\\b.mp3"_s, u"b"_s + QChar(0), QString(128, u'é')}) {
            QCOMPARE(ShellCopyFile(song, folder.path(name), m_yes), ShellOutcome::Failed);
            QCOMPARE(ShellRenameFile(song, folder.path(name), m_yes), ShellOutcome::Failed);
        }
        QCOMPARE(ShellRenameFile(song, folder.path(u"folder\\b.mp3"_s), m_yes), ShellOutcome::Failed);
        for (const QString &name : {u"gone.mp3"_s, u"folder"_s, u"pipe"_s})
            QCOMPARE(ShellCopyFile(folder.path(name), folder.path(u"b.mp3"_s), m_yes), ShellOutcome::Failed);
        for (const QString &path : {folder.path(), folder.path(u""_s), folder.path(u"gone"_s), u""_s, u"q:\\a.mp3"_s})
            QCOMPARE(ShellDeleteFile(path, m_yes), ShellOutcome::Failed);
        const QString b = folder.path(u"b.mp3"_s);
        QVERIFY(::chmod(hostPath(folder.path()), 0555) == 0);
        QVERIFY(holdsForOrdinaryUser([&] {
            ShellAnswers answers;
            const bool allFailed = ShellCopyFile(song, b, answers) == ShellOutcome::Failed &&
                                   ShellRenameFile(song, b, answers) == ShellOutcome::Failed &&
                                   ShellDeleteFile(song, answers) == ShellOutcome::Failed;
            return allFailed && answers.asked.isEmpty() && answers.told.size() == 3 &&
                   answers.told.last() == displayPath(song) + u" cannot be deleted: Permission denied."_s;
        }));
        QVERIFY(::chmod(hostPath(folder.path()), 0755) == 0);
        QVERIFY(entriesOf(folder) == before && filesIn(folder.path(u"folder"_s)).isEmpty());
        QCOMPARE(folder.bytesOf(u"a.mp3"_s), oldBytes);
    }

    void workTakesTheExactNameOrNone()
    {
        const TestFolder folder;
        folder.makeFile(u"Song.mp3"_s, oldBytes);
        folder.makeFolder(u"In"_s);
        folder.makeFile(u"In/a.mp3"_s, oldBytes);
        for (const QString &gone : {folder.path(u"song.mp3"_s), folder.path(u"in\\a.mp3"_s)}) {
            const QString other = FolderFromPath(gone) + u"b.mp3"_s;
            QCOMPARE(ShellDeleteFile(gone, m_yes), ShellOutcome::Failed);
            QCOMPARE(ShellRenameFile(gone, other, m_yes), ShellOutcome::Failed);
            QCOMPARE(ShellCopyFile(gone, other, m_yes, Source::Goes), ShellOutcome::Failed);
        }
        QCOMPARE(folder.bytesOf(u"Song.mp3"_s) + folder.bytesOf(u"In/a.mp3"_s), oldBytes + oldBytes);
        QCOMPARE(spelledAsOnDisk(folder.path(u"iN"_s)), folder.path(u"In"_s)); // So a list's names are exact.
    }

    void whatAKilledPlayerLeftGoesAndNothingElse()
    {
        const TestFolder folder(QDir::homePath());
        const QString source = folder.makeFile(u"a.mp3"_s, manyBytes);
        const QString b = folder.path(u"b.mp3"_s);
        const auto living = PendingCopy::make(hostPath(source), hostPath(b), FileTimes::Kept);
        for (const QString &name : {u".kiv-mp3-notes"_s, u".kiv-mp3-backup"_s, u"Settings.KiV.backup"_s})
            folder.makeFile(name);
        const QStringList before = entriesOf(folder);
        QCOMPARE(runWithFault(Fault::Death, 3, [&] { ShellCopyFile(source, b, m_yes); }), Fate::Met);
        QCOMPARE(entriesOf(folder).size(), before.size() + 1);
        tidyFolder(folder.path());
        QVERIFY(living && entriesOf(folder) == before);

        const QString notes = qEnvironmentVariable("XDG_DATA_HOME") + u"/Trash/info"_s;
        const auto noteCount = [&] { return QDir(notes).entryList(QDir::Files | QDir::Hidden).size(); };
        const auto notesBefore = noteCount();
        QCOMPARE(runWithFault(Fault::Death, 5, [&] { ShellDeleteFile(source, m_yes); }), Fate::Met);
        QVERIFY(FileExists(source) && noteCount() == notesBefore + 1); // A note about a file that never came.
        tidyTrash(folder.path());
        QCOMPARE(noteCount(), notesBefore);
    }

    void longCopyReportsAndStops()
    {
        const TestFolder folder;
        const QString source = folder.makeFile(u"a.mp3"_s);
        QVERIFY(::truncate(hostPath(source), 1LL << 40) == 0); // A hole of a terabyte takes longer than any patience.
        ShellAnswers answers;
        answers.refused = u"progress"_s;
        QCOMPARE(ShellCopyFile(source, folder.path(u"b.mp3"_s), answers), ShellOutcome::Declined);
        QCOMPARE(answers.asked, QStringList(u"progress"_s));
        QCOMPARE(entriesOf(folder), QStringList(u"a.mp3"_s));
    }

    void copyIsWholeOrNoneAtEveryFault()
    {
        const TestFolder folder;
        const QString source = folder.makeFile(u"a.mp3"_s, manyBytes);
        for (const Fault fault : {Fault::DiskFull, Fault::Death}) {
            int step = 1;
            for (Fate fate = Fate::Met; fate == Fate::Met; ++step) {
                const QString destination = folder.makeFile(u"b.mp3"_s, oldBytes);
                fate = runWithFault(fault, step, [&] { ShellCopyFile(source, destination, m_yes); });
                const QByteArray bytes = folder.bytesOf(u"b.mp3"_s);
                QVERIFY(bytes == manyBytes || (fate == Fate::Met && bytes == oldBytes));
                QVERIFY(fault == Fault::Death || entriesOf(folder).size() == 2);
            }
            QVERIFY(step > 7); // Three writes, a flush, a rename and the flush of the folder were met.
        }
        QCOMPARE(folder.bytesOf(u"a.mp3"_s), manyBytes);
    }

    void questionsComeBeforeReplacing()
    {
        const TestFolder folder;
        const QString a = folder.makeFile(u"a.mp3"_s, "new");
        const QString b = folder.makeFile(u"b.mp3"_s, oldBytes);
        ShellAnswers answers;
        answers.refused = u"replace"_s;
        QCOMPARE(ShellCopyFile(a, b, answers), ShellOutcome::Declined);
        QCOMPARE(ShellRenameFile(a, b, answers), ShellOutcome::Declined);
        QCOMPARE(folder.bytesOf(u"b.mp3"_s), oldBytes);
        answers.refused.clear();
        QCOMPARE(ShellCopyFile(a, b, answers), ShellOutcome::Done);
        QCOMPARE(ShellRenameFile(a, b, answers), ShellOutcome::Done);
        QCOMPARE(answers.asked, QStringList(4, u"replace"_s));
        QCOMPARE(entriesOf(folder), QStringList(u"b.mp3"_s));
        QCOMPARE(folder.bytesOf(u"b.mp3"_s), "new");
    }

    void fileThatAppearsMeanwhileIsKept()
    {
        const TestFolder folder;
        const QByteArray source = hostPath(folder.makeFile(u"a.mp3"_s, "new"));
        auto copy = PendingCopy::make(source, hostPath(folder.path(u"b.mp3"_s)), FileTimes::Kept);
        folder.makeFile(u"b.mp3"_s, oldBytes);
        QVERIFY(copy && copy->commit(Existing::Keep) == RenameResult::OtherExists);
        QCOMPARE(folder.bytesOf(u"b.mp3"_s), oldBytes);
    }

    void renameTakesAnyNameThatIsPossible()
    {
        const TestFolder folder;
        QString song = folder.makeFile(u"a.mp3"_s, oldBytes);
        ShellAnswers answers;
        for (const QString &name : {u"A.mp3"_s, nameFromHost("a\xFF.mp3"), u"\uF05C.mp3"_s}) {
            QCOMPARE(ShellRenameFile(song, folder.path(name), answers), ShellOutcome::Done);
            song = folder.path(name);
        }
        QCOMPARE(entriesOf(folder), QStringList(u"\\.mp3"_s));
        QVERIFY(answers.asked.isEmpty());
        // A second name of the same file: renaming onto it would leave both.
        QVERIFY(::link(hostPath(song), hostPath(folder.path(u"b.mp3"_s))) == 0);
        QCOMPARE(ShellRenameFile(song, folder.path(u"b.mp3"_s), answers), ShellOutcome::Done);
        QCOMPARE(entriesOf(folder), QStringList(u"b.mp3"_s));
        QCOMPARE(folder.bytesOf(u"b.mp3"_s), oldBytes);
    }

    void deletedFileCanBeRestored()
    {
        const TestFolder folder(QDir::homePath()); // It has the trash; the temporary folder may be another file system.
        const QString song = folder.makeFile(u"a.mp3"_s);
        const QString link = folder.path(u"b.mp3"_s);
        QVERIFY(::symlink("a.mp3", hostPath(link)) == 0);
        ShellAnswers answers;
        answers.refused = u"trash"_s;
        QCOMPARE(ShellDeleteFile(link, answers), ShellOutcome::Declined);
        QVERIFY(FileExists(link));
        QCOMPARE(ShellDeleteFile(link, m_yes), ShellOutcome::Done);
        QVERIFY(FileExists(song));
        QCOMPARE(ShellDeleteFile(song, m_yes), ShellOutcome::Done);
        QVERIFY(!FileExists(song) && QFile::exists(qEnvironmentVariable("XDG_DATA_HOME") + u"/Trash/files/a.mp3"_s));
    }

    void trashTakesAnyNameAgainAndAgain()
    {
        const TestFolder folder(QDir::homePath());
        const QDir files(qEnvironmentVariable("XDG_DATA_HOME") + u"/Trash/files"_s);
        const QString longName = QString(125, u'é') + u"n.mp3"_s;
        for (const QString &name : {nameFromHost("x\xFF.mp3"), longName, u"x.mp3"_s, u"x.mp3"_s}) {
            QCOMPARE(ShellRenameFile(folder.makeFile(u"a.mp3"_s), folder.path(name), m_yes), ShellOutcome::Done);
            QCOMPARE(ShellDeleteFile(folder.path(name), m_yes), ShellOutcome::Done);
        }
        QVERIFY(files.exists(u"x.mp3"_s) && files.exists(u"x.2.mp3"_s) && !files.entryList({u"éé*.mp3"_s}).isEmpty());
        QFile note(files.filePath(u"../info/x.2.mp3.trashinfo"_s));
        QVERIFY(note.open(QIODevice::ReadOnly));
        QVERIFY(
            note.readAll().startsWith("[Trash Info]\nPath=" + hostPath(folder.path(u"x.mp3"_s)) + "\nDeletionDate="));
    }

    void deleteWithoutTrashAsksAgain()
    {
        const TestFolder folder;
        QVERIFY(::chmod(hostPath(folder.path()), 0777) == 0);
        const QString song = folder.makeFile(u"a.mp3"_s);
        folder.makeFolder(u"data"_s);
        folder.makeFolder(u"data/Trash/files"_s);
        folder.makeFolder(u"data/Trash/info"_s);
        QVERIFY(::chmod(hostPath(folder.path(u"data\\Trash\\info"_s)), 0555) == 0);
        const auto data = qgetenv("XDG_DATA_HOME");
        qputenv("XDG_DATA_HOME", hostPath(folder.path(u"data"_s)));
        QVERIFY(holdsForOrdinaryUser([&] {
            ShellAnswers answers;
            answers.refused = u"delete"_s;
            return ShellDeleteFile(song, answers) == ShellOutcome::Declined && FileExists(song) &&
                   ShellDeleteFile(song, m_yes) == ShellOutcome::Done && !FileExists(song);
        }));
        qputenv("XDG_DATA_HOME", data);
    }

private:
    ShellAnswers m_yes;
};

QTEST_GUILESS_MAIN(ShellFilesTest)
#include "tst_shell_files.moc"
