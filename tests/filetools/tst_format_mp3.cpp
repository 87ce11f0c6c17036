// SPDX-License-Identifier: GPL-3.0-or-later
// The name formatter's window on real files.
#include "base/names.h"
#include "tests/filetools/name_tools.h"

#include <QDir>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

class FormatMp3Test : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void opensOnTheSongOfTheMainWindow()
    {
        NameTools tools({u"a.wav"_s, u"b_c.mp3"_s, u"01-band-song.mp3"_s});
        tools.openOn(u"01-band-song.mp3"_s);
        QCOMPARE(tools.formatMp3.File1.items().toStringList(), QStringList({u"01-band-song.mp3"_s, u"b_c.mp3"_s}));
        QCOMPARE(tools.formatMp3.File1.ListIndex(), 0);
        QCOMPARE(tools.formatMp3.Text1.Text(), u"01-band - Song.mp3"_s);
        QCOMPARE(tools.songList.pointedSong(), u"band-song.mp3"_s);
        tools.formatMp3.Dir1.readPath(tools.folder.path()); // Opened once more.
        QCOMPARE(tools.formatMp3.File1.ListIndex(), 0);
        QVERIFY(tools.tagEdit.isVisible());
        QVERIFY(QTest::qWaitForWindowExposed(&tools.tagEdit));
        QCOMPARE(control<TextBox>(tools.tagEdit, u"Year"_s).Text(), u"1999"_s);

        tools.songList.setPointedSong(u"a.wav"_s); // Not among the files here: its name is all that is shown.
        tools.openOn(u"a.wav"_s);
        QCOMPARE(tools.formatMp3.File1.ListIndex(), -1);
        QCOMPARE(tools.formatMp3.Text1.Text(), u"a.wav"_s);
        QVERIFY(!tools.formatMp3.Label1.isEnabled() && !tools.tagEdit.isVisible());
        tools.songList.setPointedSong(u"b_c.mp3"_s);
        tools.openOn({});
        QCOMPARE(tools.formatMp3.Text1.Text(), u"B C.mp3"_s);
        QVERIFY(tools.formatMp3.Label1.isEnabled());
    }

    void followsTheFolderAndReturns()
    {
        NameTools tools({u"a.mp3"_s});
        tools.openOn(u"a.mp3"_s);
        tools.formatMp3.Dir1.setPath(tools.folder.makeFolder(u"sub"_s));
        QVERIFY(tools.formatMp3.File1.items().isEmpty());
        QVERIFY(tools.formatMp3.Text1.Text().isEmpty() && !tools.tagEdit.isVisible());
        tools.folder.makeFile(u"new.mp3"_s);
        QSignalSpy done(&tools.formatMp3, &FormatMp3::done);
        tools.formatMp3.Label2.press();
        QCOMPARE(done.size(), 1);
        QVERIFY(!tools.formatMp3.isVisible() && !tools.tagEdit.isVisible());
        QCOMPARE(tools.List1.List(1), u"new"_s);
        tools.openOn(u"new.mp3"_s);
        QCOMPARE(tools.formatMp3.Text1.Text(), u"New.mp3"_s);
        QVERIFY(QDir(tools.folder.hostPath()).removeRecursively());
        tools.formatMp3.openOnSongs();
        QCOMPARE(tools.formatMp3.Dir1.Path() + u'\\', FolderFromPath(tools.folder.path())); // What is left of the way.
    }

    void renamesAndKeepsTheFileChosen()
    {
        NameTools tools({u"b.mp3"_s, u"z_song - live.mp3"_s});
        tools.openOn(u"z_song - live.mp3"_s);
        tools.formatMp3.Text1.setText(u"A Song.mp3"_s);
        QTest::keyClick(&tools.formatMp3.Text1, Qt::Key_Return);
        QCOMPARE(tools.formatMp3.File1.items().toStringList(), QStringList({u"A Song.mp3"_s, u"b.mp3"_s}));
        QCOMPARE(tools.formatMp3.File1.ListIndex(), 0);
        QCOMPARE(takeBoxes(), QStringList());
        control<Label>(tools.tagEdit, u"cmdRemove"_s).press(); // The tag editor went along to the new name.
        QVERIFY(!tools.folder.bytesOf(u"A Song.mp3"_s).last(128).startsWith("TAG"));
    }

    void refusedRenamesLeaveTheFiles()
    {
        NameTools tools({u"a.mp3"_s, u"b.mp3"_s});
        tools.openOn(u"a.mp3"_s);
        for (const QString &name : {u"up/down.mp3"_s, QString(), u"b.mp3"_s, u"a.mp3"_s}) {
            tools.formatMp3.Text1.setText(name);
            auto *typedMeanwhile = new QKeyEvent(QEvent::KeyPress, Qt::Key_X, {}, u"x"_s);
            QCoreApplication::postEvent(&tools.formatMp3.Text1, typedMeanwhile);
            tools.formatMp3.Label1.press();
            QCOMPARE(tools.formatMp3.Text1.Text(), name);
        }
        const QStringList shown = takeBoxes(); // Two that cannot be, the question before replacing, and the old name.
        QCOMPARE(shown.size(), 4);
        QVERIFY(shown[2].contains(tools.folder.hostPath() + u"/b.mp3"_s));
        QVERIFY(shown[3].startsWith(u"Error - 58|"_s) && shown[3].endsWith(u" - File already exists"_s));
        QCOMPARE(tools.formatMp3.File1.items().toStringList(), QStringList({u"a.mp3"_s, u"b.mp3"_s}));
        QCOMPARE(tools.formatMp3.File1.ListIndex(), 0);
    }

    void keysEditTheProposal()
    {
        NameTools tools({u"song - artist.mp3"_s});
        tools.openOn(u"song - artist.mp3"_s);
        FileListBox &files = tools.formatMp3.File1;
        QTest::keyClick(&files, Qt::Key_Space);
        QCOMPARE(tools.formatMp3.Text1.Text(), u"Artist - Song.mp3"_s);
        QTest::keyClick(&files, Qt::Key_Escape);
        QCOMPARE(tools.formatMp3.Text1.Text(), u"Song - Artist.mp3"_s);
        tools.formatMp3.Text1.setText(u"Song.mp3"_s);
        QTest::keyClick(&files, Qt::Key_Space);
        QVERIFY(takeBoxes().join(u' ').startsWith(u"Error - "_s));
        QTest::keyClick(&files, Qt::Key_Enter, Qt::KeypadModifier);
        QCOMPARE(tools.playedTitle, u"song - artist.mp3"_s); // Its whole name.
        doubleClickRow(files, 0);
        QCOMPARE(tools.takeCalls(), u"FileName song - artist.mp3, Play, FileName song - artist.mp3, Play"_s);
        QTest::keyClick(&files, Qt::Key_Delete);
        QCOMPARE(files.ListCount(), 1); // No was said.
        takeBoxes();
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Delete, {}, {}, true);
        QCoreApplication::sendEvent(&files, &held);
        QCOMPARE(takeBoxes(), QStringList());
        MsgBox::answerFromNowOn({MsgBox::Answer::Yes, MsgBox::Answer::Yes});
        QTest::keyClick(&files, Qt::Key_Delete);
        QCOMPARE(files.ListCount(), 0);
        QVERIFY(tools.formatMp3.Text1.Text().isEmpty() && !tools.tagEdit.isVisible());
    }

    void theNeighbourOfADeletedFileIsChosen()
    {
        NameTools tools({u"a.mp3"_s, u"b.mp3"_s, u"c.mp3"_s});
        tools.openOn(u"b.mp3"_s);
        MsgBox::answerFromNowOn(QList<MsgBox::Answer>(4, MsgBox::Answer::Yes));
        for (const auto &[text, row] : {std::pair(u"C.mp3"_s, 1), {u"A.mp3"_s, 0}}) {
            QTest::keyClick(&tools.formatMp3.File1, Qt::Key_Delete);
            QCOMPARE(tools.formatMp3.File1.ListIndex(), row);
            QCOMPARE(tools.formatMp3.Text1.Text(), text);
        }
    }

    void keysOfThePadMoveTheVolume()
    {
        NameTools tools({u"a.mp3"_s});
        const auto press = [&](Qt::Key key) { QTest::keyClick(&tools.formatMp3.File1, key, Qt::KeypadModifier); };
        press(Qt::Key_Plus);
        QCOMPARE(tools.engine.volume(), 0);
        press(Qt::Key_Minus);
        QCOMPARE(tools.engine.volume(), -5);
        QTest::keyClick(&tools.formatMp3.File1, Qt::Key_Minus); // It may begin a name.
        QCOMPARE(tools.engine.volume(), -5);
    }

    void tellsOfTheFileUnderTheMouse()
    {
        NameTools tools({u"a.mp3"_s, u"b.mp3"_s});
        tools.openOn(u"a.mp3"_s);
        QVERIFY(QFile(tools.folder.hostPath() + u"/b.mp3"_s).setPermissions(QFile::ReadOwner | QFile::WriteOther));
        FileListBox &files = tools.formatMp3.File1;
        QCOMPARE(tipOf(files, 0), u"a.mp3 is Normal"_s);
        QCOMPARE(tipOf(files, 1), u"b.mp3 is Read Only"_s);
        Q_EMIT files.MouseMove(1, Qt::NoButton);
        tools.formatMp3.MoveMenuOpen = true;
        Q_EMIT files.MouseMove(0, Qt::NoButton);
        QCOMPARE(tools.formatMp3.pointedFile(), u"b.mp3"_s);
        tools.formatMp3.MoveMenuOpen = false;
        Q_EMIT files.MouseMove(-1, Qt::NoButton);
        QCOMPARE(tools.formatMp3.pointedFile(), QString());
    }
};

QTEST_MAIN(FormatMp3Test)
#include "tst_format_mp3.moc"
