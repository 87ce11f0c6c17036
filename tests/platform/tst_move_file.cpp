// SPDX-License-Identifier: GPL-3.0-or-later
// Moving songs: whatever is answered and whenever the program ends, the song is somewhere.
#include "platform/folders.h"
#include "platform/shell_files.h"
#include "support/crash_points.h"
#include "support/shell_answers.h"
#include "support/test_files.h"

#include <QTest>

using namespace Qt::StringLiterals;

class MoveFileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatDoesNotMoveStays()
    {
        const TestFolder folder;
        ShellAnswers answers;
        const QString song = folder.makeFile(u"a.mp3"_s, "song");
        const QString empty = folder.makeFile(u"empty.mp3"_s);
        QCOMPARE(moveFile(song, song, answers), ShellOutcome::Failed);
        QCOMPARE(moveFile(empty, empty, answers), ShellOutcome::Failed);
        QCOMPARE(moveFile(empty, folder.path(u"b.mp3"_s), answers), ShellOutcome::Failed);
        QVERIFY(FileExists(empty) && !FileExists(folder.path(u"b.mp3"_s)));
        answers.refused = u"replace"_s;
        QCOMPARE(moveFile(song, folder.makeFile(u"c.mp3"_s, "other"), answers), ShellOutcome::Declined);
        QCOMPARE(folder.bytesOf(u"a.mp3"_s) + folder.bytesOf(u"c.mp3"_s), "songother");
    }

    void songIsSomewhereAtEveryFault()
    {
        ShellAnswers answers;
        for (const Fault fault : {Fault::Death, Fault::DiskFull}) {
            Fate fate = Fate::Met;
            for (int step = 1; fate == Fate::Met; ++step) {
                const TestFolder folder;
                const QString source = folder.makeFile(u"a.mp3"_s, "song");
                const QString destination = folder.makeFile(u"b.mp3"_s, "other");
                fate = runWithFault(fault, step, [&] {
                    const bool isMoved = moveFile(source, destination, answers) == ShellOutcome::Done;
                    if (FileExists(source) == isMoved || folder.bytesOf(u"b.mp3"_s) != (isMoved ? "song" : "other"))
                        std::abort();
                });
                QVERIFY(fate == Fate::Met || (fate == Fate::Spared && !FileExists(source) && step > 4));
                const QString left = FileExists(source) ? u"a.mp3"_s : u"b.mp3"_s;
                QCOMPARE(folder.bytesOf(left), "song");
            }
        }
    }
};

QTEST_GUILESS_MAIN(MoveFileTest)
#include "tst_move_file.moc"
