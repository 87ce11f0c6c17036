// Copy, delete and rename as the desktop's shell does them: what is asked, and that no song is lost on the way.
#include "platform/drives.h"
#include "platform/file_attributes.h"
#include "platform/file_copy.h"
#include "platform/file_names.h"
#include "platform/folders.h"
#include "platform/shell_files.h"
#include "support/crash_points.h"
#include "support/test_files.h"

#include <QDateTime>
#include <QDir>
#include <QTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

// Answers yes to all but what is refused, and keeps the questions.
struct Answers : ShellPrompts {
    QStringList asked;
    QString refused;

    bool answer(const QString &question)
    {
        asked += question;
        return question != refused;
    }
    bool mayReplace(const QString &) override { return answer(u"replace"_s); }
    bool mayTrash(const QString &) override { return answer(u"trash"_s); }
    bool mayDeleteForGood(const QString &) override { return answer(u"delete"_s); }
    bool copyGoesOn(const QString &, qint64 done, qint64 total) override
    {
        return done <= total && answer(u"progress"_s);
    }
};

class TestShellFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void copyKeepsBytesTimesAndLabels();
    void copyCrossesFileSystems();
    void impossibleCopyChangesNothing_data();
    void impossibleCopyChangesNothing();
    void longCopyReportsAndStops();
    void copyIsWholeOrNoneAtEveryFault_data();
    void copyIsWholeOrNoneAtEveryFault();
    void questionsComeBeforeReplacing();
    void fileThatAppearsMeanwhileIsKept();
    void impossibleRenameChangesNothing_data();
    void impossibleRenameChangesNothing();
    void renameChangesCaseAlone();
    void renameBetweenHardLinksLeavesOneName();
    void readOnlyFolderRefusesEverything();
    void deletedFileCanBeRestored();
    void deleteWithoutTrashAsksAgain();
    void foldersAreNeverDeleted();
    void onlyAFileWithoutOwnersWriteBitIsReadOnly();

private:
    Answers m_yes;
};

