// The name formatter's window on real files.
#include "tests/filetools/name_tools.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

class TestFormatMp3 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void opensOnTheSongOfTheMainWindow()
    {
        NameTools tools({u"a.wav"_s, u"b_c.mp3"_s, u"01-band-song.mp3"_s});
        tools.openOn(u"01-band-song.mp3"_s);
        QCOMPARE(tools.formatMp3.File1.items(), QStringList({u"01-band-song.mp3"_s, u"b_c.mp3"_s}));
        QCOMPARE(tools.formatMp3.File1.ListIndex(), 0);
        QCOMPARE(tools.formatMp3.Text1.Text(), u"01-band - Song.mp3"_s);
        QCOMPARE(tools.main.songs().pointedSong(), u"band-song.mp3"_s);
        QVERIFY(tools.tagEdit.isVisible());
        QVERIFY(QTest::qWaitForWindowExposed(&tools.tagEdit));
        QCOMPARE(tools.tagEdit.findChild<TextBox *>(u"Year"_s)->Text(), u"1999"_s);

        tools.main.songs().setPointedSong(u"a.wav"_s); // Not among the files here: its name is all that is shown.
        tools.openOn(u"a.wav"_s);
        QCOMPARE(tools.formatMp3.File1.ListIndex(), -1);
        QCOMPARE(tools.formatMp3.Text1.Text(), u"a.wav"_s);
    }

    void followsTheFolderAndReturns()
    {
        NameTools tools({u"a.mp3"_s});
        tools.openOn(u"a.mp3"_s);
        tools.formatMp3.Dir1.setPath(tools.folder.makeFolder(u"sub"_s));
        QVERIFY(tools.formatMp3.File1.items().isEmpty());
        tools.folder.makeFile(u"new.mp3"_s);
        QSignalSpy done(&tools.formatMp3, &FormatMp3::done);
        tools.formatMp3.Label2.press();
        QCOMPARE(done.size(), 1);
        QVERIFY(!tools.formatMp3.isVisible() && !tools.tagEdit.isVisible());
        QCOMPARE(tools.main.List1.List(1), u"new"_s);
        tools.openOn(u"new.mp3"_s);
        QCOMPARE(tools.formatMp3.Text1.Text(), u"New.mp3"_s);
    }

    void renamesAndKeepsTheFileChosen()
    {
        NameTools tools({u"b.mp3"_s, u"z_song - live.mp3"_s});
        tools.openOn(u"z_song - live.mp3"_s);
        tools.formatMp3.Text1.setText(u"A Song.mp3"_s);
        QTest::keyClick(&tools.formatMp3.Text1, Qt::Key_Return);
        QCOMPARE(tools.formatMp3.File1.items(), QStringList({u"A Song.mp3"_s, u"b.mp3"_s}));
        QCOMPARE(tools.formatMp3.File1.ListIndex(), 0);
        QVERIFY(MsgBox::takeShown().isEmpty());
        tools.tagEdit.findChild<Label *>(u"cmdRemove"_s)->press(); // The tag editor went along to the new name.
        QVERIFY(!tools.folder.bytesOf(u"A Song.mp3"_s).last(128).startsWith("TAG"));
    }

    void refusedRenamesLeaveTheFiles()
    {
        NameTools tools({u"a.mp3"_s, u"b.mp3"_s});
        tools.openOn(u"a.mp3"_s);
        for (const QString &name : {u"up/down.mp3"_s, QString(), u"b.mp3"_s}) { // The last one asks, and No is said.
            tools.formatMp3.Text1.setText(name);
            tools.formatMp3.Label1.press();
            QCOMPARE(tools.formatMp3.Text1.Text(), name);
        }
        const auto shown = MsgBox::takeShown();
        QCOMPARE(shown.size(), 1);
        QVERIFY(shown[0].text.contains(tools.folder.hostPath() + u"/b.mp3"_s));
        QCOMPARE(tools.formatMp3.File1.items(), QStringList({u"a.mp3"_s, u"b.mp3"_s}));
        QCOMPARE(tools.formatMp3.File1.ListIndex(), 0);
    }

    void anUnchangedNameIsAnError()
    {
        NameTools tools({u"a.mp3"_s});
        tools.openOn(u"a.mp3"_s);
        tools.formatMp3.Text1.setText(u"a.mp3"_s);
        tools.formatMp3.Label1.press();
        const auto shown = MsgBox::takeShown();
        QCOMPARE(shown.size(), 1);
        QCOMPARE(shown[0].title, u"Error - 58"_s);
        QVERIFY(shown[0].text.endsWith(u" - File already exists"_s) && shown[0].icon == MsgBox::Icon::Critical);
        QCOMPARE(tools.formatMp3.Text1.Text(), u"a.mp3"_s);
    }

    void playsAFileUnderItsWholeName()
    {
        NameTools tools({u"a.mp3"_s});
        tools.openOn(u"a.mp3"_s);
        tools.engine.expect({u"FileName "_s + tools.folder.path(u"a.mp3"_s), u"Play"_s});
        QTest::mouseDClick(tools.formatMp3.File1.viewport(), Qt::LeftButton, {}, tools.rowCentre(0));
        QVERIFY(tools.engine.allCame());
        QCOMPARE(tools.main.Label7.Caption(), u"    a.mp3"_s);
        QVERIFY(tools.main.Timer1.Enabled() && tools.main.Timer4.Enabled());
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
        QVERIFY(MsgBox::takeShown().value(0).title.startsWith(u"Error - "_s));
        tools.engine.expect({u"FileName "_s + tools.folder.path(u"song - artist.mp3"_s), u"Play"_s});
        QTest::keyClick(&files, Qt::Key_Enter, Qt::KeypadModifier);
        QVERIFY(tools.engine.allCame());
        QTest::keyClick(&files, Qt::Key_Delete);
        QCOMPARE(files.ListCount(), 1); // No was said.
        MsgBox::answerFromNowOn({MsgBox::Answer::Yes, MsgBox::Answer::Yes});
        QTest::keyClick(&files, Qt::Key_Delete);
        QCOMPARE(files.ListCount(), 0);
    }

    void keysOfThePadMoveTheVolume()
    {
        NameTools tools({u"a.mp3"_s});
        const auto press = [&](Qt::Key key) { QTest::keyClick(&tools.formatMp3.File1, key, Qt::KeypadModifier); };
        press(Qt::Key_Plus);
        QCOMPARE(tools.main.VScroll1.Value(), 0);
        press(Qt::Key_Minus);
        QCOMPARE(tools.engine.volume(), -5);
        tools.main.VScroll1.setValue(-2288);
        press(Qt::Key_Minus);
        QCOMPARE(tools.engine.volume(), -2290);
    }

    void listsWhatTheChosenFileTells()
    {
        NameTools tools({u"a.mp3"_s});
        tools.openOn(u"a.mp3"_s);
        QWidget window;
        ListBox list(&window, {u"List1"_s, u"Facts"_s, {}});
        tools.formatMp3.LoadMp3Info(window, list);
        QVERIFY(window.isVisible());
        const QString facts = list.items().join(u'|').remove(QChar());
        QCOMPARE(facts, u"Artest = Ärger & Söhne|Title = Blue Café|Album = Album|Hz = 44100|Year = 1999|Seconds = 0|"
                        "Size = 5.8 KB|Comments = A comment"_s);
    }

    void tellsOfTheFileUnderTheMouse()
    {
        NameTools tools({u"a.mp3"_s, u"b.mp3"_s});
        tools.openOn(u"a.mp3"_s);
        QVERIFY(QFile(tools.folder.hostPath() + u"/b.mp3"_s).setPermissions(QFile::ReadOwner));
        FileListBox &files = tools.formatMp3.File1;
        Q_EMIT files.MouseMove(0, Qt::NoButton);
        QCOMPARE(files.toolTip(), u"a.mp3 is Normal"_s);
        Q_EMIT files.MouseMove(1, Qt::NoButton);
        QCOMPARE(files.toolTip(), u"b.mp3 is Read Only"_s);
        tools.formatMp3.MoveMenuOpen = true;
        Q_EMIT files.MouseMove(0, Qt::NoButton);
        QCOMPARE(tools.formatMp3.pointedFile(), u"b.mp3"_s);
        tools.formatMp3.MoveMenuOpen = false;
        Q_EMIT files.MouseMove(-1, Qt::NoButton);
        QCOMPARE(files.toolTip() + tools.formatMp3.pointedFile(), QString());
    }
};

QTEST_MAIN(TestFormatMp3)
#include "tst_format_mp3.moc"