namespace
{
const QByteArray oldBytes = "old song";

QByteArray manyBytes()
{
    return QByteArray(3'000'000, 'a') + "end";
}

QStringList entriesOf(const TestFolder &folder)
{
    return QDir(folder.hostPath()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

void setMode(const QString &path, mode_t mode)
{
    QCOMPARE(::chmod(hostPath(path), mode), 0);
}

struct stat statusOf(const QString &path)
{
    struct stat status = {};
    if (::lstat(hostPath(path), &status) != 0)
        qFatal("no %s", qPrintable(path));
    return status;
}
} // namespace

void TestShellFiles::copyKeepsBytesTimesAndLabels()
{
    const TestFolder folder;
    const QString source = folder.makeFile(u"a.mp3"_s, manyBytes());
    const timespec times[] = {{1'000'000'000, 5}, {1'100'000'000, 7}};
    QCOMPARE(::utimensat(AT_FDCWD, hostPath(source), times, 0), 0);
    setMode(source, 0640);
    const bool labelled = ::setxattr(hostPath(source), "user.rating", "5", 1, 0) == 0;

    QCOMPARE(ShellCopyFile(source, folder.path(u"b.mp3"_s), m_yes), ShellOutcome::Done);
    QCOMPARE(folder.bytesOf(u"b.mp3"_s), manyBytes());
    const struct stat status = statusOf(folder.path(u"b.mp3"_s));
    QCOMPARE(status.st_mtim.tv_sec, 1'100'000'000);
    QCOMPARE(status.st_mtim.tv_nsec, 7);
    QCOMPARE(status.st_mode & 07777, 0640U);
    char rating = 0;
    QVERIFY(!labelled || (::getxattr(hostPath(folder.path(u"b.mp3"_s)), "user.rating", &rating, 1) == 1));
    QCOMPARE(rating, labelled ? '5' : '\0');
    QCOMPARE(entriesOf(folder), QStringList({u"a.mp3"_s, u"b.mp3"_s}));
}

void TestShellFiles::copyCrossesFileSystems()
{
    const TestFolder folder;
    const QTemporaryDir other(u"/dev/shm/kiv-test-XXXXXX"_s);
    if (!other.isValid() || statusOf(programPath(other.path())).st_dev == statusOf(folder.path()).st_dev)
        QSKIP("no second file system");
    const QString there = programPath(other.filePath(u"long "_s + QString(245, u'n') + u".mp3"_s));
    QCOMPARE(ShellCopyFile(folder.makeFile(u"a.mp3"_s, oldBytes), there, m_yes), ShellOutcome::Done);
    QCOMPARE(fileLength(there), oldBytes.size());
}

void TestShellFiles::impossibleCopyChangesNothing_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("destination");
    QTest::newRow("onto itself") << u"a.mp3"_s << u"a.mp3"_s;
    QTest::newRow("onto itself through a link") << u"a.mp3"_s << u"link.mp3"_s;
    QTest::newRow("onto itself through a hard link") << u"a.mp3"_s << u"hard.mp3"_s;
    QTest::newRow("source missing") << u"gone.mp3"_s << u"b.mp3"_s;
    QTest::newRow("source is a folder") << u"folder"_s << u"b.mp3"_s;
    QTest::newRow("source is a pipe") << u"pipe"_s << u"b.mp3"_s;
    QTest::newRow("destination is a folder") << u"a.mp3"_s << u"folder"_s;
    QTest::newRow("folder missing") << u"a.mp3"_s << u"nowhere\\b.mp3"_s;
    QTest::newRow("no name") << u"a.mp3"_s << u"folder\\"_s;
    QTest::newRow("slash in the name") << u"a.mp3"_s << u"folder/b.mp3"_s;
    QTest::newRow("parent folder") << u"a.mp3"_s << u"folder\\.."_s;
    QTest::newRow("name too long") << u"a.mp3"_s << QString(u"é"_s).repeated(128);
    QTest::newRow("NUL in the name") << u"a.mp3"_s << u"b"_s + QChar(0) + u".mp3"_s;
}

void TestShellFiles::impossibleCopyChangesNothing()
{
    QFETCH(QString, source);
    QFETCH(QString, destination);
    const TestFolder folder;
    const QByteArray song = hostPath(folder.makeFile(u"a.mp3"_s, oldBytes));
    folder.makeFolder(u"folder"_s);
    QVERIFY(::symlink(song, hostPath(folder.path(u"link.mp3"_s))) == 0);
    QVERIFY(::link(song, hostPath(folder.path(u"hard.mp3"_s))) == 0);
    QVERIFY(::mkfifo(hostPath(folder.path(u"pipe"_s)), 0600) == 0);
    const QStringList before = entriesOf(folder);
    QCOMPARE(ShellCopyFile(folder.path(source), folder.path(destination), m_yes), ShellOutcome::Failed);
    QCOMPARE(entriesOf(folder), before);
    QVERIFY(foldersIn(folder.path()) == QStringList(u"folder"_s) && filesIn(folder.path(u"folder"_s)).isEmpty());
    QCOMPARE(folder.bytesOf(u"a.mp3"_s), oldBytes);
}

void TestShellFiles::longCopyReportsAndStops()
{
    const TestFolder folder;
    const QString source = folder.makeFile(u"a.mp3"_s);
    QVERIFY(::truncate(hostPath(source), 1LL << 40) == 0); // A hole of a terabyte takes longer than any patience.
    Answers answers;
    answers.refused = u"progress"_s;
    QCOMPARE(ShellCopyFile(source, folder.path(u"b.mp3"_s), answers), ShellOutcome::Declined);
    QCOMPARE(answers.asked, QStringList(u"progress"_s));
    QCOMPARE(entriesOf(folder), QStringList(u"a.mp3"_s));
}

void TestShellFiles::copyIsWholeOrNoneAtEveryFault_data()
{
    QTest::addColumn<bool>("dies");
    QTest::newRow("killed") << true;
    QTest::newRow("disk full") << false;
}

void TestShellFiles::copyIsWholeOrNoneAtEveryFault()
{
    QFETCH(bool, dies);
    const TestFolder folder;
    const QString source = folder.makeFile(u"a.mp3"_s, manyBytes());
    int step = 1;
    for (Fate fate = Fate::Met; fate == Fate::Met; ++step) {
        folder.makeFile(u"b.mp3"_s, oldBytes);
        fate = runWithFault(dies ? Fault::Death : Fault::DiskFull, step,
                            [&] { ShellCopyFile(source, folder.path(u"b.mp3"_s), m_yes); });
        QVERIFY(fate != Fate::Crashed);
        QCOMPARE(folder.bytesOf(u"a.mp3"_s), manyBytes());
        const QByteArray bytes = folder.bytesOf(u"b.mp3"_s);
        QVERIFY(bytes == manyBytes() || (fate == Fate::Met && bytes == oldBytes));
        QVERIFY(dies || entriesOf(folder).size() == 2);
    }
    QVERIFY(step > 7); // Three writes, a flush, a rename and the flush of the folder were met.
}

void TestShellFiles::questionsComeBeforeReplacing()
{
    const TestFolder folder;
    const QString a = folder.makeFile(u"a.mp3"_s, "new");
    const QString b = folder.makeFile(u"b.mp3"_s, oldBytes);
    Answers answers;
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

void TestShellFiles::fileThatAppearsMeanwhileIsKept()
{
    const TestFolder folder;
    const QByteArray source = hostPath(folder.makeFile(u"a.mp3"_s, "new"));
    auto copy = WaitingCopy::make(source, hostPath(folder.path(u"b.mp3"_s)), FileTimes::Kept);
    folder.makeFile(u"b.mp3"_s, oldBytes);
    QVERIFY(copy && copy->takeName(Existing::Keep) == NameTaken::OtherExists);
    QCOMPARE(folder.bytesOf(u"b.mp3"_s), oldBytes);
    QCOMPARE(copy->takeName(Existing::Replace), NameTaken::Done);
    QCOMPARE(folder.bytesOf(u"b.mp3"_s), "new");
}

void TestShellFiles::impossibleRenameChangesNothing_data()
{
    QTest::addColumn<QString>("name");
    for (const auto &name : {u""_s, u"."_s, u".."_s, u"x/b.mp3"_s, u"folder\\b.mp3"_s, u"folder"_s, u"a.mp3"_s,
                             u"link.mp3"_s, u"b"_s + QChar(0), QString(256, u'b')})
        QTest::newRow(qPrintable(u'"' + name.left(20) + u'"')) << name;
}

void TestShellFiles::impossibleRenameChangesNothing()
{
    QFETCH(QString, name);
    const TestFolder folder;
    const QString song = folder.makeFile(u"a.mp3"_s, oldBytes);
    folder.makeFolder(u"folder"_s);
    QVERIFY(::symlink("a.mp3", hostPath(folder.path(u"link.mp3"_s))) == 0);
    QCOMPARE(ShellRenameFile(song, folder.path(name), m_yes), ShellOutcome::Failed);
    QCOMPARE(ShellRenameFile(folder.path(u"gone.mp3"_s), folder.path(u"b.mp3"_s), m_yes), ShellOutcome::Failed);
    QCOMPARE(entriesOf(folder), QStringList({u"a.mp3"_s, u"folder"_s, u"link.mp3"_s}));
    QCOMPARE(folder.bytesOf(u"a.mp3"_s), oldBytes);
}

void TestShellFiles::renameChangesCaseAlone()
{
    const TestFolder folder;
    Answers answers;
    const QString odd = folder.path(nameFromHost("a\xFF.mp3")); // A name whose bytes are no text.
    QCOMPARE(ShellRenameFile(folder.makeFile(u"a.mp3"_s, oldBytes), folder.path(u"A.mp3"_s), answers),
             ShellOutcome::Done);
    QCOMPARE(ShellRenameFile(folder.path(u"A.mp3"_s), odd, answers), ShellOutcome::Done);
    QCOMPARE(ShellRenameFile(odd, folder.path(u"\\\uF05C.mp3"_s), answers), ShellOutcome::Done);
    QCOMPARE(folder.bytesOf(u"\\.mp3"_s), oldBytes);
    QVERIFY(answers.asked.isEmpty());
}

void TestShellFiles::renameBetweenHardLinksLeavesOneName()
{
    const TestFolder folder;
    const QString a = folder.makeFile(u"a.mp3"_s, oldBytes);
    QVERIFY(::link(hostPath(a), hostPath(folder.path(u"b.mp3"_s))) == 0);
    QCOMPARE(ShellRenameFile(a, folder.path(u"b.mp3"_s), m_yes), ShellOutcome::Done);
    QCOMPARE(entriesOf(folder), QStringList(u"b.mp3"_s));
    QCOMPARE(folder.bytesOf(u"b.mp3"_s), oldBytes);
}

void TestShellFiles::readOnlyFolderRefusesEverything()
{
    const TestFolder folder;
    const QString a = folder.makeFile(u"a.mp3"_s, oldBytes);
    setMode(folder.path(), 0555);
    const QString b = folder.path(u"b.mp3"_s);
    QVERIFY(holdsForOrdinaryUser([&] { return ShellCopyFile(a, b, m_yes) == ShellOutcome::Failed; }));
    QVERIFY(holdsForOrdinaryUser([&] { return ShellRenameFile(a, b, m_yes) == ShellOutcome::Failed; }));
    QVERIFY(holdsForOrdinaryUser([&] { return ShellDeleteFile(a, m_yes) == ShellOutcome::Failed; }));
    setMode(folder.path(), 0755);
    QCOMPARE(entriesOf(folder), QStringList(u"a.mp3"_s));
}

void TestShellFiles::deletedFileCanBeRestored()
{
    // Below the home folder, which has the trash: the temporary folder may be another file system.
    const QString home = QDir::homePath();
    const QString song = programPath(home + u"/a.mp3"_s);
    const QString link = programPath(home + u"/b.mp3"_s);
    const QString trash = programPath(qEnvironmentVariable("XDG_DATA_HOME") + u"/Trash/files"_s);
    QVERIFY(QFile(home + u"/a.mp3"_s).open(QIODevice::WriteOnly));
    QVERIFY(::symlink("a.mp3", hostPath(link)) == 0);
    Answers answers;
    answers.refused = u"trash"_s;
    QCOMPARE(ShellDeleteFile(link, answers), ShellOutcome::Declined);
    QVERIFY(FileExists(link));
    answers.refused.clear();
    QCOMPARE(ShellDeleteFile(link, answers), ShellOutcome::Done);
    QVERIFY(FileExists(song));
    QCOMPARE(ShellDeleteFile(song, answers), ShellOutcome::Done);
    QVERIFY(!FileExists(song) && FileExists(trash + u"\\a.mp3"_s));
    QCOMPARE(ShellDeleteFile(song, answers), ShellOutcome::Failed);
    QCOMPARE(answers.asked.count(u"trash"_s), 3);
}

void TestShellFiles::deleteWithoutTrashAsksAgain()
{
    const TestFolder folder;
    const QString odd = folder.path(nameFromHost("a\xFF.mp3")); // Cannot be named to the trash.
    QCOMPARE(ShellRenameFile(folder.makeFile(u"a.mp3"_s), odd, m_yes), ShellOutcome::Done);
    Answers answers;
    answers.refused = u"delete"_s;
    QCOMPARE(ShellDeleteFile(odd, answers), ShellOutcome::Declined);
    QVERIFY(FileExists(odd));
    answers.refused.clear();
    QCOMPARE(ShellDeleteFile(odd, answers), ShellOutcome::Done);
    QVERIFY(!FileExists(odd));
}

void TestShellFiles::foldersAreNeverDeleted()
{
    const TestFolder folder;
    folder.makeFile(u"a.mp3"_s);
    Answers answers;
    for (const QString &path : {folder.path(), folder.path(u""_s), u""_s, u"z:\\"_s, u"q:\\a.mp3"_s})
        QCOMPARE(ShellDeleteFile(path, answers), ShellOutcome::Failed);
    QVERIFY(answers.asked.isEmpty());
}

void TestShellFiles::onlyAFileWithoutOwnersWriteBitIsReadOnly()
{
    const TestFolder folder;
    const QString song = folder.makeFile(u"a.mp3"_s);
    setMode(song, 0466);
    QCOMPARE(FileAttributeText(song), u"Read Only"_s);
    setMode(song, 0200);
    QCOMPARE(FileAttributeText(song), u"Normal"_s);
    setMode(folder.makeFolder(u"folder"_s), 0555);
    QCOMPARE(FileAttributeText(folder.path(u"folder"_s)), u"Normal"_s);
    QCOMPARE(FileAttributeText(folder.path(u"gone"_s)), u"Normal"_s);
}

QTEST_GUILESS_MAIN(TestShellFiles)
#include "tst_shell_files.moc"
